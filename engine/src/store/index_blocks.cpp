// Index changes for compressed variables: the staged block's stand-in, records of
// any size and type placed under a slot, and blocks that moved or changed type.
#include "store/cdf_file.h"
#include "store/record_index.h"

namespace cdfgate::engine::store {

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

}  // namespace cdfgate::engine::store
