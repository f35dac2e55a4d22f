// Growing a variable's VXR tree the way the reference library does: blocks are
// appended to the tail leaf; a full leaf gets a new one chained after it; three
// VXRs in the top chain get an index level above them; more than three VXRs under
// the last slot of an index VXR move, all but the first, under a new index VXR
// chained after it.
#include <algorithm>
#include <limits>

#include "format/records.h"
#include "store/cdf_file.h"
#include "store/record_index.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int32_t kLeafSlots = 7;
constexpr std::int32_t kIndexSlots = 3;
constexpr std::size_t kMaxPath = 64;

std::int64_t vxr_size(std::int32_t n_entries, format::Layout layout) {
    return static_cast<std::int64_t>((layout.v3 ? 28 : 20) + static_cast<std::size_t>(n_entries) *
                                                                 (8 + layout.offset_size()));
}

}  // namespace

std::vector<std::size_t> RecordIndex::rightmost_path() const {
    std::vector<std::size_t> path;
    if (top_.empty()) return path;
    std::size_t node = top_.back();
    while (path.size() < kMaxPath) {
        path.push_back(node);
        const IndexNode& n = nodes_[node];
        if (n.leaf()) break;
        node = n.slots.back().chain.back();
    }
    return path;
}

std::vector<std::size_t>& RecordIndex::chain_at(const std::vector<std::size_t>& path,
                                                std::size_t depth) {
    return depth == 0 ? top_ : nodes_[path[depth - 1]].slots.back().chain;
}

std::size_t RecordIndex::new_node(CdfFile& cdf, std::int32_t n_entries) {
    IndexNode node;
    node.n_entries = n_entries;
    node.offset = cdf.space().allocate(vxr_size(n_entries, cdf.layout()));
    nodes_.push_back(std::move(node));
    return nodes_.size() - 1;
}

Status RecordIndex::write_node(CdfFile& cdf, std::size_t number) const {
    const IndexNode& node = nodes_[number];
    format::Vxr vxr;
    vxr.next = node.next;
    vxr.n_used = static_cast<std::int32_t>(node.slots.size());
    const auto n = static_cast<std::size_t>(node.n_entries);
    vxr.first.assign(n, -1);
    vxr.last.assign(n, -1);
    vxr.offset.assign(n, -1);
    for (std::size_t i = 0; i < node.slots.size() && i < n; ++i) {
        vxr.first[i] = static_cast<std::int32_t>(node.slots[i].first);
        vxr.last[i] = static_cast<std::int32_t>(node.slots[i].last);
        vxr.offset[i] = node.slots[i].target;
    }
    const auto bytes = format::serialize_vxr(vxr, cdf.layout());
    return cdf.file().write(static_cast<std::uint64_t>(node.offset), bytes);
}

Status RecordIndex::refresh_path(CdfFile& cdf, const std::vector<std::size_t>& path) {
    for (std::size_t depth = path.size(); depth-- > 1;) {
        NodeSlot& slot = nodes_[path[depth - 1]].slots.back();
        const std::int64_t first = nodes_[slot.chain.front()].slots.front().first;
        const std::int64_t last = nodes_[slot.chain.back()].slots.back().last;
        if (slot.first == first && slot.last == last) continue;
        slot.first = first;
        slot.last = last;
        CDFGATE_TRY(write_node(cdf, path[depth - 1]));
    }
    return kOk;
}

Status RecordIndex::group(CdfFile& cdf, const std::vector<std::size_t>& members,
                          std::vector<std::size_t>& out) {
    const std::size_t k = members.size();
    std::size_t i = 0;
    while (i < k) {
        const std::size_t node = new_node(cdf, kIndexSlots);
        for (std::int32_t j = 0; j < kIndexSlots && i < k; ++j) {
            std::vector<std::size_t> chain;
            if (j == kIndexSlots - 1 && k - i < 4) {
                chain.assign(members.begin() + static_cast<std::ptrdiff_t>(i), members.end());
                i = k;
            } else {
                chain.push_back(members[i++]);
            }
            for (std::size_t m = 0; m < chain.size(); ++m) {
                nodes_[chain[m]].next = m + 1 < chain.size() ? nodes_[chain[m + 1]].offset : 0;
                CDFGATE_TRY(write_node(cdf, chain[m]));
            }
            NodeSlot slot;
            slot.first = nodes_[chain.front()].slots.front().first;
            slot.last = nodes_[chain.back()].slots.back().last;
            slot.target = nodes_[chain.front()].offset;
            slot.chain = std::move(chain);
            nodes_[node].slots.push_back(std::move(slot));
        }
        out.push_back(node);
    }
    for (std::size_t m = 0; m < out.size(); ++m) {
        nodes_[out[m]].next = m + 1 < out.size() ? nodes_[out[m + 1]].offset : 0;
        CDFGATE_TRY(write_node(cdf, out[m]));
    }
    return kOk;
}

