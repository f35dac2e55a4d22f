#include "store/space_map.h"

#include <iterator>

namespace cdfgate::engine::store {

std::int64_t SpaceMap::allocate(std::int64_t size) {
    for (auto start = free_.begin(); start != free_.end(); ++start) {
        std::int64_t run = 0;
        auto it = start;
        std::int64_t next_offset = start->first;
        while (it != free_.end() && it->first == next_offset) {
            run += it->second;
            next_offset = it->first + it->second;
            ++it;
            if (run == size || run >= size + min_uir_) {
                const std::int64_t offset = start->first;
                free_.erase(start, it);
                if (run > size) free_.emplace(offset + size, run - size);
                return offset;
            }
        }
    }
    const std::int64_t offset = eof_;
    eof_ += size;
    return offset;
}

void SpaceMap::release(std::int64_t offset, std::int64_t size) {
    if (size > 0) free_[offset] = size;
}

bool SpaceMap::extend_at_end(std::int64_t offset, std::int64_t old_size, std::int64_t new_size) {
    if (offset + old_size != eof_ || new_size < old_size) return false;
    eof_ = offset + new_size;
    return true;
}

}  // namespace cdfgate::engine::store
