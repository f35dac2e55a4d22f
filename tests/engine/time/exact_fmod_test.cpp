// The fast remainder must agree with std::fmod bit for bit on everything it is given.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "time/exact_fmod.h"
#include "time_vectors.h"

namespace {

using cdfgate::engine::time::exactFmod;
using cdfgate::test::sameDouble;

TEST(ExactFmod, AgreesWithFmodOnRandomBitPatternsAndMagnitudes) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> exponent(-60.0, 70.0);
    for (const std::uint64_t divisor : {24u, 60u, 1000u}) {
        const auto d = static_cast<double>(divisor);
        for (int i = 0; i < 300000; ++i) {
            const double byBits = std::bit_cast<double>(random());
            const double byMagnitude =
                (random() & 1 ? -1.0 : 1.0) * std::exp2(exponent(random)) * (1.0 + 1e-3 * (i % 7));
            for (const double x : {byBits, byMagnitude, std::floor(byMagnitude)}) {
                ASSERT_TRUE(sameDouble(std::fmod(x, d), exactFmod(x, divisor)))
                    << x << " mod " << divisor;
            }
        }
    }
}

TEST(ExactFmod, AgreesWithFmodOnSpecialValues) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    const double kNan = std::nan("");
    // clang-format off
    const double cases[] = {0.0, -0.0, 24.0, -24.0, 59.999999999999993, 60.0, 0x1p62, -0x1p62,
                            0x1p62 - 1024, 1e300, kInf, -kInf, kNan, 4.9e-324, 0x1p-1074,
                            86399.999999999985, 999.99999999999989, 0x1p52 + 1, 0x1p53 - 1};
    // clang-format on
    for (const std::uint64_t divisor : {24u, 60u, 1000u}) {
        for (const double x : cases) {
            EXPECT_TRUE(
                sameDouble(std::fmod(x, static_cast<double>(divisor)), exactFmod(x, divisor)))
                << x << " mod " << divisor;
        }
    }
}

}  // namespace
