// Host arrays the handlers return.
#pragma once

#include <cstdint>
#include <string_view>

#include "hv/array.h"

namespace cdfgate::gateway {

matrix::array_ptr createUint64Scalar(std::uint64_t value);
matrix::array_ptr createDoubleScalar(double value);
// 1-by-n character array of the text's bytes.
matrix::array_ptr createString(std::string_view text);

// Moves `array` into output slot `index` when the host offered that slot (it offers at
// least one, and at least nlhs); a result the host has no slot for is dropped.
void placeOutput(int nlhs, matrix::array_ptr* plhs, int index, matrix::array_ptr array);

}  // namespace cdfgate::gateway
