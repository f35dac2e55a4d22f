// Host array operations that the gateway is written against. Each host (the
// built-in one, GNU Octave) supplies its own definitions; the gateway never looks
// inside an hvArray except through these functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

// Opaque host array: a class, at least two dimensions, column-order storage.
struct hvArray;

// Array classes, with the host's numeric values.
enum hvClassID : int {
    hvUNKNOWN_CLASS = 0,
    hvCELL_CLASS = 1,
    hvSTRUCT_CLASS = 2,
    hvLOGICAL_CLASS = 3,
    hvCHAR_CLASS = 4,
    hvVOID_CLASS = 5,
    hvDOUBLE_CLASS = 6,
    hvSINGLE_CLASS = 7,
    hvINT8_CLASS = 8,
    hvUINT8_CLASS = 9,
    hvINT16_CLASS = 10,
    hvUINT16_CLASS = 11,
    hvINT32_CLASS = 12,
    hvUINT32_CLASS = 13,
    hvINT64_CLASS = 14,
    hvUINT64_CLASS = 15,
    hvFUNCTION_CLASS = 16,
};

enum hvComplexity : int { hvREAL = 0, hvCOMPLEX = 1 };

using hvLogical = bool;

namespace matrix {
void destroyArray(hvArray* array) noexcept;

namespace detail {
struct hvDestroy_deleter {
    void operator()(hvArray* array) const noexcept { matrix::destroyArray(array); }
};
}  // namespace detail

// Owning pointer to a host array; moving it into an output slot hands it to the host.
using array_ptr = std::unique_ptr<hvArray, detail::hvDestroy_deleter>;

namespace detail {
// Zero-filled numeric (or logical) array.
array_ptr do_create_numeric(std::span<const std::size_t> dims, hvClassID classId,
                            hvComplexity complexity);
// Numeric array whose elements the caller fills completely.
array_ptr do_create_uninitnumeric(std::span<const std::size_t> dims, hvClassID classId,
                                  hvComplexity complexity);
// Cell array of empty cells.
array_ptr do_create_cell(std::span<const std::size_t> dims);
// Character array of the given shape filled with NUL characters.
array_ptr do_create_char(std::span<const std::size_t> dims);
}  // namespace detail

// 1-by-length character array holding the bytes of the text.
array_ptr create(const char* text, std::size_t length);

// The array's characters as UTF-16 units (empty for a non-character array).
std::u16string get_ustring(const hvArray* array);
}  // namespace matrix

hvClassID hvGetClassID(const hvArray* array);
const char* hvGetClassName(const hvArray* array);
std::size_t hvGetNumberOfElements(const hvArray* array);
std::size_t hvGetNumberOfDimensions(const hvArray* array);
const std::size_t* hvGetDimensions(const hvArray* array);
// Bytes per element: 8 for double, 1 for logical, 1 or 2 for characters (host-dependent).
std::size_t hvGetElementSize(const hvArray* array);
// First element of the storage, of the element type of the array's class.
void* hvGetData(const hvArray* array);
hvLogical* hvGetLogicals(const hvArray* array);
bool hvIsComplex(const hvArray* array);

// Stores element at a zero-based linear index of a cell array, taking ownership.
void hvSetCell(hvArray* cell, std::size_t index, matrix::array_ptr element);
// Cell element at a zero-based linear index, or null when it is empty.
const hvArray* hvGetCell(const hvArray* cell, std::size_t index);

// NUL-terminated copy of a character array's text (null for any other class);
// release it with hvFree.
char* hvArrayToString(const hvArray* array);
void* hvMalloc(std::size_t size);
void hvFree(void* pointer) noexcept;

// Typed access helper for the gateway's own use.
template <typename T>
T* hvGetTypedData(const hvArray* array) {
    return static_cast<T*>(hvGetData(array));
}
