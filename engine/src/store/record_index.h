// A variable's record index held in memory: the VXR tree as nodes, and its leaf
// slots flattened into blocks in record order for lookups. Loaded once from the
// file (bounded: a looping, oversized or unordered index is a corrupted file) and
// kept in step with the file by every change made through it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "io/status.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// An allocated run of records: the VVR (or CVVR) holding records first..last.
struct Block {
    std::int64_t first = 0;
    std::int64_t last = 0;
    std::int64_t offset = 0;  // of the VVR or CVVR
    std::int64_t size = 0;    // its RecordSize
    std::int32_t type = 0;    // format::kVvr or format::kCvvr

    std::int64_t count() const { return last - first + 1; }
};

// The type of a block whose records are staged in memory (compressed_stage.h).
inline constexpr std::int32_t kStagedBlock = 0;

// One VXR. Each used slot covers records first..last and points at a VVR or CVVR
// (leaf slot) or at a chain of lower VXRs (index slot).
struct NodeSlot {
    std::int64_t first = 0;
    std::int64_t last = 0;
    std::int64_t target = 0;         // offset of the VVR, CVVR or first lower VXR
    std::vector<std::size_t> chain;  // node numbers of the lower chain; empty for leaf slots
};

struct IndexNode {
    std::int64_t offset = 0;
    std::int64_t next = 0;  // VXRnext as stored
    std::int32_t n_entries = 0;
    std::vector<NodeSlot> slots;  // the used ones

    bool full() const { return slots.size() >= static_cast<std::size_t>(n_entries); }
    bool leaf() const { return slots.empty() || slots.front().chain.empty(); }
};

// The decompressed records of the CVVR read last.
struct BlockCache {
    std::int64_t offset = 0;  // of the CVVR; 0 when empty
    std::vector<std::uint8_t> bytes;
    std::vector<std::uint8_t> payload;  // the CVVR as read, kept for its room
};

// Bytes of a VVR read ahead for small reads (single values, short records), so
// that a run of them costs one positioned read. Writes to the variable drop it.
struct ReadWindow {
    std::int64_t offset = -1;  // file offset of bytes[0]; -1 when empty
    std::vector<std::uint8_t> bytes;

    bool covers(std::int64_t at, std::int64_t size) const {
        return offset >= 0 && at >= offset &&
               at + size <= offset + static_cast<std::int64_t>(bytes.size());
    }
};

class RecordIndex {
  public:
    bool loaded() const { return loaded_; }
    // Forgets everything; the next access loads the index from the file again.
    void reset() { *this = RecordIndex{}; }

    // Reads the VXR tree of var (nothing to do once loaded). The records of a VVR
    // must fit in it given record_bytes; slots must be ordered and disjoint.
    Status load(const CdfFile& cdf, const Variable& var, std::int64_t record_bytes);

    std::span<const Block> blocks() const { return blocks_; }
    // The block holding record, or nullptr.
    const Block* find(std::int64_t record) const;
    // Position of the first block whose last record is >= record (blocks().size() if none).
    std::size_t lower_bound(std::int64_t record) const;
    // Highest allocated record, -1 when nothing is allocated.
    std::int64_t max_allocated() const { return blocks_.empty() ? -1 : blocks_.back().last; }
    std::int64_t allocated_count() const;

    // Allocates records first..last (above every allocated record) in a new VVR,
    // the way the reference library does: a new leaf VXR goes before the VVR, new
    // index VXRs after it; 7-slot leaves, 3-slot index levels. Writes the VVR's
    // header and every changed VXR and updates var's VXRhead/VXRtail. The records'
    // bytes are left to the caller.
    Status add_block(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last,
                     std::int64_t record_bytes);
    // Grows the last block to end at new_last when its VVR ends where the file's
    // used space ends; false in extended when it cannot.
    Status extend_last_block(CdfFile& cdf, std::int64_t new_last, std::int64_t record_bytes,
                             bool& extended);
    // The same for block number i (new_last must stay below the next block).
    Status extend_block(CdfFile& cdf, std::size_t i, std::int64_t new_last,
                        std::int64_t record_bytes, bool& extended);
    // Allocates records first..last, which lie between allocated blocks, in a new
    // VVR whose slot goes into the leaf of its neighbour (sparse records); a full
    // leaf passes its last slot to a new leaf chained after it.
    Status insert_block(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last,
                        std::int64_t record_bytes);

    // Compressed variables (compressed_write.h). The block being staged stands in
    // the list as a block of type kStagedBlock; a new one has offset 0 and no slot
    // in the VXRs until it is stored.
    void stage_block(std::int64_t first, std::int64_t last);
    void unstage_block(std::int64_t first);
    void set_block_type(std::size_t i, std::int32_t type) { blocks_[i].type = type; }
    // Gives records first..last (none of them allocated) a record of size bytes,
    // which the caller writes, and a slot; offset receives its place.
    Status place_record(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last,
                        std::int64_t size, std::int32_t type, std::int64_t& offset);
    // Block i now lies at offset (its slot follows), with that size and type.
    Status move_record(CdfFile& cdf, std::size_t i, std::int64_t offset, std::int64_t size,
                       std::int32_t type);

    // Replaces every block (in record order, records already in place) and builds
    // a new VXR tree over them; the old VXRs become free space.
    Status rebuild(CdfFile& cdf, Variable& var, std::vector<Block> blocks);

    BlockCache& cache() { return cache_; }
    ReadWindow& window() { return window_; }
    // Forgets the bytes read ahead or inflated (after the variable's data change).
    void drop_caches() {
        cache_.offset = 0;
        window_.offset = -1;
    }

    // The VXRs (for tests): node numbers of the chain hanging from VXRhead.
    std::span<const IndexNode> nodes() const { return nodes_; }
    std::span<const std::size_t> top_chain() const { return top_; }

  private:
    friend struct IndexLoader;

    // Node numbers from the last node of the top chain down to the tail leaf.
    std::vector<std::size_t> rightmost_path() const;
    std::vector<std::size_t>& chain_at(const std::vector<std::size_t>& path, std::size_t depth);
    std::size_t new_node(CdfFile& cdf, std::int32_t n_entries);
    Status write_node(CdfFile& cdf, std::size_t node) const;
    // Makes the last slots along path span their chains again; writes changed nodes.
    Status refresh_path(CdfFile& cdf, const std::vector<std::size_t>& path);
    // The leaf holding the slot of the block at offset, and the slot's position.
    bool leaf_of(std::int64_t offset, std::size_t& node, std::size_t& slot) const;
    // Node numbers from the top chain down to node (empty when not reachable).
    std::vector<std::size_t> path_to(std::size_t node) const;
    // Makes every slot above node on path span its chain again; writes changed nodes.
    Status refresh_ancestors(CdfFile& cdf, const std::vector<std::size_t>& path);
    Status write_vvr_header(CdfFile& cdf, std::int64_t offset, std::int64_t size) const;
    // Covers members with new 3-slot index nodes chained together; returns them.
    Status group(CdfFile& cdf, const std::vector<std::size_t>& members,
                 std::vector<std::size_t>& out);
    Status rebalance(CdfFile& cdf, Variable& var, const std::vector<std::size_t>& path,
                     std::size_t depth);

    bool loaded_ = false;
    std::vector<Block> blocks_;
    std::vector<IndexNode> nodes_;
    std::vector<std::size_t> top_;  // chain from VXRhead
    BlockCache cache_;
    ReadWindow window_;
};

}  // namespace cdfgate::engine::store
