// Writing hyperslabs of a variable's records: allocation, padding of skipped
// records, and the values themselves.
#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "encoding/data_types.h"
#include "encoding/host_order.h"
#include "format/records.h"
#include "store/cdf_file.h"
#include "store/compressed_write.h"
#include "store/data_access.h"
#include "store/multi_file.h"
#include "store/pad_value.h"
#include "store/slab_plan.h"

namespace cdfgate::engine::store {
namespace {

// Turns -0.0 into +0.0 among n floats of width 4 or 8 (host form).
void clear_negative_zeros(std::uint8_t* data, std::size_t n, std::size_t width) {
    for (std::size_t i = 0; i < n; ++i) {
        std::uint8_t* const at = data + i * width;
        if (width == 4) {
            std::uint32_t v;
            std::memcpy(&v, at, 4);
            if (v == 0x80000000u) v = 0;
            std::memcpy(at, &v, 4);
        } else {
            std::uint64_t v;
            std::memcpy(&v, at, 8);
            if (v == 0x8000000000000000ULL) v = 0;
            std::memcpy(at, &v, 8);
        }
    }
}

constexpr std::int64_t kChunkBytes = std::int64_t{4} << 20;
// Records per allocation block when none is set: 8192 bytes' worth.
constexpr std::int64_t kDefaultBlockBytes = 8192;

struct SlabWriter {
    CdfFile& cdf;
    Variable& var;
    RecordIndex& index;
    const DataShape& shape;
    std::vector<std::uint8_t> pad;
    std::vector<std::uint8_t> pads;  // pad records, filled once
    std::vector<std::uint8_t> chunk;
    std::vector<std::uint8_t> span;
    bool positive_zeros;  // store -0.0 as +0.0

    bool sparse() const { return var.vdr.s_records != NO_SPARSERECORDS; }

    std::int64_t record_at(const Block& block, std::int64_t record) const {
        return block.offset + static_cast<std::int64_t>(cdf.layout().header_size()) +
               (record - block.first) * shape.record_bytes;
    }

    std::int64_t blocking() const {
        if (!shape.rec_vary) return 1;
        if (var.vdr.blocking_factor > 0) return var.vdr.blocking_factor;
        return std::max<std::int64_t>(
            (kDefaultBlockBytes + shape.record_bytes - 1) / shape.record_bytes, 1);
    }

    bool floating() const {
        const long t = shape.data_type;
        return t == CDF_REAL4 || t == CDF_FLOAT || t == CDF_REAL8 || t == CDF_DOUBLE ||
               t == CDF_EPOCH || t == CDF_EPOCH16;
    }

    // Caller values in stored form: the file's encoding, characters blank-filled
    // from their first zero byte, -0.0 as +0.0 if asked.
    void to_stored(std::uint8_t* data, std::int64_t values) const {
        if (encoding::is_char_type(shape.data_type)) {
            blank_after_zero(data, values, shape.value_bytes);
            return;
        }
        if (positive_zeros && floating()) {
            const std::size_t width = shape.element_size == 4 ? 4 : 8;
            const auto n = static_cast<std::size_t>(values * shape.value_bytes) / width;
            clear_negative_zeros(data, n, width);
        }
        encoding::host_to_file(data, static_cast<std::size_t>(values * shape.num_elems),
                               shape.data_type, cdf.encoding());
    }

    bool stored_as_given() const {
        return !encoding::is_char_type(shape.data_type) && !(positive_zeros && floating()) &&
               encoding::host_form_matches(shape.data_type, cdf.encoding());
    }

    // Allocates records through last the way the reference library does: blocks of
    // the blocking factor from the end of the allocation (the last VVR grows in
    // place when it ends the file).
    Status allocate(std::int64_t last) {
        const std::int64_t allocated = index.max_allocated();
        if (last <= allocated) return kOk;
        const std::int64_t from = allocated + 1;
        std::int64_t to = std::max(last, allocated < 0 ? blocking() - 1 : allocated + blocking());
        if (to > std::numeric_limits<std::int32_t>::max()) to = last;
        return allocate_exact(from, to);
    }

    // Sparse records: exactly the records written, each run of them merged into the
    // VVR just before it when that one ends the file, else in a VVR of its own.
    Status allocate_sparse(std::int64_t first, std::int64_t last, std::int64_t interval) {
        for (std::int64_t r = first; r <= last; r += interval) {
            if (index.find(r) != nullptr) continue;
            const std::size_t next = index.lower_bound(r);
            const auto blocks = index.blocks();
            std::int64_t end = r;
            if (interval == 1) {
                const std::int64_t limit =
                    next < blocks.size() ? std::min(last, blocks[next].first - 1) : last;
                end = limit;
            }
            if (next > 0 && blocks[next - 1].last == r - 1) {
                bool extended = false;
                CDFGATE_TRY(index.extend_block(cdf, next - 1, end, shape.record_bytes, extended));
                if (extended) {
                    r = end;
                    continue;
                }
            }
            if (next == blocks.size()) {
                CDFGATE_TRY(index.add_block(cdf, var, r, end, shape.record_bytes));
            } else {
                CDFGATE_TRY(index.insert_block(cdf, var, r, end, shape.record_bytes));
            }
            r = end;
        }
        return kOk;
    }

