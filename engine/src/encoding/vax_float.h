// VAX floating-point formats (F: 4 bytes; D and G: 8 bytes) converted to IEEE 754
// in place. Stored VAX values are 16-bit little-endian words, most significant word
// first. Each function converts count values with no per-element call and no
// branch on the data, so the loops vectorise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace cdfgate::engine::encoding {

// F_FLOAT to IEEE single (host byte order). Exact where IEEE can hold the value;
// the two smallest binades become IEEE subnormals, rounded to nearest even.
void vax_f_to_ieee(std::uint8_t* data, std::size_t count);
// D_FLOAT to IEEE double: the three lowest fraction bits are dropped (truncation).
void vax_d_to_ieee(std::uint8_t* data, std::size_t count);
// G_FLOAT to IEEE double: exact, the two smallest binades as subnormals.
void vax_g_to_ieee(std::uint8_t* data, std::size_t count);

// Single-value forms of the same conversions, on the value's bits as stored (already
// assembled from its words: sign in the top bit). Reserved operands (sign set,
// exponent 0) give -0.0, other zero exponents +0.0.
std::uint32_t vax_f_bits_to_ieee(std::uint32_t vax);
std::uint64_t vax_d_bits_to_ieee(std::uint64_t vax);
std::uint64_t vax_g_bits_to_ieee(std::uint64_t vax);

}  // namespace cdfgate::engine::encoding
