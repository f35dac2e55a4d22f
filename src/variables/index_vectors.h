// Index, count and interval lists of the variable commands (DIMS, INDICES, DIMSTART,
// DIMCOUNT, DIMSTRIDE).
#pragma once

#include <string>
#include <vector>

#include "hv/array.h"

namespace cdfgate::gateway {

// The elements converted as getInt64Vector does. The elements are only read as
// doubles, so a non-empty array of another class is refused first with
// "argumentNotDoublePrecision" and the argument's name.
std::vector<long> getIndexVector(const hvArray* array, const std::string& argumentName);

// The list as the library's argument: it reads the pointer even for no dimensions,
// so an empty list points at `none`.
inline long* listArgument(std::vector<long>& list, long& none) noexcept {
    return list.empty() ? &none : list.data();
}

}  // namespace cdfgate::gateway