    // Allocates records from..to (above every allocated record) as they are: the
    // last VVR grows when it ends the file and the range continues it.
    Status allocate_exact(std::int64_t from, std::int64_t to) {
        if (from == index.max_allocated() + 1 && from > 0) {
            bool extended = false;
            CDFGATE_TRY(index.extend_last_block(cdf, to, shape.record_bytes, extended));
            if (extended) return kOk;
        }
        return index.add_block(cdf, var, from, to, shape.record_bytes);
    }

    // Writes the pad value over the allocated records among first..last.
    Status pad_records(std::int64_t first, std::int64_t last) {
        if (first > last) return kOk;
        const auto blocks = index.blocks();
        for (std::size_t i = index.lower_bound(first); i < blocks.size(); ++i) {
            const Block& b = blocks[i];
            if (b.first > last) break;
            if (b.type != format::kVvr) continue;
            std::int64_t r = std::max(first, b.first);
            const std::int64_t end = std::min(last, b.last);
            while (r <= end) {
                const std::int64_t n =
                    std::clamp<std::int64_t>(kChunkBytes / shape.record_bytes, 1, end - r + 1);
                const std::int64_t bytes = n * shape.record_bytes;
                if (static_cast<std::int64_t>(pads.size()) < bytes) {
                    pads.resize(static_cast<std::size_t>(bytes));
                    fill_values(pads.data(), n * shape.record_values, pad);
                }
                CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(record_at(b, r)),
                                             {pads.data(), static_cast<std::size_t>(bytes)}));
                r += n;
            }
        }
        return kOk;
    }

    // Whole records first.. (count of them), stored back to back in the file.
    Status whole_run(const Block& block, std::int64_t first, std::int64_t count,
                     const std::uint8_t* values) {
        const std::int64_t at = record_at(block, first);
        const std::int64_t bytes = count * shape.record_bytes;
        if (stored_as_given()) {
            return cdf.file().write(static_cast<std::uint64_t>(at),
                                    {values, static_cast<std::size_t>(bytes)});
        }
        for (std::int64_t done = 0; done < bytes;) {
            const std::int64_t n =
                std::min(bytes - done, std::max(kChunkBytes / shape.record_bytes, std::int64_t{1}) *
                                           shape.record_bytes);
            chunk.assign(values + done, values + done + n);
            to_stored(chunk.data(), n / shape.value_bytes);
            CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(at + done),
                                         {chunk.data(), static_cast<std::size_t>(n)}));
            done += n;
        }
        return kOk;
    }

    // One record's box, merged into what the record holds.
    Status one_box(const SlabPlan& plan, std::int64_t record, const std::uint8_t* values,
                   std::int64_t box_values) {
        const Block* block = index.find(record);
        if (block == nullptr || block->type != format::kVvr) return CDF_INTERNAL_ERROR;
        if (plan.whole_record()) return whole_run(*block, record, 1, values);
        chunk.assign(values, values + plan.box_bytes());
        to_stored(chunk.data(), box_values);
        const std::int64_t at = record_at(*block, record) + plan.span_begin();
        span.resize(static_cast<std::size_t>(plan.span_end() - plan.span_begin()));
        CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(at), span));
        plan.scatter(chunk.data(), span.data());
        return cdf.file().write(static_cast<std::uint64_t>(at), span);
    }
};

}  // namespace

