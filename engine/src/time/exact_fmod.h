// fmod for the small whole divisors of the time functions (24, 60, 1000), exact like
// std::fmod but without its bit-by-bit loop, which dominated the breakdowns.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace cdfgate::engine::time {

// Same result as std::fmod(x, divisor) for a whole divisor in [1, 1024].
inline double exactFmod(double x, std::uint64_t divisor) {
    const double magnitude = std::fabs(x);
    const auto d = static_cast<double>(divisor);
    if (!(magnitude < 0x1p62)) return std::fmod(x, d);  // NaN, infinities, huge values
    if (magnitude < d) return x;
    // magnitude = mantissa * 2^exponent exactly; it is at least 1, hence normal.
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(magnitude);
    const int exponent = static_cast<int>(bits >> 52) - 1075;
    const std::uint64_t mantissa =
        (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
    double rest = 0.0;
    if (exponent >= 0) {
        rest = static_cast<double>((mantissa << exponent) % divisor);
    } else {
        // The remainder modulo divisor * 2^-exponent, scaled back: exact, as fmod is.
        const std::uint64_t scaled = mantissa % (divisor << -exponent);
        const double scale =
            std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
        rest = static_cast<double>(scaled) * scale;
    }
    return std::signbit(x) ? -rest : rest;
}

}  // namespace cdfgate::engine::time
