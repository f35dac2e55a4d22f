#include "store/whole_file.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "codec/dispatch.h"
#include "codec/md5.h"
#include "store/cdf_file.h"
#include "store/checksum.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int64_t kMaxImage = std::int64_t{1} << 34;

// How many times its own size a stream of each method can expand to, at most:
// a 2-byte RLE pair stands for 256 zeros, a Huffman code takes at least one bit,
// deflate reaches about 1032.
std::int64_t max_expansion(codec::Method method) {
    switch (method) {
        case codec::Method::Rle:
            return 129;
        case codec::Method::Huff:
        case codec::Method::Ahuff:
            return 9;
        default:
            return 1100;
    }
}

// Writes bytes to a new file beside path and renames it over path, so that a
// failure leaves the original whole.
Status replace_file(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::string temp;
    io::File file;
    for (int attempt = 0;; ++attempt) {
        temp = path + ".cdfgate-" + std::to_string(::getpid()) + "-" + std::to_string(attempt);
        const Status created = io::File::create(temp, file);
        if (created.code == CDF_EXISTS && attempt < 100) continue;
        if (created.failed()) return CDF_WRITE_ERROR;
        break;
    }
    Status status = file.write(0, bytes);
    if (!status.failed()) status = file.sync();
    file.close();
    std::error_code ec;
    if (!status.failed()) std::filesystem::rename(temp, path, ec);
    if (status.failed() || ec) {
        std::filesystem::remove(temp, ec);
        return CDF_WRITE_ERROR;
    }
    return kOk;
}

}  // namespace

Status expand_whole_file(const CdfFile& cdf, io::File& file, format::Cpr& cpr, long& percent) {
    const format::Layout layout = cdf.layout();
    const Status corrupted = cdf.corrupted_status();
    std::vector<std::uint8_t> ccr_bytes;
    CDFGATE_TRY(cdf.read_record(8, ccr_bytes));
    format::Ccr ccr;
    if (!format::parse_ccr(ccr_bytes, layout, ccr)) return corrupted;
    std::vector<std::uint8_t> cpr_bytes;
    CDFGATE_TRY(cdf.read_record(ccr.cpr_offset, cpr_bytes));
    if (!format::parse_cpr(cpr_bytes, layout, cpr) || cpr.parms.empty()) return corrupted;
    const auto method = codec::method_of_type(cpr.c_type);
    if (!method || !codec::valid_parameter(*method, cpr.parms[0])) return UNKNOWN_COMPRESSION;
    const std::span<const std::uint8_t> data =
        std::span<const std::uint8_t>(ccr_bytes).subspan(ccr.data_start);
    const auto in_size = static_cast<std::int64_t>(data.size());
    if (ccr.u_size == 0) return EMPTY_COMPRESSED_CDF;
    if (ccr.u_size < 8 || ccr.u_size > kMaxImage ||
        ccr.u_size > (in_size + 64) * max_expansion(*method)) {
        return corrupted;
    }
    std::vector<std::uint8_t> image(8 + static_cast<std::size_t>(ccr.u_size));
    if (codec::decode(*method, data, std::span(image).subspan(8)) != codec::Result::Ok) {
        return *method == codec::Method::Gzip ? ZLIB_UNCOMPRESS_ERROR : DECOMPRESSION_ERROR;
    }
    // The magic numbers, CCR and CPR; an MD5 digest of them follows when the inner
    // CDR asks for one (version 3 only).
    const auto outer = static_cast<std::int64_t>(8 + ccr_bytes.size() + cpr_bytes.size());
    constexpr std::size_t kCdrFlags = 8 + 32;
    constexpr std::uint32_t kMd5Flags = format::kCdrChecksum | format::kCdrMd5;
    if (layout.v3 && image.size() >= kCdrFlags + 4 &&
        (encoding::load_be32(image.data() + kCdrFlags) & kMd5Flags) == kMd5Flags) {
        CDFGATE_TRY(verify_md5(file, outer));
    }
    encoding::store_be32(image.data(), layout.v3 ? format::kMagicV3 : format::kMagicV2);
    encoding::store_be32(image.data() + 4, format::kMagicUncompressed);
    io::File scratch;
    CDFGATE_TRY(io::File::create_scratch(scratch));
    CDFGATE_TRY(scratch.write(0, image));
    file = std::move(scratch);
    // The stored records over the expanded file, rounded half up (the digest does
    // not count).
    percent = static_cast<long>((200 * outer + ccr.u_size + 8) / (2 * (ccr.u_size + 8)));
    return kOk;
}

