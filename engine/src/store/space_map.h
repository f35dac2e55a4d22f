// Free space of the file: the end of the used area and the freed blocks that
// become UIRs when the file is saved.
#pragma once

#include <cstdint>
#include <map>

namespace cdfgate::engine::store {

class SpaceMap {
  public:
    explicit SpaceMap(std::int64_t eof = 0, std::int64_t min_uir = 28)
        : eof_(eof), min_uir_(min_uir) {}

    std::int64_t eof() const { return eof_; }
    void set_eof(std::int64_t eof) { eof_ = eof; }

    // A place for size bytes: a run of adjacent free blocks that fits exactly or
    // leaves room for a UIR, else the end of the file.
    std::int64_t allocate(std::int64_t size);
    // Gives back a block; it is written as a UIR on saving.
    void release(std::int64_t offset, std::int64_t size);
    // Takes size more bytes at the end of the file only if offset + old size is eof.
    bool extend_at_end(std::int64_t offset, std::int64_t old_size, std::int64_t new_size);

    const std::map<std::int64_t, std::int64_t>& free_blocks() const { return free_; }

  private:
    std::int64_t eof_;
    std::int64_t min_uir_;
    std::map<std::int64_t, std::int64_t> free_;  // offset -> size, ascending
};

}  // namespace cdfgate::engine::store
