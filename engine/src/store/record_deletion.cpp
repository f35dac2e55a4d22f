#include "store/record_deletion.h"

#include <algorithm>
#include <vector>

#include "format/records.h"
#include "store/cdf_file.h"
#include "store/compressed_block.h"
#include "store/compressed_write.h"
#include "store/data_shape.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int64_t kChunkBytes = std::int64_t{4} << 20;

struct Deleter {
    CdfFile& cdf;
    Variable& var;
    const DataShape& shape;
    std::int64_t first;
    std::int64_t last;
    bool sparse;
    std::vector<Block> kept;
    Status result = kOk;

    std::int64_t header() const { return static_cast<std::int64_t>(cdf.layout().header_size()); }
    std::int64_t shift() const { return sparse ? 0 : last - first + 1; }

    // Moves count bytes from `from` down to `to` inside the file.
    Status move_down(std::int64_t from, std::int64_t to, std::int64_t count) {
        std::vector<std::uint8_t> chunk;
        for (std::int64_t done = 0; done < count;) {
            const std::int64_t n = std::min(kChunkBytes, count - done);
            chunk.resize(static_cast<std::size_t>(n));
            CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(from + done), chunk));
            CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(to + done), chunk));
            done += n;
        }
        return kOk;
    }

    // A VVR cut to count records: its tail becomes free space when a UIR fits there.
    Status shrink(Block& b, std::int64_t count) {
        const std::int64_t size = header() + count * shape.record_bytes;
        b.last = b.first + count - 1;
        if (b.size - size < format::uir_min_size(cdf.layout())) return kOk;
        std::vector<std::uint8_t> head;
        format::ByteWriter w(head, cdf.layout());
        w.offset(size);
        CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(b.offset), head));
        cdf.space().release(b.offset + size, b.size - size);
        b.size = size;
        return kOk;
    }

    // A VVR of an uncompressed variable that holds records of the range.
    Status cut_vvr(Block b, std::int64_t before, std::int64_t after) {
        const std::int64_t rb = shape.record_bytes;
        const std::int64_t after_at = b.offset + header() + (last + 1 - b.first) * rb;
        if (!sparse || before == 0 || after == 0) {
            // One run: the records after the range move down behind those before it.
            CDFGATE_TRY(move_down(after_at, b.offset + header() + before * rb, after * rb));
            if (before == 0) b.first = sparse ? last + 1 : first;
            CDFGATE_TRY(shrink(b, before + after));
            kept.push_back(b);
            return kOk;
        }
        // Sparse: the records after the gap get a VVR of their own.
        Block tail{last + 1, b.last, 0, header() + after * rb, format::kVvr};
        tail.offset = cdf.space().allocate(tail.size);
        std::vector<std::uint8_t> head;
        format::ByteWriter w(head, cdf.layout());
        w.offset(tail.size);
        w.i32(format::kVvr);
        CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(tail.offset), head));
        CDFGATE_TRY(move_down(after_at, tail.offset + header(), after * rb));
        CDFGATE_TRY(shrink(b, before));
        kept.push_back(b);
        kept.push_back(tail);
        return kOk;
    }

    // A block of a compressed variable: each surviving part compressed again, the
    // first over the old record, the second as a new one.
    Status cut_compressed(const Block& b, std::int64_t before, std::int64_t after) {
        const std::int64_t rb = shape.record_bytes;
        std::vector<std::uint8_t> raw(static_cast<std::size_t>(b.count() * rb));
        if (b.type == format::kCvvr) {
            std::span<const std::uint8_t> bytes;
            CDFGATE_TRY(compressed_block(cdf, var, b, rb, var.index.cache(), bytes));
            std::copy(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(raw.size()),
                      raw.begin());
        } else {
            CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(b.offset + header()), raw));
        }
        struct Part {
            std::int64_t first, count, from;
        };
        std::vector<Part> parts;
        if (before > 0) parts.push_back({b.first, before, 0});
        if (after > 0) parts.push_back({last + 1 - shift(), after, (last + 1 - b.first) * rb});
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const std::span<const std::uint8_t> bytes(
                raw.data() + parts[i].from, static_cast<std::size_t>(parts[i].count * rb));
            PackedBlock packed;
            CDFGATE_TRY(pack_block(var, cdf.layout(), bytes, packed));
            StoredRecord at;
            if (i == 0) {
                at = rewrite_form(cdf, packed, StoredRecord{b.offset, b.size, b.type});
            } else {
                at = new_block_form(packed, cdf.layout(), 0);
                at.offset = cdf.space().allocate(at.size);
            }
            const Status written = write_block(cdf, at, packed, bytes);
            CDFGATE_TRY(written);
            if (written.code == DID_NOT_COMPRESS) result = written;
            kept.push_back(Block{parts[i].first, parts[i].first + parts[i].count - 1, at.offset,
                                 at.size, at.type});
        }
        return kOk;
    }

    Status block(const Block& b) {
        if (b.last < first) {
            kept.push_back(b);
            return kOk;
        }
        if (b.first > last) {
            kept.push_back(Block{b.first - shift(), b.last - shift(), b.offset, b.size, b.type});
            return kOk;
        }
        const std::int64_t before = std::max<std::int64_t>(first - b.first, 0);
        const std::int64_t after = std::max<std::int64_t>(b.last - last, 0);
        if (before + after == 0) {
            cdf.space().release(b.offset, b.size);
            return kOk;
        }
        if (var.compressed()) return cut_compressed(b, before, after);
        if (b.type != format::kVvr) return cdf.corrupted_status();
        return cut_vvr(b, before, after);
    }
};

}  // namespace

Status delete_records(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last) {
    if (first < 0 || last < first) return BAD_REC_NUM;
    if (!cdf.single_file()) return MULTI_FILE_FORMAT;
    if (!cdf.file().writable()) return NO_WRITE_ACCESS;
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    const Status flushed = flush_stage(cdf, var);
    CDFGATE_TRY(flushed);
    CDFGATE_TRY(var.index.load(cdf, var, shape.record_bytes));
    var.index.drop_caches();
    const bool sparse = var.vdr.s_records != NO_SPARSERECORDS;
    Deleter d{cdf, var, shape, first, last, sparse, {}, flushed};
    const std::vector<Block> blocks(var.index.blocks().begin(), var.index.blocks().end());
    const bool touches =
        std::any_of(blocks.begin(), blocks.end(), [&](const Block& b) { return b.last >= first; });
    const std::int64_t max_rec = var.vdr.max_rec;
    if (!touches && max_rec < first) return d.result;
    for (const Block& b : blocks) CDFGATE_TRY(d.block(b));
    CDFGATE_TRY(var.index.rebuild(cdf, var, std::move(d.kept)));

    if (!sparse) {
        if (max_rec >= first) {
            var.vdr.max_rec =
                static_cast<std::int32_t>(max_rec - (std::min(max_rec, last) - first + 1));
        }
    } else if (max_rec >= first && max_rec <= last) {
        // The highest record left.
        std::int64_t highest = -1;
        for (const Block& b : var.index.blocks()) {
            if (b.first <= max_rec) highest = std::max(highest, std::min(b.last, max_rec));
        }
        var.vdr.max_rec = static_cast<std::int32_t>(highest);
    }
    cdf.touch();
    return d.result;
}

}  // namespace cdfgate::engine::store