Status whole_file_info(const std::string& path, format::Cpr& cpr, std::int64_t& stored,
                       std::int64_t& expanded) {
    io::File file;
    CDFGATE_TRY(io::File::open(path, file));
    std::uint8_t magic[8];
    if (file.size() < 8) return CDF_READ_ERROR;
    CDFGATE_TRY(file.read(0, magic));
    const std::uint32_t m1 = encoding::load_be32(magic);
    if (m1 != format::kMagicV3 && m1 != format::kMagicV2 && m1 != format::kMagicV25) {
        return NOT_A_CDF_OR_NOT_SUPPORTED;
    }
    const format::Layout layout{m1 == format::kMagicV3};
    stored = static_cast<std::int64_t>(file.size());
    cpr = format::Cpr{};
    if (encoding::load_be32(magic + 4) != format::kMagicCompressed) {
        expanded = stored;
        return kOk;
    }
    // CCR header: size, type, CPR offset, uncompressed size.
    std::vector<std::uint8_t> ccr(layout.header_size() + 2 * layout.offset_size());
    CDFGATE_TRY(file.read(8, ccr));
    format::ByteReader r(ccr, layout);
    r.offset();
    const std::int32_t type = r.i32();
    const std::int64_t cpr_offset = r.offset();
    const std::int64_t u_size = r.offset();
    const Status corrupted = layout.v3 ? CORRUPTED_V3_CDF : CORRUPTED_V2_CDF;
    if (r.failed() || type != format::kCcr || u_size < 0 || cpr_offset < 8 ||
        cpr_offset > stored - 28) {
        return corrupted;
    }
    std::vector<std::uint8_t> cpr_bytes(static_cast<std::size_t>(std::min<std::int64_t>(
        stored - cpr_offset, static_cast<std::int64_t>(layout.header_size() + 12 + 4 * 5))));
    CDFGATE_TRY(file.read(static_cast<std::uint64_t>(cpr_offset), cpr_bytes));
    if (!format::parse_cpr(cpr_bytes, layout, cpr)) return corrupted;
    expanded = u_size + 8;
    return kOk;
}

Status compress_whole_file(const io::File& scratch, std::int64_t eof, const format::Cpr& cpr,
                           format::Layout layout, bool md5, const std::string& path) {
    const auto method = codec::method_of_type(cpr.c_type);
    if (!method || eof < 8) return UNKNOWN_COMPRESSION;
    std::vector<std::uint8_t> image(static_cast<std::size_t>(eof - 8));
    CDFGATE_TRY(scratch.read(8, image));
    std::vector<std::uint8_t> packed;
    const int parm = cpr.parms.empty() ? 0 : cpr.parms[0];
    if (codec::encode(*method, parm, image, packed) != codec::Result::Ok) return COMPRESSION_ERROR;

    std::vector<std::uint8_t> out(8);
    encoding::store_be32(out.data(), layout.v3 ? format::kMagicV3 : format::kMagicV2);
    encoding::store_be32(out.data() + 4, format::kMagicCompressed);
    format::ByteWriter w(out, layout);
    const std::int64_t ccr_size = static_cast<std::int64_t>(
        layout.header_size() + 2 * layout.offset_size() + 4 + packed.size());
    w.offset(ccr_size);
    w.i32(format::kCcr);
    w.offset(8 + ccr_size);  // the CPR follows the CCR
    w.offset(eof - 8);
    w.i32(0);
    w.bytes(packed);
    const auto cpr_bytes = format::serialize_cpr(cpr, layout);
    out.insert(out.end(), cpr_bytes.begin(), cpr_bytes.end());
    if (md5) {
        const codec::Md5Digest digest = codec::md5_of(out);
        out.insert(out.end(), digest.begin(), digest.end());
    }
    return replace_file(path, out);
}

}  // namespace cdfgate::engine::store
