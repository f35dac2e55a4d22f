#include "store/compressed_block.h"

#include "codec/dispatch.h"
#include "format/records.h"
#include "store/cdf_file.h"

namespace cdfgate::engine::store {
namespace {

// No method expands its input by more than this (deflate's limit is 1032).
constexpr std::int64_t kMaxExpansion = 1100;

Status status_of(codec::Result result, codec::Method method) {
    switch (result) {
        case codec::Result::Ok:
            return kOk;
        case codec::Result::ShortOutput:
            return VAR_READ_ERROR;
        case codec::Result::OutOfMemory:
            return BAD_MALLOC;
        default:
            return method == codec::Method::Gzip ? ZLIB_UNCOMPRESS_ERROR : DECOMPRESSION_ERROR;
    }
}

}  // namespace

Status compressed_block(const CdfFile& cdf, const Variable& var, const Block& block,
                        std::int64_t record_bytes, BlockCache& cache,
                        std::span<const std::uint8_t>& out) {
    const std::int64_t expected = block.count() * record_bytes;
    if (block.type == kStagedBlock) {
        const CompressedStage& st = var.stage;
        if (!st.active || st.first != block.first ||
            static_cast<std::int64_t>(st.bytes.size()) != expected) {
            return CDF_INTERNAL_ERROR;
        }
        out = st.bytes;
        return kOk;
    }
    if (cache.offset == block.offset && static_cast<std::int64_t>(cache.bytes.size()) == expected) {
        out = cache.bytes;
        return kOk;
    }
    const format::Layout layout = cdf.layout();
    const auto fixed = static_cast<std::int64_t>(layout.header_size() + 4 + layout.offset_size());
    if (block.size < fixed) return cdf.corrupted_status();
    std::vector<std::uint8_t> head(static_cast<std::size_t>(fixed));
    CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(block.offset), head));
    format::ByteReader r(head, layout);
    r.skip(layout.header_size() + 4);
    const std::int64_t c_size = r.offset();
    const auto file_size = static_cast<std::int64_t>(cdf.file().size());
    if (r.failed() || c_size < 0 || c_size > block.size - fixed ||
        c_size > file_size - block.offset - fixed) {
        return cdf.corrupted_status();
    }
    if (expected > c_size * kMaxExpansion + 1024) return cdf.corrupted_status();
    const auto method = var.cpr ? codec::method_of_type(var.cpr->c_type) : std::nullopt;
    if (!method || var.cpr->parms.empty() || !codec::valid_parameter(*method, var.cpr->parms[0])) {
        return UNKNOWN_COMPRESSION;
    }

    std::vector<std::uint8_t> payload(static_cast<std::size_t>(c_size));
    CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(block.offset + fixed), payload));
    cache.offset = 0;
    cache.bytes.resize(static_cast<std::size_t>(expected));  // every byte is decoded into
    CDFGATE_TRY(status_of(codec::decode(*method, payload, cache.bytes), *method));
    cache.offset = block.offset;
    out = cache.bytes;
    return kOk;
}

}  // namespace cdfgate::engine::store
