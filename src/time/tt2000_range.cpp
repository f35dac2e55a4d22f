#include "time/tt2000_range.h"

#include <algorithm>
#include <array>

namespace cdfgate::gateway {

namespace {

using Tuple = std::array<double, 9>;

constexpr Tuple kPadTuple{0, 1, 1, 0, 0, 0, 0, 0, 0};
constexpr Tuple kFillTuple{9999, 12, 31, 23, 59, 59, 999, 999, 999};
constexpr Tuple kLowest{1707, 9, 22, 12, 12, 10, 961, 224, 196};
constexpr Tuple kHighest{2292, 4, 11, 11, 46, 7, 670, 775, 807};

bool equals(std::span<const double, 9> c, const Tuple& tuple) {
    return std::equal(c.begin(), c.end(), tuple.begin());
}

// Compares month .. nanosecond with the bound's; the first component that differs in
// the given direction decides.
bool beyondLowest(std::span<const double, 9> c) {
    for (std::size_t i = 1; i < c.size(); ++i) {
        if (c[i] > kLowest[i]) return true;
        if (c[i] < kLowest[i]) return false;
    }
    return true;
}

bool belowHighest(std::span<const double, 9> c) {
    for (std::size_t i = 1; i < c.size(); ++i) {
        if (c[i] < kHighest[i]) return true;
        if (c[i] > kHighest[i]) return false;
    }
    return true;
}

}  // namespace

bool isWithinTt2000Range(std::span<const double, 9> c) {
    const double year = c[0];
    if (kLowest[0] < year && year < kHighest[0]) return true;
    if (year < kLowest[0] || year > kHighest[0]) {
        return equals(c, kPadTuple) || equals(c, kFillTuple);
    }
    if (year == kLowest[0]) return beyondLowest(c);
    if (year == kHighest[0]) return belowHighest(c);
    return true;  // NaN year
}

}  // namespace cdfgate::gateway
