#include <algorithm>
#include <cstring>

#include "array_storage.h"
#include "cdfgate/embedded.h"

namespace cdfgate::embedded {
namespace {

std::vector<std::size_t> rowShape(std::vector<std::size_t> dims, std::size_t count) {
    if (dims.empty()) return {1, count};
    return dims;
}

void requireCount(std::size_t given, std::span<const std::size_t> dims) {
    const std::size_t expected = detail::elementCount(dims);
    if (given != expected) {
        throw std::invalid_argument(std::to_string(given) + " values do not fill " +
                                    std::to_string(expected) + " elements");
    }
}

}  // namespace

Array::Array(const Array& other) : array_(copyOf(other.get()).release()) {}

Array& Array::operator=(const Array& other) {
    if (this != &other) array_ = copyOf(other.get()).release();
    return *this;
}

Array Array::copyOf(const hvArray* array) {
    return array ? Array(detail::duplicate(*array)) : Array();
}

Array Array::scalar(double value) {
    return of<double>({value});
}

Array Array::int64(std::int64_t value) {
    return of<std::int64_t>({value});
}

Array Array::uint64(std::uint64_t value) {
    return of<std::uint64_t>({value});
}

Array Array::text(std::string_view bytes) {
    return Array(matrix::create(bytes.data(), bytes.size()));
}

Array Array::text(std::u16string_view units) {
    return of<char16_t>(std::span<const char16_t>(units.data(), units.size()));
}

Array Array::fromBytes(hvClassID classId, const void* values, std::size_t count,
                       std::vector<std::size_t> dims) {
    dims = rowShape(std::move(dims), count);
    requireCount(count, dims);
    matrix::array_ptr array = detail::allocate(classId, dims, false);
    if (count != 0) std::memcpy(array->bytes.get(), values, count * detail::elementSize(classId));
    return Array(std::move(array));
}

Array Array::cell(std::vector<Array> elements, std::vector<std::size_t> dims) {
    dims = rowShape(std::move(dims), elements.size());
    requireCount(elements.size(), dims);
    Array result(matrix::detail::do_create_cell(dims));
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (elements[i].hasArray()) hvSetCell(result.get(), i, elements[i].release());
    }
    return result;
}

Array Array::zeros(hvClassID classId, std::vector<std::size_t> dims) {
    switch (classId) {
        case hvCELL_CLASS:
            return Array(matrix::detail::do_create_cell(dims));
        case hvCHAR_CLASS:
            return Array(matrix::detail::do_create_char(dims));
        default:
            return Array(matrix::detail::do_create_numeric(dims, classId, hvREAL));
    }
}

const hvArray& Array::checked() const {
    if (!array_) throw std::logic_error("the Array holds no array");
    return *array_;
}

void* Array::checkedData(hvClassID classId) const {
    const hvArray& array = checked();
    if (array.classId != classId) {
        throw std::logic_error(std::string("element type does not match an array of class ") +
                               hvGetClassName(&array));
    }
    return hvGetData(&array);
}

hvClassID Array::classId() const {
    return hvGetClassID(&checked());
}

std::string Array::className() const {
    return hvGetClassName(&checked());
}

std::vector<std::size_t> Array::dims() const {
    return checked().dims;
}

std::size_t Array::numel() const {
    return hvGetNumberOfElements(&checked());
}

std::string Array::text() const {
    const std::span<const char16_t> units = data<char16_t>();
    std::string bytes(units.size(), '\0');
    std::transform(units.begin(), units.end(), bytes.begin(),
                   [](char16_t unit) { return static_cast<char>(unit & 0xFF); });
    return bytes;
}

std::u16string Array::utext() const {
    const std::span<const char16_t> units = data<char16_t>();
    return std::u16string(units.begin(), units.end());
}

Array Array::cell(std::size_t index) const {
    const hvArray* const element = hvGetCell(&checked(), index);
    return element ? copyOf(element) : empty();
}

double Array::scalarValue() const {
    const hvArray& array = checked();
    if (array.count != 1) {
        throw std::logic_error("scalarValue of an array of " + std::to_string(array.count) +
                               " elements");
    }
    switch (array.classId) {
        case hvDOUBLE_CLASS:
            return data<double>()[0];
        case hvSINGLE_CLASS:
            return data<float>()[0];
        case hvINT8_CLASS:
            return data<std::int8_t>()[0];
        case hvUINT8_CLASS:
            return data<std::uint8_t>()[0];
        case hvINT16_CLASS:
            return data<std::int16_t>()[0];
        case hvUINT16_CLASS:
            return data<std::uint16_t>()[0];
        case hvINT32_CLASS:
            return data<std::int32_t>()[0];
        case hvUINT32_CLASS:
            return data<std::uint32_t>()[0];
        case hvINT64_CLASS:
            return static_cast<double>(data<std::int64_t>()[0]);
        case hvUINT64_CLASS:
            return static_cast<double>(data<std::uint64_t>()[0]);
        case hvLOGICAL_CLASS:
            return data<bool>()[0] ? 1.0 : 0.0;
        case hvCHAR_CLASS:
            return data<char16_t>()[0];
        default:
            throw std::logic_error(std::string("scalarValue of an array of class ") +
                                   hvGetClassName(&array));
    }
}

bool operator==(const Array& left, const Array& right) {
    if (!left.array_ || !right.array_) return !left.array_ && !right.array_;
    return detail::deepEqual(*left.array_, *right.array_);
}

}  // namespace cdfgate::embedded
