// VAX F, D and G floats read as IEEE: the stored bytes of the reference library's
// encoding samples, the edge patterns of the formats, and a model built on ldexp.
#include "encoding/vax_float.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using cdfgate::engine::encoding::vax_d_bits_to_ieee;
using cdfgate::engine::encoding::vax_d_to_ieee;
using cdfgate::engine::encoding::vax_f_bits_to_ieee;
using cdfgate::engine::encoding::vax_f_to_ieee;
using cdfgate::engine::encoding::vax_g_bits_to_ieee;
using cdfgate::engine::encoding::vax_g_to_ieee;

std::vector<std::uint8_t> from_hex(const std::string& hex) {
    std::vector<std::uint8_t> out;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        out.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return out;
}

std::uint32_t float_bits(float f) {
    return std::bit_cast<std::uint32_t>(f);
}
std::uint64_t double_bits(double d) {
    return std::bit_cast<std::uint64_t>(d);
}

// The bits of element i of a converted array of 4- or 8-byte values.
template <typename Bits>
Bits bits_at(const std::vector<std::uint8_t>& bytes, std::size_t i) {
    Bits u;
    std::memcpy(&u, bytes.data() + sizeof(Bits) * i, sizeof(Bits));
    return u;
}

// Bytes as stored in encoding_vax.cdf (F, D) / encoding_alphavmsg.cdf (F, G) and
// the values written to them. Each format's rows convert as one array, in place.
struct Stored {
    const char* hex;
    double value;
};

const Stored kF[] = {{"80400000", 1.0f},
                     {"20C10000", -2.5f},
                     {"820020AB", 3.0e-39f},
                     {"4972CAF2", 1.0e30f},
                     {"49F2CAF2", -1.0e30f}};
const Stored kD[] = {
    {"8040000000000000", 1.0},
    {"20C1000000000000", -2.5},
    {"8000000000000000", 2.9387358770557188e-39},  // D minimum from 1.0e-300
    {"CC3ECCCCCCCCD0CC", 0.1},
    {"6557679B30500000", 63113904000000.0},
    {"6B521B1E00F80000", 63113904000.0},
    {"49F2C9F204CD5067", -1.0e30},
};
const Stored kG[] = {
    {"1040000000000000", 1.0},
    {"24C0000000000000", -2.5},
    {"C5011F6EF8C259F3", 1.0e-300},
    {"D93F999999999A99", 0.1},
    {"EC426CB306EA0000", 63113904000000.0},
    {"4D42C363007F0000", 63113904000.0},
    {"49C6593EA039EA8C", -1.0e30},
};

template <std::size_t N>
std::vector<std::uint8_t> joined(const Stored (&rows)[N]) {
    std::string hex;
    for (const Stored& row : rows) hex += row.hex;
    return from_hex(hex);
}

TEST(VaxFloat, StoredSamplesReadBackExactlyAsArrays) {
    auto f = joined(kF);
    vax_f_to_ieee(f.data(), std::size(kF));
    for (std::size_t i = 0; i < std::size(kF); ++i) {
        EXPECT_EQ(bits_at<std::uint32_t>(f, i), float_bits(static_cast<float>(kF[i].value)))
            << kF[i].hex;
    }
    const struct {
        const Stored* rows;
        std::size_t n;
        std::vector<std::uint8_t> bytes;
        void (*convert)(std::uint8_t*, std::size_t);
    } doubles[] = {{kD, std::size(kD), joined(kD), vax_d_to_ieee},
                   {kG, std::size(kG), joined(kG), vax_g_to_ieee}};
    for (auto d : doubles) {
        d.convert(d.bytes.data(), d.n);
        for (std::size_t i = 0; i < d.n; ++i) {
            EXPECT_EQ(bits_at<std::uint64_t>(d.bytes, i), double_bits(d.rows[i].value))
                << d.rows[i].hex;
        }
    }
}

TEST(VaxFloat, ZeroExponentsGiveZerosAndReservedOperandsNegativeZero) {
    EXPECT_EQ(vax_f_bits_to_ieee(0x00000000u), 0x00000000u);
    EXPECT_EQ(vax_f_bits_to_ieee(0x0000ABCDu), 0x00000000u);  // dirty zero
    EXPECT_EQ(vax_f_bits_to_ieee(0x80000000u), 0x80000000u);
    EXPECT_EQ(vax_f_bits_to_ieee(0x807FFFFFu), 0x80000000u);
    EXPECT_EQ(vax_d_bits_to_ieee(0x0000000000001234ULL), 0ULL);
    EXPECT_EQ(vax_d_bits_to_ieee(0x8000000000000001ULL), 0x8000000000000000ULL);
    EXPECT_EQ(vax_g_bits_to_ieee(0x000FFFFFFFFFFFFFULL), 0ULL);
    EXPECT_EQ(vax_g_bits_to_ieee(0x8000000000000000ULL), 0x8000000000000000ULL);
}

