#include "store/compressed_write.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <vector>

#include "codec/dispatch.h"
#include "codec/gzip.h"
#include "format/records.h"
#include "store/cdf_file.h"
#include "store/compressed_block.h"
#include "store/pad_value.h"
#include "store/slab_plan.h"
#include "store/stored_form.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int64_t kDefaultBlockBytes = 65536;
// Reserve slack beyond this is not granted (only absurd percentages ask for it).
constexpr long double kMaxSlack = 1 << 30;

// Keeps the most telling of two non-failing statuses: DID_NOT_COMPRESS sticks.
Status merge(Status into, Status with) {
    if (with.failed() || with.code == DID_NOT_COMPRESS) return with;
    return into;
}

Status encode_status(codec::Result result, codec::Method method) {
    switch (result) {
        case codec::Result::Ok:
            return kOk;
        case codec::Result::OutOfMemory:
            return BAD_MALLOC;
        default:
            return method == codec::Method::Gzip ? ZLIB_COMPRESS_ERROR : COMPRESSION_ERROR;
    }
}

// Room a new CVVR keeps beyond its payload so that a rewrite may stay in place:
// p percent of the block's raw size (at least the payload) up to 100, p percent
// of the payload above 100.
std::int64_t reserve_slack(std::int64_t percent, std::int64_t raw, std::int64_t packed) {
    if (percent <= 0) return 0;
    const long double base = static_cast<long double>(percent <= 100 ? raw : packed);
    const long double room =
        std::min(std::floor(base * static_cast<long double>(percent) / 100.0L + 0.5L), kMaxSlack);
    return std::max<std::int64_t>(static_cast<std::int64_t>(room) - packed, 0);
}

// The size of a CVVR's fixed part: header, rfuA and cSize.
std::int64_t cvvr_fixed(format::Layout layout) {
    return static_cast<std::int64_t>(layout.header_size() + 4 + layout.offset_size());
}

struct StageWriter {
    CdfFile& cdf;
    Variable& var;
    RecordIndex& index;
    const DataShape& shape;
    std::vector<std::uint8_t> pad;
    bool positive_zeros = false;
    Status result = kOk;

    std::int64_t blocking() const {
        if (var.vdr.blocking_factor > 0) return var.vdr.blocking_factor;
        return default_compressed_blocking(shape.record_bytes, shape.rec_vary);
    }

    Status grow(CompressedStage& st, std::int64_t records, bool fill) {
        const std::size_t old = st.bytes.size();
        try {
            st.bytes.resize(old + static_cast<std::size_t>(records * shape.record_bytes));
        } catch (const std::bad_alloc&) {
            return BAD_MALLOC;
        }
        if (fill) fill_values(st.bytes.data() + old, records * shape.record_values, pad);
        st.count += records;
        return kOk;
    }

    // Brings the stored block i back into the stage to be rewritten.
    Status load_block(std::size_t i) {
        const Block block = index.blocks()[i];
        CompressedStage& st = var.stage;
        const std::int64_t bytes = block.count() * shape.record_bytes;
        try {
            st.bytes.resize(static_cast<std::size_t>(bytes));
        } catch (const std::bad_alloc&) {
            return BAD_MALLOC;
        }
        if (block.type == format::kCvvr) {
            std::span<const std::uint8_t> data;
            CDFGATE_TRY(compressed_block(cdf, var, block, shape.record_bytes, index.cache(), data));
            std::copy(data.begin(), data.begin() + bytes, st.bytes.begin());
        } else {
            const auto header = static_cast<std::int64_t>(cdf.layout().header_size());
            if (block.size - header < bytes) return cdf.corrupted_status();
            CDFGATE_TRY(
                cdf.file().read(static_cast<std::uint64_t>(block.offset + header), st.bytes));
        }
        st.active = true;
        st.first = block.first;
        st.count = block.count();
        st.capacity = block.count();
        st.stored = true;
        st.offset = block.offset;
        st.size = block.size;
        st.type = block.type;
        index.set_block_type(i, kStagedBlock);
        return kOk;
    }

