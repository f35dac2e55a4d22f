// Loading a variable's VXR tree and finding records in it.
#include "store/record_index.h"

#include <algorithm>
#include <set>

#include "format/records.h"
#include "store/cdf_file.h"

namespace cdfgate::engine::store {

namespace {
constexpr int kMaxDepth = 32;
}  // namespace

struct IndexLoader {
    const CdfFile& cdf;
    RecordIndex& index;
    std::int64_t record_bytes;
    std::set<std::int64_t> seen;
    std::size_t budget;

    Status chain(std::int64_t head, int depth, std::vector<std::size_t>& out) {
        if (depth > kMaxDepth) return cdf.corrupted_status();
        std::vector<std::uint8_t> bytes;
        for (std::int64_t offset = head; offset != 0;) {
            if (!seen.insert(offset).second || budget == 0) return cdf.corrupted_status();
            --budget;
            CDFGATE_TRY(cdf.read_record(offset, bytes));
            format::Vxr vxr;
            if (!format::parse_vxr(bytes, cdf.layout(), vxr)) return cdf.corrupted_status();
            IndexNode node;
            node.offset = offset;
            node.next = vxr.next;
            node.n_entries = static_cast<std::int32_t>(vxr.first.size());
            const std::size_t number = index.nodes_.size();
            index.nodes_.push_back(node);
            out.push_back(number);
            for (std::size_t i = 0; i < static_cast<std::size_t>(vxr.n_used); ++i) {
                NodeSlot slot;
                CDFGATE_TRY(this->slot(vxr.first[i], vxr.last[i], vxr.offset[i], depth, slot));
                index.nodes_[number].slots.push_back(std::move(slot));
            }
            offset = vxr.next;
        }
        return kOk;
    }

    Status slot(std::int32_t first, std::int32_t last, std::int64_t target, int depth,
                NodeSlot& out) {
        if (first < 0 || last < first) return cdf.corrupted_status();
        out.first = first;
        out.last = last;
        out.target = target;
        const auto header = static_cast<std::int64_t>(cdf.layout().header_size());
        const auto file_size = static_cast<std::int64_t>(cdf.file().size());
        if (target < 8 || target > file_size - header) return cdf.corrupted_status();
        std::vector<std::uint8_t> head(static_cast<std::size_t>(header));
        CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(target), head));
        format::RecordHeader h;
        if (!format::parse_header(head, cdf.layout(), h)) return cdf.corrupted_status();
        if (h.type == format::kVxr) return chain(target, depth + 1, out.chain);
        if (h.type != format::kVvr && h.type != format::kCvvr) return cdf.corrupted_status();
        if (h.size < header) return cdf.corrupted_status();
        // A CVVR may end past the end of the file inside its unused slack; its
        // payload is checked when it is read.
        if (h.type == format::kVvr) {
            const std::int64_t count = static_cast<std::int64_t>(last) - first + 1;
            if (h.size > file_size - target ||
                (record_bytes > 0 && count > (h.size - header) / record_bytes)) {
                return cdf.corrupted_status();
            }
        }
        if (!index.blocks_.empty() && index.blocks_.back().last >= first) {
            return cdf.corrupted_status();
        }
        index.blocks_.push_back(Block{first, last, target, h.size, h.type});
        return kOk;
    }
};

Status RecordIndex::load(const CdfFile& cdf, const Variable& var, std::int64_t record_bytes) {
    if (loaded_) return kOk;
    RecordIndex fresh;
    if (cdf.single_file() && var.vdr.vxr_head != 0) {
        const std::size_t budget = cdf.file().size() / 16 + 1;
        IndexLoader loader{cdf, fresh, record_bytes, {}, budget};
        CDFGATE_TRY(loader.chain(var.vdr.vxr_head, 0, fresh.top_));
    }
    fresh.loaded_ = true;
    *this = std::move(fresh);
    return kOk;
}

std::size_t RecordIndex::lower_bound(std::int64_t record) const {
    const auto it = std::lower_bound(blocks_.begin(), blocks_.end(), record,
                                     [](const Block& b, std::int64_t r) { return b.last < r; });
    return static_cast<std::size_t>(it - blocks_.begin());
}

const Block* RecordIndex::find(std::int64_t record) const {
    const std::size_t i = lower_bound(record);
    if (i == blocks_.size() || blocks_[i].first > record) return nullptr;
    return &blocks_[i];
}

std::int64_t RecordIndex::allocated_count() const {
    std::int64_t n = 0;
    for (const Block& b : blocks_) n += b.count();
    return n;
}

}  // namespace cdfgate::engine::store
