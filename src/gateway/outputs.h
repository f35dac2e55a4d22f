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

}  // namespace cdfgate::gateway
