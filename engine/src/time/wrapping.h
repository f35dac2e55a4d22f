// Integer and conversion arithmetic of the time functions. Results must match
// compiled C on x86-64 bit for bit: 64-bit sums and products wrap, and a float that
// does not fit the target integer converts to the "integer indefinite" value.
#pragma once

#include <cstdint>
#include <limits>

namespace cdfgate::engine::time {

using i64 = std::int64_t;

inline constexpr i64 kInt64Min = std::numeric_limits<i64>::min();

constexpr i64 wrapAdd(i64 a, i64 b) {
    return static_cast<i64>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}

constexpr i64 wrapSub(i64 a, i64 b) {
    return static_cast<i64>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}

constexpr i64 wrapMul(i64 a, i64 b) {
    return static_cast<i64>(static_cast<std::uint64_t>(a) * static_cast<std::uint64_t>(b));
}

// Truncating double -> int64; NaN and out-of-range give INT64_MIN.
constexpr i64 toInt64(double x) {
    if (!(x >= -9223372036854775808.0 && x < 9223372036854775808.0)) return kInt64Min;
    return static_cast<i64>(x);
}

// Truncating double -> int32; NaN and out-of-range give INT32_MIN.
constexpr std::int32_t toInt32(double x) {
    if (!(x > -2147483649.0 && x < 2147483648.0)) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(x);
}

constexpr double toDouble(i64 i) {
    return static_cast<double>(i);
}

}  // namespace cdfgate::engine::time
