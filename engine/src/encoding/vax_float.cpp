#include "encoding/vax_float.h"

#include <bit>
#include <cstring>

namespace cdfgate::engine::encoding {
namespace {

std::uint32_t load_le32(const std::uint8_t* p) {
    std::uint32_t x;
    std::memcpy(&x, p, 4);
    if constexpr (std::endian::native == std::endian::big) x = __builtin_bswap32(x);
    return x;
}

std::uint64_t load_le64(const std::uint8_t* p) {
    std::uint64_t x;
    std::memcpy(&x, p, 8);
    if constexpr (std::endian::native == std::endian::big) x = __builtin_bswap64(x);
    return x;
}

// Stored words come most significant first: swap the two 16-bit halves.
std::uint32_t words_to_bits(std::uint32_t x) {
    return (x << 16) | (x >> 16);
}

std::uint64_t words_to_bits(std::uint64_t x) {
    x = ((x & 0x0000FFFF0000FFFFULL) << 16) | ((x >> 16) & 0x0000FFFF0000FFFFULL);
    return (x << 32) | (x >> 32);
}

// Shifts the significand (hidden bit included) right by 1 or 2 places, rounding to
// nearest even: the value of the two lowest binades as an IEEE subnormal.
template <typename U>
U subnormal(U significand, U shift) {
    const U quotient = significand >> shift;
    const U rest = significand & ((U{1} << shift) - 1);
    const U half = U{1} << (shift - 1);
    const U round_up = static_cast<U>((rest > half) | ((rest == half) & (quotient & 1)));
    return quotient + round_up;
}

template <typename U, int kFracBits, int kExpBits>
U vax_exact_to_ieee(U v) {
    constexpr U kSign = U{1} << (kFracBits + kExpBits);
    constexpr U kFracMask = (U{1} << kFracBits) - 1;
    constexpr U kExpMask = (U{1} << kExpBits) - 1;
    const U sign = v & kSign;
    const U e = (v >> kFracBits) & kExpMask;
    const U normal = v - (U{2} << kFracBits);
    const U shift = e == 1 ? U{2} : U{1};
    const U small = sign | subnormal<U>((v & kFracMask) | (U{1} << kFracBits), shift);
    return e == 0 ? sign : (e < 3 ? small : normal);
}

}  // namespace

std::uint32_t vax_f_bits_to_ieee(std::uint32_t vax) {
    return vax_exact_to_ieee<std::uint32_t, 23, 8>(vax);
}

std::uint64_t vax_g_bits_to_ieee(std::uint64_t vax) {
    return vax_exact_to_ieee<std::uint64_t, 52, 11>(vax);
}

std::uint64_t vax_d_bits_to_ieee(std::uint64_t vax) {
    const std::uint64_t sign = vax & (1ULL << 63);
    const std::uint64_t e = (vax >> 55) & 0xFF;
    const std::uint64_t fraction = vax & ((1ULL << 55) - 1);
    const std::uint64_t normal = sign | ((e + 894) << 52) | (fraction >> 3);
    return e == 0 ? sign : normal;
}

void vax_f_to_ieee(std::uint8_t* data, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t bits = vax_f_bits_to_ieee(words_to_bits(load_le32(data + 4 * i)));
        std::memcpy(data + 4 * i, &bits, 4);
    }
}

void vax_d_to_ieee(std::uint8_t* data, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t bits = vax_d_bits_to_ieee(words_to_bits(load_le64(data + 8 * i)));
        std::memcpy(data + 8 * i, &bits, 8);
    }
}

void vax_g_to_ieee(std::uint8_t* data, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t bits = vax_g_bits_to_ieee(words_to_bits(load_le64(data + 8 * i)));
        std::memcpy(data + 8 * i, &bits, 8);
    }
}

}  // namespace cdfgate::engine::encoding
