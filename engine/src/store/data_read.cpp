// Reading hyperslabs of a variable's records into the caller's buffer.
#include <algorithm>
#include <limits>
#include <vector>

#include "encoding/data_types.h"
#include "encoding/host_order.h"
#include "format/records.h"
#include "store/cdf_file.h"
#include "store/compressed_block.h"
#include "store/data_access.h"
#include "store/multi_file.h"
#include "store/pad_value.h"
#include "store/slab_plan.h"

namespace cdfgate::engine::store {
namespace {

// Partial records are read in chunks of consecutive records up to this size.
constexpr std::int64_t kChunkBytes = std::int64_t{4} << 20;
// Reads reaching over at most this many bytes go through the read-ahead window
// of kWindowBytes.
constexpr std::int64_t kSmallRead = 512;
constexpr std::int64_t kWindowBytes = 16384;

struct Source {
    bool stored = false;      // false: the pad value
    bool is_virtual = false;  // the record asked for holds no written data
    std::int64_t record = 0;  // the stored record that supplies the values
    const Block* block = nullptr;
};

// The written record nearest at or below record (sparse variables allocate only
// the records they write).
const Block* written_at_or_below(const RecordIndex& index, std::int64_t record, std::int64_t& at) {
    if (record < 0) return nullptr;
    const auto blocks = index.blocks();
    const std::size_t i = index.lower_bound(record);
    if (i < blocks.size() && blocks[i].first <= record) {
        at = record;
        return &blocks[i];
    }
    if (i == 0) return nullptr;
    at = blocks[i - 1].last;
    return &blocks[i - 1];
}

// Which stored record, if any, a read of record takes its values from. Only the
// first record of a call maps to record 0 of a non-record-variant variable.
Source resolve(const Variable& var, const RecordIndex& index, std::int64_t record,
               bool first_of_call) {
    Source s;
    const std::int64_t max_rec = var.vdr.max_rec;
    if (!var.rec_vary()) {
        if (!first_of_call) {
            s.is_virtual = true;
            return s;
        }
        record = 0;
    }
    if (record <= max_rec) {
        if (const Block* b = index.find(record)) {
            s.stored = true;
            s.block = b;
            s.record = record;
            return s;
        }
    }
    s.is_virtual = true;
    if (var.vdr.s_records == PREV_SPARSERECORDS) {
        std::int64_t at = 0;
        if (const Block* b = written_at_or_below(index, std::min(record, max_rec), at)) {
            s.stored = true;
            s.block = b;
            s.record = at;
        }
    }
    return s;
}

struct SlabReader {
    const CdfFile& cdf;
    const Variable& var;
    RecordIndex& index;
    const DataShape& shape;
    const Hyperslab& slab;
    const SlabPlan& plan;
    std::vector<std::uint8_t> scratch;

    std::int64_t record_at(const Block& block, std::int64_t record) const {
        return block.offset + static_cast<std::int64_t>(cdf.layout().header_size()) +
               (record - block.first) * shape.record_bytes;
    }

    // A small read served from the variable's read-ahead window, refilled with up
    // to kWindowBytes of the block when it does not hold the bytes.
    Status through_window(const Block& block, std::int64_t record, std::int64_t n,
                          std::int64_t reach, std::uint8_t* out) {
        ReadWindow& window = index.window();
        const std::int64_t at = record_at(block, record) + plan.span_begin();
        if (!window.covers(at, reach)) {
            const auto file_size = static_cast<std::int64_t>(cdf.file().size());
            const std::int64_t end = std::min(block.offset + block.size, file_size);
            const std::int64_t size = std::max(std::min(kWindowBytes, end - at), reach);
            window.offset = -1;
            window.bytes.resize(static_cast<std::size_t>(size));
            CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(at), window.bytes));
            window.offset = at;
        }
        const std::uint8_t* first = window.bytes.data() + (at - window.offset);
        const std::int64_t step = slab.rec_interval * shape.record_bytes;
        for (std::int64_t i = 0; i < n; ++i)
            plan.gather(first + i * step, out + i * plan.box_bytes());
        return kOk;
    }