    // Makes record r and up to want - 1 records after it available in the stage:
    // at points at r's bytes, n tells how many consecutive records are there.
    // Records new to the stage hold the pad when fill is set.
    Status reach(std::int64_t r, std::int64_t want, bool fill, std::uint8_t*& at, std::int64_t& n) {
        CompressedStage& st = var.stage;
        const std::int64_t rb = shape.record_bytes;
        if (st.active && r >= st.first && r < st.first + st.count) {
            at = st.bytes.data() + (r - st.first) * rb;
            n = std::min(want, st.first + st.count - r);
            return kOk;
        }
        if (st.active && !st.stored && r == st.first + st.count && st.count < st.capacity) {
            const std::int64_t more = std::min(want, st.capacity - st.count);
            CDFGATE_TRY(grow(st, more, fill));
            index.stage_block(st.first, st.first + st.count - 1);
            at = st.bytes.data() + (r - st.first) * rb;
            n = more;
            return kOk;
        }
        const Status flushed = flush_stage(cdf, var);
        CDFGATE_TRY(flushed);
        result = merge(result, flushed);
        const std::size_t i = index.lower_bound(r);
        const auto blocks = index.blocks();
        if (i < blocks.size() && blocks[i].first <= r) {
            CDFGATE_TRY(load_block(i));
            at = st.bytes.data() + (r - st.first) * rb;
            n = std::min(want, st.first + st.count - r);
            return kOk;
        }
        // A new block stops short of the next block that exists.
        std::int64_t capacity = blocking();
        if (i < blocks.size()) capacity = std::min(capacity, blocks[i].first - r);
        capacity =
            std::min<std::int64_t>(capacity, std::numeric_limits<std::int32_t>::max() - r + 1);
        st.active = true;
        st.first = r;
        st.count = 0;
        st.capacity = capacity;
        st.stored = false;
        st.bytes.clear();
        const std::int64_t more = std::min(want, capacity);
        CDFGATE_TRY(grow(st, more, fill));
        index.stage_block(st.first, st.first + st.count - 1);
        at = st.bytes.data();
        n = more;
        return kOk;
    }

    // Pads records first..last (non-sparse gaps).
    Status pad_records(std::int64_t first, std::int64_t last) {
        for (std::int64_t r = first; r <= last;) {
            std::uint8_t* at = nullptr;
            std::int64_t n = 0;
            CDFGATE_TRY(reach(r, last - r + 1, true, at, n));
            fill_values(at, n * shape.record_values, pad);
            r += n;
        }
        return kOk;
    }

    void to_stored(std::uint8_t* data, std::int64_t values) const {
        to_stored_form(cdf, shape, data, values, positive_zeros);
    }

    void raise_max(std::int64_t r) {
        var.vdr.max_rec = static_cast<std::int32_t>(std::max<std::int64_t>(var.vdr.max_rec, r));
    }

    // Non-sparse variables: records skipped below r are padded first.
    Status before(std::int64_t r) {
        if (var.vdr.s_records != NO_SPARSERECORDS || r <= var.vdr.max_rec + 1) return kOk;
        return pad_records(var.vdr.max_rec + 1, r - 1);
    }
};

}  // namespace

Status pack_block(Variable& var, format::Layout layout, std::span<const std::uint8_t> raw,
                  PackedBlock& out) {
    if (!var.cpr) return CDF_INTERNAL_ERROR;
    const auto method = codec::method_of_type(var.cpr->c_type);
    if (!method) return UNKNOWN_COMPRESSION;
    const int parm = var.cpr->parms.empty() ? 0 : var.cpr->parms[0];
    const std::int64_t fixed = cvvr_fixed(layout);
    out.packed.assign(static_cast<std::size_t>(fixed), 0);
    if (*method == codec::Method::Gzip) {
        CompressedStage& st = var.stage;
        if (!st.gzip || st.gzip->level() != parm) {
            st.gzip = std::make_shared<codec::GzipCompressor>(parm);
        }
        CDFGATE_TRY(encode_status(st.gzip->compress(raw, out.packed), *method));
    } else {
        CDFGATE_TRY(encode_status(codec::encode(*method, parm, raw, out.packed), *method));
    }
    out.c_size = static_cast<std::int64_t>(out.packed.size()) - fixed;
    out.raw = static_cast<std::int64_t>(raw.size());
    return kOk;
}

