// Host arrays of the time commands: the component groups and the result matrices.
#pragma once

#include <cstddef>
#include <vector>

#include "hv/array.h"

namespace cdfgate::gateway::time_arrays {

// A double (or int64) array of the given dimensions whose elements the caller fills.
matrix::array_ptr createDoubleMatrix(std::vector<std::size_t> dims);
matrix::array_ptr createInt64Matrix(std::vector<std::size_t> dims);

// The element count must be a multiple of `groupSize` and the class double, checked
// in that order; either failure raises "badTimeVector" with `groupSize`.
void checkComponentArray(const hvArray* array, long groupSize);

}  // namespace cdfgate::gateway::time_arrays