Status RecordIndex::rebalance(CdfFile& cdf, Variable& var, const std::vector<std::size_t>& path,
                              std::size_t depth) {
    if (depth == 0) {
        while (top_.size() >= 3) {
            std::vector<std::size_t> upper;
            CDFGATE_TRY(group(cdf, top_, upper));
            top_ = std::move(upper);
        }
        var.vdr.vxr_head = nodes_[top_.front()].offset;
        return kOk;
    }
    const std::vector<std::size_t> chain = chain_at(path, depth);
    if (chain.size() <= 3) return kOk;
    const std::size_t parent = path[depth - 1];
    const std::size_t kept = chain.front();
    nodes_[kept].next = 0;
    CDFGATE_TRY(write_node(cdf, kept));
    {
        NodeSlot& slot = nodes_[parent].slots.back();
        slot.chain = {kept};
        slot.last = nodes_[kept].slots.back().last;
    }
    std::vector<std::size_t> made;
    CDFGATE_TRY(group(cdf, {chain.begin() + 1, chain.end()}, made));
    nodes_[made.back()].next = nodes_[parent].next;
    nodes_[parent].next = nodes_[made.front()].offset;
    CDFGATE_TRY(write_node(cdf, made.back()));
    CDFGATE_TRY(write_node(cdf, parent));
    auto& upper = chain_at(path, depth - 1);
    upper.insert(upper.end(), made.begin(), made.end());
    return rebalance(cdf, var, path, depth - 1);
}

Status RecordIndex::add_block(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last,
                              std::int64_t record_bytes) {
    const auto header = static_cast<std::int64_t>(cdf.layout().header_size());
    const std::int64_t count = last - first + 1;
    if (first < 0 || count < 1 || last > std::numeric_limits<std::int32_t>::max() ||
        (!blocks_.empty() && first <= blocks_.back().last) || record_bytes < 1 ||
        count > (std::numeric_limits<std::int64_t>::max() - header) / record_bytes) {
        return CDF_INTERNAL_ERROR;
    }
    const std::int64_t vvr_size = header + count * record_bytes;
    const std::vector<std::size_t> path = rightmost_path();
    const bool need_leaf = path.empty() || nodes_[path.back()].full();
    const std::size_t leaf = need_leaf ? new_node(cdf, kLeafSlots) : path.back();
    const std::int64_t vvr_offset = cdf.space().allocate(vvr_size);

    std::vector<std::uint8_t> head;
    format::ByteWriter w(head, cdf.layout());
    w.offset(vvr_size);
    w.i32(format::kVvr);
    CDFGATE_TRY(cdf.file().write(static_cast<std::uint64_t>(vvr_offset), head));
    blocks_.push_back(Block{first, last, vvr_offset, vvr_size, format::kVvr});
    nodes_[leaf].slots.push_back(NodeSlot{first, last, vvr_offset, {}});
    CDFGATE_TRY(write_node(cdf, leaf));
    var.vdr.vxr_tail = nodes_[leaf].offset;
    cdf.touch();

    if (!need_leaf) return refresh_path(cdf, path);
    if (path.empty()) {
        top_ = {leaf};
        var.vdr.vxr_head = nodes_[leaf].offset;
        return kOk;
    }
    const std::size_t tail = path.back();
    nodes_[tail].next = nodes_[leaf].offset;
    CDFGATE_TRY(write_node(cdf, tail));
    chain_at(path, path.size() - 1).push_back(leaf);
    CDFGATE_TRY(refresh_path(cdf, path));
    return rebalance(cdf, var, path, path.size() - 1);
}

Status RecordIndex::extend_last_block(CdfFile& cdf, std::int64_t new_last,
                                      std::int64_t record_bytes, bool& extended) {
    extended = false;
    if (blocks_.empty()) return kOk;
    return extend_block(cdf, blocks_.size() - 1, new_last, record_bytes, extended);
}

Status RecordIndex::write_vvr_header(CdfFile& cdf, std::int64_t offset, std::int64_t size) const {
    std::vector<std::uint8_t> head;
    format::ByteWriter w(head, cdf.layout());
    w.offset(size);
    w.i32(format::kVvr);
    return cdf.file().write(static_cast<std::uint64_t>(offset), head);
}

bool RecordIndex::leaf_of(std::int64_t offset, std::size_t& node, std::size_t& slot) const {
    for (std::size_t n = 0; n < nodes_.size(); ++n) {
        if (!nodes_[n].leaf()) continue;
        for (std::size_t i = 0; i < nodes_[n].slots.size(); ++i) {
            if (nodes_[n].slots[i].target == offset) {
                node = n;
                slot = i;
                return true;
            }
        }
    }
    return false;
}

std::vector<std::size_t> RecordIndex::path_to(std::size_t target) const {
    // Depth-first over the chains; the tree was bounded when it was loaded.
    std::vector<std::size_t> path;
    const auto search = [&](const auto& self, const std::vector<std::size_t>& chain) -> bool {
        for (const std::size_t n : chain) {
            path.push_back(n);
            if (n == target) return true;
            for (const NodeSlot& s : nodes_[n].slots) {
                if (!s.chain.empty() && self(self, s.chain)) return true;
            }
            path.pop_back();
        }
        return false;
    };
    if (path.size() < kMaxPath && search(search, top_)) return path;
    return {};
}