StoredRecord new_block_form(const PackedBlock& block, format::Layout layout,
                            std::int64_t reserve_percent) {
    const std::int64_t fixed = cvvr_fixed(layout);
    const auto header = static_cast<std::int64_t>(layout.header_size());
    const std::int64_t slack = reserve_slack(reserve_percent, block.raw, block.c_size);
    if (fixed + block.c_size + slack < header + block.raw) {
        return StoredRecord{0, fixed + block.c_size + slack, format::kCvvr};
    }
    return StoredRecord{0, header + block.raw, format::kVvr};
}

StoredRecord rewrite_form(CdfFile& cdf, const PackedBlock& block, const StoredRecord& old) {
    const format::Layout layout = cdf.layout();
    const std::int64_t fixed = cvvr_fixed(layout);
    const auto header = static_cast<std::int64_t>(layout.header_size());
    StoredRecord at = old;
    if (fixed + block.c_size <= old.size) {
        at.type = format::kCvvr;
    } else if (header + block.raw <= old.size) {
        at.type = format::kVvr;
    } else {
        // Neither form fits: the smaller one, grown in place at the end of the file
        // or moved elsewhere (the old place becomes free space).
        at.type = fixed + block.c_size < header + block.raw ? format::kCvvr : format::kVvr;
        at.size = at.type == format::kCvvr ? fixed + block.c_size : header + block.raw;
        if (!cdf.space().extend_at_end(old.offset, old.size, at.size)) {
            at.offset = cdf.space().allocate(at.size);
            cdf.space().release(old.offset, old.size);
        }
    }
    return at;
}

Status write_block(CdfFile& cdf, const StoredRecord& at, PackedBlock& block,
                   std::span<const std::uint8_t> raw) {
    const format::Layout layout = cdf.layout();
    std::vector<std::uint8_t> head;
    format::ByteWriter w(head, layout);
    w.offset(at.size);
    w.i32(at.type);
    if (at.type == format::kVvr) {
        CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(at.offset), head));
        CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(at.offset) + head.size(), raw));
    } else {
        w.i32(0);
        w.offset(block.c_size);
        std::copy(head.begin(), head.end(), block.packed.begin());
        CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(at.offset), block.packed));
    }
    cdf.touch();
    return at.type == format::kVvr ? Status{DID_NOT_COMPRESS} : kOk;
}

std::int64_t default_compressed_blocking(std::int64_t record_bytes, bool rec_vary) {
    if (!rec_vary || record_bytes < 1) return 1;
    return std::max<std::int64_t>((kDefaultBlockBytes + record_bytes - 1) / record_bytes, 1);
}

Status flush_stage(CdfFile& cdf, Variable& var) {
    CompressedStage& st = var.stage;
    if (!st.active) return kOk;
    const format::Layout layout = cdf.layout();
    PackedBlock block;
    CDFGATE_TRY(pack_block(var, layout, st.bytes, block));
    RecordIndex& index = var.index;
    StoredRecord at;
    if (!st.stored) {
        at = new_block_form(block, layout, var.reserve_percent);
        index.unstage_block(st.first);
        CDFGATE_TRY(index.place_record(cdf, var, st.first, st.first + st.count - 1, at.size,
                                       at.type, at.offset));
    } else {
        const std::size_t i = index.lower_bound(st.first);
        if (i >= index.blocks().size() || index.blocks()[i].first != st.first) {
            return CDF_INTERNAL_ERROR;
        }
        at = rewrite_form(cdf, block, StoredRecord{st.offset, st.size, st.type});
        CDFGATE_TRY(index.move_record(cdf, i, at.offset, at.size, at.type));
    }
    const Status written = write_block(cdf, at, block, st.bytes);
    CDFGATE_TRY(written);
    index.drop_caches();
    st.active = false;
    st.stored = false;
    st.count = 0;
    st.bytes.clear();
    return written;
}

