#include "store/compressed_block.h"

#include <algorithm>

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

// The decoded size of a block, refused when no payload that fits the block's stored
// record could expand to it: a damaged record count in an index entry must not
// turn into an allocation out of proportion to the file.
Status decoded_size(const CdfFile& cdf, const Block& block, std::int64_t record_bytes,
                    std::int64_t& out) {
    const auto file_size = static_cast<std::int64_t>(cdf.file().size());
    if (block.count() < 1 || record_bytes < 0 || block.offset < 0 || block.offset > file_size) {
        return cdf.corrupted_status();
    }
    const std::int64_t stored = std::min(block.size, file_size - block.offset);
    if (__builtin_mul_overflow(block.count(), record_bytes, &out) ||
        out > stored * kMaxExpansion + 1024) {
        return cdf.corrupted_status();
    }
    return kOk;
}

}  // namespace

Status compressed_block(const CdfFile& cdf, const Variable& var, const Block& block,
                        std::int64_t record_bytes, BlockCache& cache,
                        std::span<const std::uint8_t>& out) {
    if (block.type == kStagedBlock) {
        const std::int64_t expected = block.count() * record_bytes;
        const CompressedStage& st = var.stage;
        if (!st.active || st.first != block.first ||
            static_cast<std::int64_t>(st.bytes.size()) != expected) {
            return CDF_INTERNAL_ERROR;
        }
        out = st.bytes;
        return kOk;
    }
    std::int64_t expected = 0;
    CDFGATE_TRY(decoded_size(cdf, block, record_bytes, expected));
    if (cache.offset == block.offset && static_cast<std::int64_t>(cache.bytes.size()) == expected) {
        out = cache.bytes;
        return kOk;
    }
    cache.offset = 0;
    cache.bytes.resize(static_cast<std::size_t>(expected));  // every byte is decoded into
    CDFGATE_TRY(decode_block(cdf, var, block, cache.payload, cache.bytes));
    cache.offset = block.offset;
    out = cache.bytes;
    return kOk;
}

Status decode_block(const CdfFile& cdf, const Variable& var, const Block& block,
                    std::vector<std::uint8_t>& record, std::span<std::uint8_t> out) {
    const format::Layout layout = cdf.layout();
    const auto fixed = static_cast<std::int64_t>(layout.header_size() + 4 + layout.offset_size());
    const auto file_size = static_cast<std::int64_t>(cdf.file().size());
    if (block.size < fixed || block.offset > file_size - fixed) return cdf.corrupted_status();
    // The whole record in one read; its unused room may lie past the end of the file.
    const std::int64_t size = std::min(block.size, file_size - block.offset);
    record.resize(static_cast<std::size_t>(size));
    CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(block.offset), record));
    format::ByteReader r(record, layout);
    r.skip(layout.header_size() + 4);
    const std::int64_t c_size = r.offset();
    if (r.failed() || c_size < 0 || c_size > size - fixed) return cdf.corrupted_status();
    const auto expected = static_cast<std::int64_t>(out.size());
    if (expected > c_size * kMaxExpansion + 1024) return cdf.corrupted_status();
    const auto method = var.cpr ? codec::method_of_type(var.cpr->c_type) : std::nullopt;
    if (!method || var.cpr->parms.empty() || !codec::valid_parameter(*method, var.cpr->parms[0])) {
        return UNKNOWN_COMPRESSION;
    }
    const std::span<const std::uint8_t> payload(record.data() + fixed,
                                                static_cast<std::size_t>(c_size));
    return status_of(codec::decode(*method, payload, out), *method);
}

}  // namespace cdfgate::engine::store
