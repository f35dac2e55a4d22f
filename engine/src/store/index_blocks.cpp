// Index changes for compressed variables: the staged block's stand-in, records of
// any size and type placed under a slot, and blocks that moved or changed type.
#include "store/cdf_file.h"
#include "store/record_index.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int32_t kLeafSlots = 7;

std::int64_t vxr_bytes(std::int32_t n_entries, format::Layout layout) {
    return static_cast<std::int64_t>((layout.v3 ? 28 : 20) + static_cast<std::size_t>(n_entries) *
                                                                 (8 + layout.offset_size()));
}

}  // namespace

void RecordIndex::stage_block(std::int64_t first, std::int64_t last) {
    const std::size_t i = lower_bound(first);
    if (i < blocks_.size() && blocks_[i].first == first && blocks_[i].type == kStagedBlock &&
        blocks_[i].offset == 0) {
        blocks_[i].last = last;
        return;
    }
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(i),
                   Block{first, last, 0, 0, kStagedBlock});
}

void RecordIndex::unstage_block(std::int64_t first) {
    const std::size_t i = lower_bound(first);
    if (i < blocks_.size() && blocks_[i].first == first && blocks_[i].type == kStagedBlock &&
        blocks_[i].offset == 0) {
        blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

Status RecordIndex::place_record(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last,
                                 std::int64_t size, std::int32_t type, std::int64_t& offset) {
    const auto header = static_cast<std::int64_t>(cdf.layout().header_size());
    if (first < 0 || last < first || size <= header) return CDF_INTERNAL_ERROR;
    // The growth code places VVRs of whole records: ask it for record first alone,
    // as one "record" of the size needed, then widen the block and its slot.
    const std::size_t at = lower_bound(first);
    if (at == blocks_.size()) {
        CDFGATE_TRY(add_block(cdf, var, first, first, size - header));
    } else {
        if (blocks_[at].first <= last) return CDF_INTERNAL_ERROR;
        CDFGATE_TRY(insert_block(cdf, var, first, first, size - header));
    }
    Block& block = blocks_[at];
    block.last = last;
    block.type = type;
    offset = block.offset;
    std::size_t node = 0, slot = 0;
    if (!leaf_of(block.offset, node, slot)) return CDF_INTERNAL_ERROR;
    nodes_[node].slots[slot].last = last;
    CDFGATE_TRY(write_node(cdf, node));
    return refresh_ancestors(cdf, path_to(node));
}

Status RecordIndex::move_record(CdfFile& cdf, std::size_t i, std::int64_t offset, std::int64_t size,
                                std::int32_t type) {
    if (i >= blocks_.size()) return CDF_INTERNAL_ERROR;
    Block& block = blocks_[i];
    if (block.offset != offset) {
        std::size_t node = 0, slot = 0;
        if (!leaf_of(block.offset, node, slot)) return CDF_INTERNAL_ERROR;
        nodes_[node].slots[slot].target = offset;
        CDFGATE_TRY(write_node(cdf, node));
    }
    block.offset = offset;
    block.size = size;
    block.type = type;
    return kOk;
}

Status RecordIndex::rebuild(CdfFile& cdf, Variable& var, std::vector<Block> blocks) {
    for (const IndexNode& node : nodes_) {
        cdf.space().release(node.offset, vxr_bytes(node.n_entries, cdf.layout()));
    }
    nodes_.clear();
    top_.clear();
    blocks_ = std::move(blocks);
    drop_caches();
    var.vdr.vxr_head = 0;
    var.vdr.vxr_tail = 0;
    cdf.touch();
    if (blocks_.empty()) return kOk;
    std::vector<std::size_t> leaves;
    for (std::size_t i = 0; i < blocks_.size(); i += kLeafSlots) {
        const std::size_t leaf = new_node(cdf, kLeafSlots);
        for (std::size_t j = i; j < blocks_.size() && j < i + kLeafSlots; ++j) {
            nodes_[leaf].slots.push_back(
                NodeSlot{blocks_[j].first, blocks_[j].last, blocks_[j].offset, {}});
        }
        leaves.push_back(leaf);
    }
    for (std::size_t m = 0; m < leaves.size(); ++m) {
        nodes_[leaves[m]].next = m + 1 < leaves.size() ? nodes_[leaves[m + 1]].offset : 0;
        CDFGATE_TRY(write_node(cdf, leaves[m]));
    }
    // Index levels over the chain as growth makes them: three slots, chained.
    top_ = leaves;
    while (top_.size() >= 3) {
        std::vector<std::size_t> upper;
        CDFGATE_TRY(group(cdf, top_, upper));
        top_ = std::move(upper);
    }
    var.vdr.vxr_head = nodes_[top_.front()].offset;
    var.vdr.vxr_tail = nodes_[leaves.back()].offset;
    return kOk;
}

}  // namespace cdfgate::engine::store
