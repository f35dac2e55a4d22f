#include <stdexcept>

#include "array_storage.h"

namespace cdfgate::embedded::detail {

std::size_t elementSize(hvClassID classId) noexcept {
    switch (classId) {
        case hvDOUBLE_CLASS:
        case hvINT64_CLASS:
        case hvUINT64_CLASS:
            return 8;
        case hvSINGLE_CLASS:
        case hvINT32_CLASS:
        case hvUINT32_CLASS:
            return 4;
        case hvINT16_CLASS:
        case hvUINT16_CLASS:
        case hvCHAR_CLASS:
            return 2;
        case hvINT8_CLASS:
        case hvUINT8_CLASS:
        case hvLOGICAL_CLASS:
            return 1;
        case hvCELL_CLASS:
            return sizeof(hvArray*);
        default:
            return 0;
    }
}

bool isNumeric(hvClassID classId) noexcept {
    return classId >= hvDOUBLE_CLASS && classId <= hvUINT64_CLASS;
}

// Fewer than two extents are padded with 1 (so {} is 1-by-1 and {n} is n-by-1);
// singleton extents after the second are dropped.
std::vector<std::size_t> normalizedDims(std::span<const std::size_t> dims) {
    std::vector<std::size_t> shape(dims.begin(), dims.end());
    while (shape.size() < 2) shape.push_back(1);
    while (shape.size() > 2 && shape.back() == 1) shape.pop_back();
    return shape;
}

std::size_t elementCount(std::span<const std::size_t> dims) {
    std::size_t count = 1;
    for (const std::size_t extent : dims) {
        if (extent != 0 && count > SIZE_MAX / extent) {
            throw std::length_error("array dimensions overflow the element count");
        }
        count *= extent;
    }
    return count;
}

}  // namespace cdfgate::embedded::detail
