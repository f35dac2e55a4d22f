// Embedding cdfgate in a C++ program: host arrays as values, and calls of cdflib.
//
//   using cdfgate::embedded::Array;
//   auto id = cdfgate::embedded::call("open", {Array::text("data.cdf")})[0];
//   double n = cdfgate::embedded::call("getNumgAttributes", {id})[0].scalarValue();
//
// Errors arrive as cdfgate::embedded::HostError; warnings are kept in warnings().
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cdfgate/host_error.h"
#include "hv/array.h"

namespace cdfgate::embedded {

namespace detail {
template <typename T>
struct ClassOf;
template <>
struct ClassOf<double> {
    static constexpr hvClassID value = hvDOUBLE_CLASS;
};
template <>
struct ClassOf<float> {
    static constexpr hvClassID value = hvSINGLE_CLASS;
};
template <>
struct ClassOf<std::int8_t> {
    static constexpr hvClassID value = hvINT8_CLASS;
};
template <>
struct ClassOf<std::uint8_t> {
    static constexpr hvClassID value = hvUINT8_CLASS;
};
template <>
struct ClassOf<std::int16_t> {
    static constexpr hvClassID value = hvINT16_CLASS;
};
template <>
struct ClassOf<std::uint16_t> {
    static constexpr hvClassID value = hvUINT16_CLASS;
};
template <>
struct ClassOf<std::int32_t> {
    static constexpr hvClassID value = hvINT32_CLASS;
};
template <>
struct ClassOf<std::uint32_t> {
    static constexpr hvClassID value = hvUINT32_CLASS;
};
template <>
struct ClassOf<std::int64_t> {
    static constexpr hvClassID value = hvINT64_CLASS;
};
template <>
struct ClassOf<std::uint64_t> {
    static constexpr hvClassID value = hvUINT64_CLASS;
};
template <>
struct ClassOf<bool> {
    static constexpr hvClassID value = hvLOGICAL_CLASS;
};
template <>
struct ClassOf<char16_t> {
    static constexpr hvClassID value = hvCHAR_CLASS;
};
}  // namespace detail

// Element types with a host class: the numeric types, bool (logical) and char16_t (char).
template <typename T>
concept HostElement = requires {
    detail::ClassOf<T>::value;
};

// A host array owned by value. Copies are deep; a moved-from or default-constructed
// Array holds no array, and its accessors throw std::logic_error.
class Array {
  public:
    Array() = default;
    // Takes ownership of an array made by the host operations.
    explicit Array(matrix::array_ptr array) noexcept : array_(std::move(array)) {}
    // Deep copy of an array the caller keeps (null gives an Array without array).
    static Array copyOf(const hvArray* array);
    Array(const Array& other);
    Array& operator=(const Array& other);
    Array(Array&&) noexcept = default;
    Array& operator=(Array&&) noexcept = default;
    ~Array() = default;

    // 1-by-1 arrays.
    static Array scalar(double value);
    static Array int64(std::int64_t value);
    static Array uint64(std::uint64_t value);
    // 1-by-N character array. Bytes 0x80..0xFF become units 0xFF80..0xFFFF (sign
    // extension, as the host converts char text); pass UTF-16 for other characters.
    static Array text(std::string_view bytes);
    static Array text(std::u16string_view units);
    // Numeric, logical or character array; dims default to 1-by-N and must hold
    // exactly the given number of values (std::invalid_argument otherwise).
    template <HostElement T>
    static Array of(std::span<const T> values, std::vector<std::size_t> dims = {});
    template <HostElement T>
    static Array of(std::initializer_list<T> values, std::vector<std::size_t> dims = {}) {
        return of<T>(std::span<const T>(values.begin(), values.size()), std::move(dims));
    }
    static Array logical(std::initializer_list<bool> values, std::vector<std::size_t> dims = {}) {
        return of<bool>(values, std::move(dims));
    }
    // Cell array holding the elements (moved in; an Array without array leaves its
    // cell empty); dims default to 1-by-N.
    static Array cell(std::vector<Array> elements, std::vector<std::size_t> dims = {});
    // Zero-filled (numeric, logical), NUL-filled (char) or all-empty (cell) array.
    static Array zeros(hvClassID classId, std::vector<std::size_t> dims);
    // 0-by-0 array of the class.
    static Array empty(hvClassID classId = hvDOUBLE_CLASS) { return zeros(classId, {0, 0}); }

    bool hasArray() const noexcept { return array_ != nullptr; }
    const hvArray* get() const noexcept { return array_.get(); }
    hvArray* get() noexcept { return array_.get(); }
    matrix::array_ptr release() noexcept { return std::move(array_); }

    hvClassID classId() const;
    std::string className() const;
    std::vector<std::size_t> dims() const;
    std::size_t numel() const;
    bool isEmpty() const { return numel() == 0; }

    // The elements in column order; T must match the class (std::logic_error otherwise).
    template <HostElement T>
    std::span<T> data() {
        return {static_cast<T*>(checkedData(detail::ClassOf<T>::value)), numel()};
    }
    template <HostElement T>
    std::span<const T> data() const {
        return {static_cast<const T*>(checkedData(detail::ClassOf<T>::value)), numel()};
    }

    // Text of a character array: every unit narrowed to its low byte (std::logic_error
    // for another class).
    std::string text() const;
    std::u16string utext() const;
    // Copy of a cell's element at a zero-based linear index; an empty cell gives a
    // 0-by-0 double, as the host shows it.
    Array cell(std::size_t index) const;
    // The single element of a 1-by-1 numeric, logical or character array as a double.
    double scalarValue() const;

    // Same class, shape and element bits, cells compared element by element.
    friend bool operator==(const Array& left, const Array& right);

  private:
    const hvArray& checked() const;
    void* checkedData(hvClassID classId) const;
    static Array fromBytes(hvClassID classId, const void* values, std::size_t count,
                           std::vector<std::size_t> dims);

    matrix::array_ptr array_;
};

// Short description for diagnostics and test failures: shape, class and the first
// elements, e.g. 1x3 double [1 2 3] or 1x2 cell {1x1 double [1], 1x3 char 'abc'}.
std::ostream& operator<<(std::ostream& out, const Array& array);

template <HostElement T>
Array Array::of(std::span<const T> values, std::vector<std::size_t> dims) {
    return fromBytes(detail::ClassOf<T>::value, values.data(), values.size(), std::move(dims));
}

// Calls cdflib with the command name and its arguments, asking for nlhs results.
// Returns the results in slot order, up to the first slot the command left unset (so
// a command without results gives an empty vector). Errors are HostError exceptions.
// Needs the gateway linked in.
std::vector<Array> call(std::string_view command, std::vector<Array> arguments = {}, int nlhs = 1);
// The same with every input as the host passes it, command name included, so that a
// program can pass a first input that is not text, or none at all.
std::vector<Array> callWithInputs(std::span<const Array> inputs, int nlhs = 1);

}  // namespace cdfgate::embedded