TEST(VaxFloat, ExtremeMagnitudesStayFinite) {
    // Smallest F and G magnitudes become IEEE subnormals; the largest stay normal.
    EXPECT_EQ(vax_f_bits_to_ieee(0x00800000u), float_bits(std::ldexp(1.0f, -128)));
    EXPECT_EQ(vax_f_bits_to_ieee(0x80800000u), float_bits(-std::ldexp(1.0f, -128)));
    EXPECT_EQ(vax_f_bits_to_ieee(0x7FFFFFFFu), 0x7EFFFFFFu);
    EXPECT_EQ(vax_g_bits_to_ieee(0x0010000000000000ULL), double_bits(std::ldexp(1.0, -1024)));
    EXPECT_EQ(vax_g_bits_to_ieee(0x7FFFFFFFFFFFFFFFULL), 0x7FDFFFFFFFFFFFFFULL);
    EXPECT_EQ(vax_d_bits_to_ieee(0x7FFFFFFFFFFFFFFFULL), 0x47DFFFFFFFFFFFFFULL);
}

// The value a VAX pattern stands for, computed in wider arithmetic and rounded once.
float f_model(std::uint32_t v) {
    const int e = static_cast<int>((v >> 23) & 0xFF);
    const double mag = std::ldexp(1.0 + (v & 0x7FFFFF) / 8388608.0, e - 129);
    return static_cast<float>((v >> 31) ? -mag : mag);
}

double g_model(std::uint64_t v) {
    const int e = static_cast<int>((v >> 52) & 0x7FF);
    const double frac = static_cast<double>(v & 0xFFFFFFFFFFFFFULL) / 4503599627370496.0;
    const double mag = std::ldexp(1.0 + frac, e - 1025);
    return (v >> 63) ? -mag : mag;
}

double d_model(std::uint64_t v) {
    const int e = static_cast<int>((v >> 55) & 0xFF);
    // 55 fraction bits: keep the top 52 (truncation) before scaling.
    const std::uint64_t f52 = (v & ((1ULL << 55) - 1)) >> 3;
    const double mag = std::ldexp(1.0 + static_cast<double>(f52) / 4503599627370496.0, e - 129);
    return (v >> 63) ? -mag : mag;
}

TEST(VaxFloat, EveryExponentMatchesTheArithmeticModel) {
    std::mt19937_64 rng(12345);
    for (std::uint32_t e = 1; e < 256; ++e) {
        for (int k = 0; k < 64; ++k) {
            const auto frac = static_cast<std::uint32_t>(rng()) & 0x7FFFFF;
            const std::uint32_t sign = (k & 1) ? 0x80000000u : 0;
            const std::uint32_t v = sign | (e << 23) | frac;
            ASSERT_EQ(vax_f_bits_to_ieee(v), float_bits(f_model(v))) << std::hex << v;
        }
    }
    for (std::uint64_t e = 1; e < 2048; ++e) {
        for (int k = 0; k < 16; ++k) {
            const std::uint64_t sign = (k & 1) ? (1ULL << 63) : 0;
            const std::uint64_t v = sign | (e << 52) | (rng() & 0xFFFFFFFFFFFFFULL);
            ASSERT_EQ(vax_g_bits_to_ieee(v), double_bits(g_model(v))) << std::hex << v;
        }
    }
    for (std::uint64_t e = 1; e < 256; ++e) {
        for (int k = 0; k < 16; ++k) {
            const std::uint64_t sign = (k & 1) ? (1ULL << 63) : 0;
            const std::uint64_t v = sign | (e << 55) | (rng() & ((1ULL << 55) - 1));
            ASSERT_EQ(vax_d_bits_to_ieee(v), double_bits(d_model(v))) << std::hex << v;
        }
    }
}

TEST(VaxFloat, SubnormalResultsRoundToNearestEven) {
    // F exponent 2 halves the significand: odd fractions sit exactly half-way.
    // Exponent 1 quarters it: remainders below, at and above half.
    const std::pair<std::uint32_t, std::uint32_t> rows[] = {
        {2, 0}, {2, 1}, {2, 2}, {2, 3}, {2, 5}, {2, 0x7FFFFF},
        {1, 1}, {1, 2}, {1, 3}, {1, 6}, {1, 7}, {1, 0x7FFFFF}};
    for (const auto& [exponent, frac] : rows) {
        const std::uint32_t v = (exponent << 23) | frac;
        EXPECT_EQ(vax_f_bits_to_ieee(v), float_bits(f_model(v))) << exponent << "/" << frac;
    }
}

}  // namespace
