// Layout of the built-in host's arrays, shared by the files that implement the host
// operations. Nothing outside host/embedded sees it.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "hv/array.h"

struct hvArray {
    hvClassID classId = hvDOUBLE_CLASS;
    // At least two extents; no trailing singleton beyond the second.
    std::vector<std::size_t> dims;
    std::size_t count = 0;
    // Element storage of numeric, logical and character arrays, in column order.
    std::unique_ptr<std::byte[]> bytes;
    // Elements of a cell array (null for an empty cell), in column order.
    std::vector<matrix::array_ptr> cells;
};

namespace cdfgate::embedded::detail {

// Bytes per element of a class; 0 for classes without element storage here.
std::size_t elementSize(hvClassID classId) noexcept;
bool isNumeric(hvClassID classId) noexcept;
// The host's shape rules applied to a requested extent list, with its element count;
// a count or byte size that overflows throws std::length_error.
std::vector<std::size_t> normalizedDims(std::span<const std::size_t> dims);
std::size_t elementCount(std::span<const std::size_t> dims);

// A new array with storage for its elements, zeroed when asked.
matrix::array_ptr allocate(hvClassID classId, std::span<const std::size_t> dims, bool zeroed);

// Deep copy, cells included.
matrix::array_ptr duplicate(const hvArray& array);
// Same class, shape and elements, cells compared recursively.
bool deepEqual(const hvArray& left, const hvArray& right);

}  // namespace cdfgate::embedded::detail