Status flush_stages(CdfFile& cdf) {
    Status result = kOk;
    for (const bool z : {false, true}) {
        for (Variable& var : cdf.variables(z)) {
            const Status s = flush_stage(cdf, var);
            CDFGATE_TRY(s);
            result = merge(result, s);
        }
    }
    return result;
}

void drop_stage(Variable& var) {
    CompressedStage& st = var.stage;
    if (!st.active) return;
    if (st.stored) {
        const std::size_t i = var.index.lower_bound(st.first);
        if (i < var.index.blocks().size()) var.index.set_block_type(i, st.type);
    } else {
        var.index.unstage_block(st.first);
    }
    st.active = false;
    st.bytes.clear();
    var.index.drop_caches();
}

Status write_compressed_slab(CdfFile& cdf, Variable& var, const Hyperslab& slab, const void* in,
                             bool positive_zeros) {
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    std::int64_t box_values = 0;
    CDFGATE_TRY(check_slab(shape, slab, box_values));
    RecordIndex& index = var.index;
    CDFGATE_TRY(index.load(cdf, var, shape.record_bytes));
    index.drop_caches();
    if (var.vdr.blocking_factor == 0) {
        var.vdr.blocking_factor = static_cast<std::int32_t>(
            std::min<std::int64_t>(default_compressed_blocking(shape.record_bytes, shape.rec_vary),
                                   std::numeric_limits<std::int32_t>::max()));
    }
    const SlabPlan plan(shape, slab);
    const std::int64_t box = plan.box_bytes();
    const auto [values, first, count, interval] = write_records(shape, slab, box, in);
    StageWriter writer{cdf, var, index, shape, stored_pad(cdf, var), positive_zeros};
    std::vector<std::uint8_t> chunk;
    for (std::int64_t k = 0; k < count;) {
        const std::int64_t r = first + k * interval;
        CDFGATE_TRY(writer.before(r));
        std::uint8_t* at = nullptr;
        std::int64_t n = 0;
        if (plan.whole_record() && interval == 1) {
            CDFGATE_TRY(writer.reach(r, count - k, false, at, n));
            std::memcpy(at, values + k * box, static_cast<std::size_t>(n * box));
            writer.to_stored(at, n * shape.record_values);
        } else {
            CDFGATE_TRY(writer.reach(r, 1, true, at, n));
            n = 1;
            chunk.assign(values + k * box, values + (k + 1) * box);
            writer.to_stored(chunk.data(), box_values);
            plan.scatter(chunk.data(), at + plan.span_begin());
        }
        writer.raise_max(r + (n - 1) * interval);
        k += n;
    }
    cdf.set_data_written();
    cdf.touch();
    return writer.result;
}

Status write_compressed_pads(CdfFile& cdf, Variable& var, std::int64_t count) {
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    CDFGATE_TRY(var.index.load(cdf, var, shape.record_bytes));
    var.index.drop_caches();
    if (var.vdr.blocking_factor == 0) {
        var.vdr.blocking_factor = static_cast<std::int32_t>(
            std::min<std::int64_t>(default_compressed_blocking(shape.record_bytes, shape.rec_vary),
                                   std::numeric_limits<std::int32_t>::max()));
    }
    const std::int64_t last = shape.rec_vary ? count - 1 : 0;
    StageWriter writer{cdf, var, var.index, shape, stored_pad(cdf, var), false};
    CDFGATE_TRY(writer.pad_records(0, last));
    writer.raise_max(last);
    cdf.set_data_written();
    cdf.touch();
    return writer.result;
}

}  // namespace cdfgate::engine::store