Status write_slab(CdfFile& cdf, Variable& var, const Hyperslab& slab, const void* in,
                  bool positive_zeros) {
    RecordIndex& index = var.index;
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    std::int64_t box_values = 0;
    CDFGATE_TRY(check_slab(shape, slab, box_values));
    if (slab.rec_count - 1 >
        (std::numeric_limits<std::int32_t>::max() - slab.rec_start) / slab.rec_interval) {
        return BAD_REC_NUM;
    }
    if (!cdf.file().writable()) return NO_WRITE_ACCESS;
    if (!cdf.single_file()) return write_multi_file_slab(cdf, var, slab, in, positive_zeros);
    if (var.compressed()) return write_compressed_slab(cdf, var, slab, in, positive_zeros);
    const SlabPlan plan(shape, slab);
    CDFGATE_TRY(index.load(cdf, var, shape.record_bytes));
    index.drop_caches();

    const std::int64_t box = plan.box_bytes();
    const auto [values, first, count, interval] = write_records(shape, slab, box, in);
    const std::int64_t last = first + (count - 1) * interval;
    SlabWriter writer{cdf, var, index, shape, stored_pad(cdf, var), {}, {}, {}, positive_zeros};
    const std::int64_t old_allocated = index.max_allocated();
    // Sparse records written only in part start from the pad: note the new ones.
    std::vector<std::int64_t> fresh;
    if (writer.sparse()) {
        if (!plan.whole_record()) {
            for (std::int64_t r = first; r <= last; r += interval) {
                if (index.find(r) == nullptr) fresh.push_back(r);
            }
        }
        CDFGATE_TRY(writer.allocate_sparse(first, last, interval));
    } else {
        CDFGATE_TRY(writer.allocate(last));
    }

    // Records the write skips over or only partly fills take the pad in force;
    // records above the new maximum are left as allocated.
    const std::int64_t old_max = var.vdr.max_rec;
    if (!writer.sparse()) {
        const bool whole_run = plan.whole_record() && interval == 1;
        CDFGATE_TRY(writer.pad_records(old_max + 1, whole_run ? first - 1 : last));
        CDFGATE_TRY(
            writer.pad_records(std::max(last + 1, old_allocated + 1), index.max_allocated()));
    } else {
        for (const std::int64_t r : fresh) CDFGATE_TRY(writer.pad_records(r, r));
    }

    if (plan.whole_record() && interval == 1) {
        for (std::int64_t r = first; r <= last;) {
            const Block* block = index.find(r);
            if (block == nullptr || block->type != format::kVvr) return CDF_INTERNAL_ERROR;
            const std::int64_t n = std::min(block->last, last) - r + 1;
            CDFGATE_TRY(writer.whole_run(*block, r, n, values + (r - first) * box));
            r += n;
        }
    } else {
        for (std::int64_t k = 0; k < count; ++k) {
            CDFGATE_TRY(writer.one_box(plan, first + k * interval, values + k * box, box_values));
        }
    }
    var.vdr.max_rec = static_cast<std::int32_t>(std::max<std::int64_t>(old_max, last));
    cdf.set_data_written();
    cdf.touch();
    return kOk;
}

Status write_initial_records(CdfFile& cdf, Variable& var, std::int64_t count) {
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    if (count < 1) return BAD_INITIAL_RECS;
    if (var.vdr.max_rec >= 0) return CANNOT_CHANGE;
    if (!cdf.file().writable()) return NO_WRITE_ACCESS;
    if (!cdf.single_file()) return write_multi_file_pads(cdf, var, count);
    if (var.compressed()) return write_compressed_pads(cdf, var, count);
    CDFGATE_TRY(var.index.load(cdf, var, shape.record_bytes));
    var.index.drop_caches();
    const std::int64_t last = shape.rec_vary ? count - 1 : 0;
    if (last > std::numeric_limits<std::int32_t>::max()) return BAD_INITIAL_RECS;
    SlabWriter writer{cdf, var, var.index, shape, stored_pad(cdf, var), {}, {}, {}, false};
    const std::int64_t old_allocated = var.index.max_allocated();
    CDFGATE_TRY(writer.allocate(last));
    CDFGATE_TRY(writer.pad_records(0, last));
    CDFGATE_TRY(
        writer.pad_records(std::max(last + 1, old_allocated + 1), var.index.max_allocated()));
    var.vdr.max_rec = static_cast<std::int32_t>(last);
    cdf.set_data_written();
    cdf.touch();
    return kOk;
}

Status allocate_records(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last) {
    if (first < 0 || last < first || last > std::numeric_limits<std::int32_t>::max()) {
        return BAD_ALLOCATE_RECS;
    }
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    if (var.compressed()) return CANNOT_ALLOCATE_RECORDS;
    if (!cdf.single_file()) return UNSUPPORTED_OPERATION;
    if (!cdf.file().writable()) return NO_WRITE_ACCESS;
    CDFGATE_TRY(var.index.load(cdf, var, shape.record_bytes));
    var.index.drop_caches();
    SlabWriter writer{cdf, var, var.index, shape, stored_pad(cdf, var), {}, {}, {}, false};
    const std::int64_t allocated = var.index.max_allocated();
    Status status = kOk;
    if (first <= allocated) {
        status = SOME_ALREADY_ALLOCATED;
    } else if (first > allocated + 1) {
        status = PRECEEDING_RECORDS_ALLOCATED;
    }
    const std::int64_t from = allocated + 1;
    if (last >= from) {
        CDFGATE_TRY(writer.allocate_exact(from, last));
        CDFGATE_TRY(writer.pad_records(from, last));
    }
    return status;
}

}  // namespace cdfgate::engine::store