Status RecordIndex::refresh_ancestors(CdfFile& cdf, const std::vector<std::size_t>& path) {
    for (std::size_t depth = path.size(); depth-- > 1;) {
        IndexNode& parent = nodes_[path[depth - 1]];
        for (NodeSlot& slot : parent.slots) {
            const auto& chain = slot.chain;
            if (std::find(chain.begin(), chain.end(), path[depth]) == chain.end()) continue;
            const std::int64_t first = nodes_[chain.front()].slots.front().first;
            const std::int64_t last = nodes_[chain.back()].slots.back().last;
            if (slot.first == first && slot.last == last) break;
            slot.first = first;
            slot.last = last;
            CDFGATE_TRY(write_node(cdf, path[depth - 1]));
            break;
        }
    }
    return kOk;
}

Status RecordIndex::extend_block(CdfFile& cdf, std::size_t i, std::int64_t new_last,
                                 std::int64_t record_bytes, bool& extended) {
    extended = false;
    if (i >= blocks_.size()) return kOk;
    Block& block = blocks_[i];
    const bool below_next = i + 1 == blocks_.size() || new_last < blocks_[i + 1].first;
    if (block.type != format::kVvr || new_last <= block.last || !below_next ||
        new_last > std::numeric_limits<std::int32_t>::max() ||
        block.offset + block.size != cdf.space().eof()) {
        return kOk;
    }
    std::size_t node = 0, slot = 0;
    if (!leaf_of(block.offset, node, slot)) return kOk;
    const std::int64_t grow = new_last - block.last;
    if (grow > (std::numeric_limits<std::int64_t>::max() - block.size) / record_bytes) {
        return CDF_INTERNAL_ERROR;
    }
    const std::int64_t new_size = block.size + grow * record_bytes;
    if (!cdf.space().extend_at_end(block.offset, block.size, new_size)) return kOk;
    CDFGATE_TRY(write_vvr_header(cdf, block.offset, new_size));
    block.size = new_size;
    block.last = new_last;
    nodes_[node].slots[slot].last = new_last;
    CDFGATE_TRY(write_node(cdf, node));
    CDFGATE_TRY(refresh_ancestors(cdf, path_to(node)));
    cdf.touch();
    extended = true;
    return kOk;
}

Status RecordIndex::insert_block(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last,
                                 std::int64_t record_bytes) {
    const auto header = static_cast<std::int64_t>(cdf.layout().header_size());
    const std::size_t at = lower_bound(first);
    if (first < 0 || last < first || at >= blocks_.size() || blocks_[at].first <= last ||
        record_bytes < 1 ||
        last - first + 1 > (std::numeric_limits<std::int64_t>::max() - header) / record_bytes) {
        return CDF_INTERNAL_ERROR;
    }
    // The new slot goes after its predecessor's, or before its successor's.
    std::size_t node = 0, slot = 0;
    const bool after = at > 0;
    if (!leaf_of(blocks_[after ? at - 1 : at].offset, node, slot)) return CDF_INTERNAL_ERROR;
    const std::vector<std::size_t> path = path_to(node);
    if (path.empty()) return CDF_INTERNAL_ERROR;
    // A full leaf hands its last slot to a new leaf chained right after it, under
    // the same parent slot (which covers the whole chain).
    std::size_t spill = 0;
    const bool split = nodes_[node].full();
    if (split) spill = new_node(cdf, kLeafSlots);
    const std::int64_t size = header + (last - first + 1) * record_bytes;
    const std::int64_t offset = cdf.space().allocate(size);
    CDFGATE_TRY(write_vvr_header(cdf, offset, size));
    auto& slots = nodes_[node].slots;
    slots.insert(slots.begin() + static_cast<std::ptrdiff_t>(after ? slot + 1 : slot),
                 NodeSlot{first, last, offset, {}});
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(at),
                   Block{first, last, offset, size, format::kVvr});
    if (split) {
        nodes_[spill].slots.push_back(std::move(slots.back()));
        slots.pop_back();
        nodes_[spill].next = nodes_[node].next;
        nodes_[node].next = nodes_[spill].offset;
        std::vector<std::size_t>* chain = &top_;
        if (path.size() > 1) {
            for (NodeSlot& up : nodes_[path[path.size() - 2]].slots) {
                if (std::find(up.chain.begin(), up.chain.end(), node) != up.chain.end()) {
                    chain = &up.chain;
                }
            }
        }
        chain->insert(std::find(chain->begin(), chain->end(), node) + 1, spill);
        CDFGATE_TRY(write_node(cdf, spill));
        if (var.vdr.vxr_tail == nodes_[node].offset) var.vdr.vxr_tail = nodes_[spill].offset;
    }
    CDFGATE_TRY(write_node(cdf, node));
    CDFGATE_TRY(refresh_ancestors(cdf, path));
    cdf.touch();
    return kOk;
}

}  // namespace cdfgate::engine::store
