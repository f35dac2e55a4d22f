#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "codec/result.h"

namespace cdfgate::engine::codec {

// Runs a resumable decoder into `out`, growing it geometrically but never beyond
// max_size appended bytes. `step(dst, room, produced, ended)` decodes into dst until the
// stream ends (ended = true) or room is exhausted. On failure `out` keeps its old size.
template <class Step>
Result decode_growing(std::vector<std::uint8_t>& out, std::size_t max_size, std::size_t first_guess,
                      Step&& step) noexcept {
    const std::size_t start = out.size();
    std::size_t used = 0;
    std::size_t cap = std::min(max_size, std::max<std::size_t>(first_guess, 4096));
    try {
        for (;;) {
            out.resize(start + cap);
            std::size_t produced = 0;
            bool ended = false;
            const Result r = step(out.data() + start + used, cap - used, produced, ended);
            used += produced;
            if (r != Result::Ok) {
                out.resize(start);
                return r;
            }
            if (ended) {
                out.resize(start + used);
                return Result::Ok;
            }
            if (cap == max_size) {
                out.resize(start);
                return Result::TooLarge;
            }
            cap = max_size - cap > cap ? cap * 2 : max_size;
        }
    } catch (const std::bad_alloc&) {
        out.resize(start);
        return Result::OutOfMemory;
    }
}

}  // namespace cdfgate::engine::codec
