#include <algorithm>

#include "array_storage.h"

namespace cdfgate::embedded::detail {

matrix::array_ptr duplicate(const hvArray& array) {
    matrix::array_ptr copy = allocate(array.classId, array.dims, false);
    if (array.classId == hvCELL_CLASS) {
        for (std::size_t i = 0; i < array.cells.size(); ++i) {
            if (array.cells[i]) copy->cells[i] = duplicate(*array.cells[i]);
        }
    } else {
        const std::size_t bytes = array.count * elementSize(array.classId);
        std::copy_n(array.bytes.get(), bytes, copy->bytes.get());
    }
    return copy;
}

bool deepEqual(const hvArray& left, const hvArray& right) {
    if (left.classId != right.classId || left.dims != right.dims) return false;
    if (left.classId == hvCELL_CLASS) {
        return std::equal(left.cells.begin(), left.cells.end(), right.cells.begin(),
                          [](const matrix::array_ptr& a, const matrix::array_ptr& b) {
                              if (!a || !b) return !a && !b;
                              return deepEqual(*a, *b);
                          });
    }
    const std::size_t bytes = left.count * elementSize(left.classId);
    return std::equal(left.bytes.get(), left.bytes.get() + bytes, right.bytes.get());
}

}  // namespace cdfgate::embedded::detail
