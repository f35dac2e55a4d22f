// Whole-file compression: the file holds a CCR with the compressed image of an
// ordinary CDF; the engine works on an expanded scratch copy while it is open.
#pragma once

#include <string>

#include "format/records.h"
#include "io/file.h"

namespace cdfgate::engine::store {

class CdfFile;

// Replaces file (the compressed CDF) by a scratch file holding the expanded image,
// after checking the MD5 digest when the image's CDR asks for one; cpr receives the
// compression found, percent the compressed size in percent.
Status expand_whole_file(const CdfFile& cdf, io::File& file, format::Cpr& cpr, long& percent);
// Compression, stored size and expanded size of the CDF file at path, without
// opening it as a CDF (an uncompressed file reports type 0 and its own size twice).
Status whole_file_info(const std::string& path, format::Cpr& cpr, std::int64_t& stored,
                       std::int64_t& expanded);
// Writes the image of scratch (up to eof) compressed with cpr, and its MD5 digest
// when asked, into a new file that replaces path (a failure leaves path as it was).
Status compress_whole_file(const io::File& scratch, std::int64_t eof, const format::Cpr& cpr,
                           format::Layout layout, bool md5, const std::string& path);

}  // namespace cdfgate::engine::store
