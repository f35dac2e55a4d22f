// The range of times that a TT2000 value can hold, checked before any conversion.
#pragma once

#include <span>

namespace cdfgate::gateway {

// True when the nine components (year .. nanosecond) lie between 1707-09-22
// 12:12:10.961224196 and 2292-04-11 11:46:07.670775807 inclusive, or are one of the
// two special tuples (the pad and the fill time). Comparisons are ordered floating
// point ones: a NaN component at a boundary year decides nothing, and a NaN year
// passes.
bool isWithinTt2000Range(std::span<const double, 9> components);

}  // namespace cdfgate::gateway