    // Reads n records, slab.rec_interval apart from src.record, into out.
    Status stored(const Source& src, std::int64_t n, std::uint8_t* out) {
        const Block& block = *src.block;
        const std::int64_t box = plan.box_bytes();
        const std::int64_t step = slab.rec_interval * shape.record_bytes;
        if (block.type == format::kCvvr && plan.whole_record() && slab.rec_interval == 1 &&
            src.record == block.first && n == block.count()) {
            // The whole block goes straight into the caller's buffer.
            return decode_block(cdf, var, block, index.cache().payload,
                                {out, static_cast<std::size_t>(n * shape.record_bytes)});
        }
        if (block.type != format::kVvr) {  // a CVVR, or the block being written
            std::span<const std::uint8_t> bytes;
            CDFGATE_TRY(
                compressed_block(cdf, var, block, shape.record_bytes, index.cache(), bytes));
            const std::uint8_t* first =
                bytes.data() + (src.record - block.first) * shape.record_bytes + plan.span_begin();
            for (std::int64_t i = 0; i < n; ++i) plan.gather(first + i * step, out + i * box);
            return kOk;
        }
        const std::int64_t span = plan.span_end() - plan.span_begin();
        const std::int64_t reach = (n - 1) * step + span;
        if (reach <= kSmallRead) return through_window(block, src.record, n, reach, out);
        if (plan.whole_record() && slab.rec_interval == 1) {
            return cdf.file().read(static_cast<std::uint64_t>(record_at(block, src.record)),
                                   {out, static_cast<std::size_t>(n * shape.record_bytes)});
        }
        std::int64_t done = 0;
        while (done < n) {
            // As many of the remaining records as fit in one chunk (at least one).
            const std::int64_t fit = step > 0 ? (kChunkBytes - span) / step + 1 : n;
            const std::int64_t m = std::clamp<std::int64_t>(fit, 1, n - done);
            scratch.resize(static_cast<std::size_t>((m - 1) * step + span));
            const std::int64_t at =
                record_at(block, src.record + done * slab.rec_interval) + plan.span_begin();
            CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(at), scratch));
            for (std::int64_t i = 0; i < m; ++i) {
                plan.gather(scratch.data() + i * step, out + (done + i) * box);
            }
            done += m;
        }
        return kOk;
    }
};

}  // namespace

Status read_slab(const CdfFile& cdf, Variable& var, const Hyperslab& slab, void* out_ptr) {
    RecordIndex& index = var.index;
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    std::int64_t box_values = 0;
    CDFGATE_TRY(check_slab(shape, slab, box_values));
    if (slab.rec_count - 1 >
        (std::numeric_limits<std::int64_t>::max() - slab.rec_start) / slab.rec_interval) {
        return BAD_REC_COUNT;
    }
    if (!cdf.single_file()) return read_multi_file_slab(cdf, var, slab, out_ptr);
    const SlabPlan plan(shape, slab);
    CDFGATE_TRY(index.load(cdf, var, shape.record_bytes));
    std::vector<std::uint8_t> pad;  // made when a record needs it

    auto* const out = static_cast<std::uint8_t*>(out_ptr);
    const std::int64_t box = plan.box_bytes();
    SlabReader reader{cdf, var, index, shape, slab, plan, {}};
    bool any_virtual = false;
    for (std::int64_t k = 0; k < slab.rec_count;) {
        const std::int64_t record = slab.rec_start + k * slab.rec_interval;
        std::uint8_t* const dst = out + k * box;
        const Source src = resolve(var, index, record, k == 0);
        any_virtual = any_virtual || src.is_virtual;
        if (!src.stored) {
            if (pad.empty()) pad = stored_pad(cdf, var);
            fill_values(dst, box_values, pad);
            ++k;
            continue;
        }
        // Later records of the call that come from the same block in the same way.
        std::int64_t n = 1;
        if (!src.is_virtual && shape.rec_vary) {
            const std::int64_t limit = std::min<std::int64_t>(src.block->last, var.vdr.max_rec);
            n = std::min(slab.rec_count - k, (limit - record) / slab.rec_interval + 1);
        }
        CDFGATE_TRY(reader.stored(src, n, dst));
        k += n;
    }
    const std::int64_t values = slab.rec_count * box_values;
    if (encoding::is_char_type(shape.data_type)) {
        // As the reference library reads them: blanks from a value's first zero byte.
        blank_after_zero(out, values, shape.value_bytes);
    } else {
        encoding::file_to_host(out, static_cast<std::size_t>(values * shape.num_elems),
                               shape.data_type, cdf.encoding());
    }
    return any_virtual ? Status{VIRTUAL_RECORD_DATA} : kOk;
}

}  // namespace cdfgate::engine::store
