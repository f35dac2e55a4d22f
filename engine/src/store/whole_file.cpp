#include "store/whole_file.h"

#include <algorithm>
#include <vector>

#include "codec/dispatch.h"
#include "store/cdf_file.h"

namespace cdfgate::engine::store {
namespace {

// No stream of the four methods expands more than about a thousandfold.
constexpr std::int64_t kMaxExpansion = 1100;
constexpr std::int64_t kMaxImage = std::int64_t{1} << 34;

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
    if (!method) return UNKNOWN_COMPRESSION;
    const std::span<const std::uint8_t> data =
        std::span<const std::uint8_t>(ccr_bytes).subspan(ccr.data_start);
    const auto in_size = static_cast<std::int64_t>(data.size());
    if (ccr.u_size < 8 || ccr.u_size > kMaxImage || ccr.u_size > (in_size + 64) * kMaxExpansion) {
        return corrupted;
    }
    std::vector<std::uint8_t> image(8 + static_cast<std::size_t>(ccr.u_size));
    if (codec::decode(*method, data, std::span(image).subspan(8)) != codec::Result::Ok) {
        return DECOMPRESSION_ERROR;
    }
    encoding::store_be32(image.data(), layout.v3 ? format::kMagicV3 : format::kMagicV2);
    encoding::store_be32(image.data() + 4, format::kMagicUncompressed);
    io::File scratch;
    CDFGATE_TRY(io::File::create_scratch(scratch));
    CDFGATE_TRY(scratch.write(0, image));
    file = std::move(scratch);
    const std::int64_t outer = static_cast<std::int64_t>(ccr_bytes.size());
    percent = static_cast<long>((outer * 100 + ccr.u_size / 2) / ccr.u_size);
    return kOk;
}

Status compress_whole_file(const io::File& scratch, std::int64_t eof, const format::Cpr& cpr,
                           format::Layout layout, const std::string& path) {
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
    return io::overwrite_file(path, out);
}

}  // namespace cdfgate::engine::store
