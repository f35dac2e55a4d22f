// The MD5 digest kept after the last record of a checksummed file.
#pragma once

#include <cstdint>

#include "io/file.h"

namespace cdfgate::engine::store {

// CHECKSUM_ERROR unless the 16 bytes at eof are the MD5 of bytes 0..eof-1.
Status verify_md5(const io::File& file, std::int64_t eof);
// Writes the MD5 of bytes 0..eof-1 at eof.
Status write_md5(io::File& file, std::int64_t eof);

}  // namespace cdfgate::engine::store
