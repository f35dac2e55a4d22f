// Reads a version 3 file's zVariable index straight from its bytes, so that tests
// can see which records each block holds and how it is stored.
#pragma once

#include <cstdint>
#include <vector>

namespace cdfgate::test {

struct StoredBlock {
    std::int64_t first = 0, last = 0;
    std::int64_t offset = 0;
    std::int64_t size = 0;     // RecordSize
    std::int32_t type = 0;     // 7 VVR, 13 CVVR
    std::int64_t c_size = -1;  // CVVR only
};

inline std::int64_t be(const std::vector<std::uint8_t>& b, std::int64_t at, int n) {
    std::int64_t v = 0;
    for (int i = 0; i < n; ++i) v = (v << 8) | b.at(static_cast<std::size_t>(at + i));
    return n == 4 ? static_cast<std::int32_t>(v) : v;
}

// The leaf slots of zVariable number var (bounded walk of the VXR tree).
inline std::vector<StoredBlock> stored_blocks(const std::vector<std::uint8_t>& b, int var) {
    std::vector<StoredBlock> out;
    const std::int64_t gdr = be(b, 20, 8);
    std::int64_t vdr = be(b, gdr + 20, 8);
    for (int i = 0; i < var && vdr != 0; ++i) vdr = be(b, vdr + 12, 8);
    if (vdr == 0) return out;
    int budget = 10000;
    auto walk = [&](auto& self, std::int64_t vxr) -> void {
        for (; vxr != 0 && budget-- > 0; vxr = be(b, vxr + 12, 8)) {
            const std::int64_t n = be(b, vxr + 20, 4), used = be(b, vxr + 24, 4);
            for (std::int64_t s = 0; s < used; ++s) {
                const std::int64_t first = be(b, vxr + 28 + 4 * s, 4);
                const std::int64_t last = be(b, vxr + 28 + 4 * n + 4 * s, 4);
                const std::int64_t target = be(b, vxr + 28 + 8 * n + 8 * s, 8);
                const auto type = static_cast<std::int32_t>(be(b, target + 8, 4));
                if (type == 6) {
                    self(self, target);
                    continue;
                }
                StoredBlock blk{first, last, target, be(b, target, 8), type, -1};
                if (type == 13) blk.c_size = be(b, target + 16, 8);
                out.push_back(blk);
            }
        }
    };
    walk(walk, be(b, vdr + 28, 8));
    return out;
}

}  // namespace cdfgate::test
