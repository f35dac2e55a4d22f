#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "array_storage.h"

namespace cdfgate::embedded::detail {

matrix::array_ptr allocate(hvClassID classId, std::span<const std::size_t> dims, bool zeroed) {
    auto array = std::make_unique<hvArray>();
    array->classId = classId;
    array->dims = normalizedDims(dims);
    array->count = elementCount(array->dims);
    if (classId == hvCELL_CLASS) {
        array->cells.resize(array->count);
    } else {
        const std::size_t size = elementSize(classId);
        if (size == 0)
            throw std::invalid_argument("the built-in host has no storage for this class");
        if (array->count > SIZE_MAX / size) {
            throw std::length_error("array dimensions overflow the storage size");
        }
        // Never a null data pointer, even for an empty array.
        const std::size_t bytes = std::max<std::size_t>(array->count * size, 1);
        array->bytes = zeroed ? std::make_unique<std::byte[]>(bytes)
                              : std::make_unique_for_overwrite<std::byte[]>(bytes);
    }
    return matrix::array_ptr(array.release());
}

}  // namespace cdfgate::embedded::detail

namespace {

void requireNumeric(hvClassID classId, hvComplexity complexity) {
    using cdfgate::embedded::detail::isNumeric;
    if (!isNumeric(classId) && classId != hvLOGICAL_CLASS) {
        throw std::invalid_argument("class " + std::to_string(classId) +
                                    " is not a numeric or logical class");
    }
    if (complexity != hvREAL) {
        throw std::invalid_argument("the built-in host has no complex arrays");
    }
}

}  // namespace

namespace matrix {

void destroyArray(hvArray* array) noexcept {
    delete array;
}

namespace detail {

array_ptr do_create_numeric(std::span<const std::size_t> dims, hvClassID classId,
                            hvComplexity complexity) {
    requireNumeric(classId, complexity);
    return cdfgate::embedded::detail::allocate(classId, dims, true);
}

array_ptr do_create_uninitnumeric(std::span<const std::size_t> dims, hvClassID classId,
                                  hvComplexity complexity) {
    requireNumeric(classId, complexity);
    return cdfgate::embedded::detail::allocate(classId, dims, false);
}

array_ptr do_create_cell(std::span<const std::size_t> dims) {
    return cdfgate::embedded::detail::allocate(hvCELL_CLASS, dims, true);
}

array_ptr do_create_char(std::span<const std::size_t> dims) {
    return cdfgate::embedded::detail::allocate(hvCHAR_CLASS, dims, true);
}

}  // namespace detail

// Each byte becomes one character unit, sign-extended as the host's char conversion
// does: bytes 0x80..0xFF become units 0xFF80..0xFFFF, so only ASCII text round-trips.
array_ptr create(const char* text, std::size_t length) {
    const std::size_t dims[] = {1, length};
    array_ptr array = detail::do_create_char(dims);
    auto* units = reinterpret_cast<char16_t*>(array->bytes.get());
    for (std::size_t i = 0; i < length; ++i) {
        units[i] =
            static_cast<char16_t>(static_cast<std::int16_t>(static_cast<signed char>(text[i])));
    }
    return array;
}

}  // namespace matrix
