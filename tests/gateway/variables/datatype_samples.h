// One sample per supported datatype: the element count a variable of it is created
// with, and host values of the right class with distinctive bit patterns.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {

struct DatatypeSample {
    const char* name;
    long datatype;
    long numElements;
    // Host values of n consecutive elements of the variable, each value a column
    // (two doubles for EPOCH16, numElements characters for the text types).
    Array (*values)(std::size_t n);
};

template <typename T>
Array sequence(std::size_t n, T first, T step, std::size_t rows = 1) {
    std::vector<T> values(n * rows);
    T value = first;
    for (T& v : values) {
        v = value;
        value = static_cast<T>(value + step);
    }
    return Array::of<T>(std::span<const T>(values), {rows, n});
}

inline Array textColumns(std::size_t n, std::size_t length) {
    std::u16string units(n * length, u' ');
    for (std::size_t i = 0; i < units.size(); ++i) {
        // Cycles through letters and a byte above 0x7F, which reads back sign-extended.
        units[i] = i % 7 == 3 ? char16_t{0xFFE9} : static_cast<char16_t>(u'a' + i % 26);
    }
    Array array = Array::zeros(hvCHAR_CLASS, {length, n});
    std::copy(units.begin(), units.end(), array.data<char16_t>().begin());
    return array;
}

inline const std::vector<DatatypeSample>& datatypeSamples() {
    using std::size_t;
    // clang-format off
    static const std::vector<DatatypeSample> samples{
        {"CDF_INT1", CDF_INT1, 1, [](size_t n) { return sequence<std::int8_t>(n, -128, 37); }},
        {"CDF_INT2", CDF_INT2, 1, [](size_t n) { return sequence<std::int16_t>(n, -32768, 4099); }},
        {"CDF_INT4", CDF_INT4, 1, [](size_t n) { return sequence<std::int32_t>(n, -2147483647, 123456789); }},
        {"CDF_INT8", CDF_INT8, 1, [](size_t n) {
             return sequence<std::int64_t>(n, std::numeric_limits<std::int64_t>::min(), 0x0102030405060708); }},
        {"CDF_UINT1", CDF_UINT1, 1, [](size_t n) { return sequence<std::uint8_t>(n, 255, 201); }},
        {"CDF_UINT2", CDF_UINT2, 1, [](size_t n) { return sequence<std::uint16_t>(n, 65535, 40001); }},
        {"CDF_UINT4", CDF_UINT4, 1, [](size_t n) { return sequence<std::uint32_t>(n, 4294967295u, 3000000001u); }},
        {"CDF_REAL4", CDF_REAL4, 1, [](size_t n) { return sequence<float>(n, -1.5e-39f, 2.75f); }},
        {"CDF_REAL8", CDF_REAL8, 1, [](size_t n) { return sequence<double>(n, 0.1, -1e300); }},
        {"CDF_EPOCH", CDF_EPOCH, 1, [](size_t n) { return sequence<double>(n, 63113904000000.0, 1000.5); }},
        {"CDF_EPOCH16", CDF_EPOCH16, 1, [](size_t n) { return sequence<double>(n, 63113904000.0, 0.25, 2); }},
        {"CDF_TIME_TT2000", CDF_TIME_TT2000, 1, [](size_t n) { return sequence<std::int64_t>(n, -4e18, 1234567890123); }},
        {"CDF_BYTE", CDF_BYTE, 1, [](size_t n) { return sequence<std::int8_t>(n, 127, -3); }},
        {"CDF_FLOAT", CDF_FLOAT, 1, [](size_t n) { return sequence<float>(n, 3e38f, -1e37f); }},
        {"CDF_DOUBLE", CDF_DOUBLE, 1, [](size_t n) { return sequence<double>(n, -0.0, 1e-310); }},
        {"CDF_CHAR", CDF_CHAR, 5, [](size_t n) { return textColumns(n, 5); }},
        {"CDF_UCHAR", CDF_UCHAR, 1, [](size_t n) { return textColumns(n, 1); }},
    };
    // clang-format on
    return samples;
}

// The values reshaped, same class and elements.
inline Array reshaped(const Array& values, std::vector<std::size_t> dims) {
    Array result = Array::zeros(values.classId(), std::move(dims));
    if (result.numel() != values.numel()) throw std::invalid_argument("reshape changes the count");
    if (values.numel() != 0) {
        std::memcpy(hvGetData(result.get()), hvGetData(values.get()),
                    values.numel() * hvGetElementSize(values.get()));
    }
    return result;
}

}  // namespace cdfgate::testing
