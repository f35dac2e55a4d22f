// The largest single allocation made through operator new since the last reset,
// for checking that damaged files never make the library allocate out of
// proportion to their size. The test program replaces the global operator new.
#pragma once

#include <cstddef>

namespace cdfgate::corrupt {

void reset_largest_allocation();
std::size_t largest_allocation();

}  // namespace cdfgate::corrupt
