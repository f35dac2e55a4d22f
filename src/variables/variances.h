// Variances between host values (true/false, or the numbers VARY and NOVARY) and the
// library's VARY (-1) and NOVARY (0).
#pragma once

#include <span>
#include <vector>

#include "hv/array.h"

namespace cdfgate::gateway {

// One library variance per element: a logical array maps true to VARY; a double array
// is truncated toward zero and must give -1 or 0 ("unrecognizedValue", value,
// "VARIANCE"); any other class raises "badVarianceDatatype".
std::vector<long> parseVariance(const hvArray* array);

// 1-by-n logical row (0-by-0 for an empty list); a value other than VARY or NOVARY
// raises "unrecognizedValue" (value, "VARIANCE").
matrix::array_ptr variancesToLogical(std::span<const long> variances);

}  // namespace cdfgate::gateway
