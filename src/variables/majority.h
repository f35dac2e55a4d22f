// The majority rule: the gateway never reorders data; it orders dimension lists so
// that the host's column order equals the file's order. For a ROW_MAJOR file the
// dimension sizes and every index list are reversed; leading entries (the two doubles
// of an EPOCH16 value, the characters of a text value) stay first, a trailing record
// count stays last.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "cdf.h"

namespace cdfgate::gateway {

// The file's majority ("CDFgetMajority").
long readMajority(CDFid id);

inline bool isRowMajor(long majority) noexcept {
    return majority == ROW_MAJOR;
}

template <typename List>
void reverseForMajority(List& list, long majority) {
    if (isRowMajor(majority)) std::reverse(list.begin(), list.end());
}

// Host dimensions of one record ("getVarRecordData"); dimSizes in library order.
std::vector<std::size_t> recordDimensions(long datatype, long numElements,
                                          std::span<const long> dimSizes, long majority);

// Host dimensions of a hyperslab ("hyperGetVarData"): leading entry, the counts in host
// order, then the record count. dimCounts in library order, each already checked to be
// non-negative; recCount non-negative.
std::vector<std::size_t> hyperslabDimensions(long datatype, long numElements,
                                             std::span<const long> dimCounts, long recCount,
                                             long majority);

// A list of one entry n becomes the host's n-by-1; longer lists stay as they are.
std::vector<std::size_t> hostShape(std::vector<std::size_t> dims);

// Product of the entries, std::length_error when it does not fit a size_t.
std::size_t checkedProduct(std::span<const std::size_t> values);

}  // namespace cdfgate::gateway
