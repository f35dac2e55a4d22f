// TT2000 conversions are exact inverses outside the drifting 1960-1971 era: random
// calendar times across the whole range, random values, and every leap second.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <random>

#include "time/leap_second_table.h"
#include "time_parts.h"
#include "time_vectors.h"

namespace {

using Parts = cdfgate::test::Tt2000Parts;
namespace et = cdfgate::engine::time;

long long encode(const Parts& p) {
    return cdfgate::test::encodeTT2000(p);
}
Parts decode(long long t) {
    return cdfgate::test::decodeTT2000(t);
}

constexpr long long kFirstOrdinary = std::numeric_limits<long long>::min() + 4;
constexpr long long kLast = std::numeric_limits<long long>::max();
constexpr long long kStart1960 = -1262347166871870000;  // TAI-UTC starts drifting
constexpr long long kStart1972 = -883655957816000000;   // whole leap seconds from here

bool inDriftEra(long long t) {
    return t >= kStart1960 - 2000000000 && t < kStart1972;
}

TEST(Tt2000RoundTrip, RandomCalendarTimesAcrossTheRange) {
    std::mt19937_64 random(1707);
    int checked = 0;
    while (checked < 200000) {
        const auto c = cdfgate::test::randomCalendar(random, 1708, 2291);
        if (c[0] >= 1959 && c[0] <= 1972) continue;
        Parts p{};
        std::copy_n(c.begin(), p.size(), p.begin());
        const long long t = encode(p);
        ASSERT_NE(t, ILLEGAL_TT2000_VALUE) << p[0] << "-" << p[1] << "-" << p[2];
        ASSERT_EQ(decode(t), p) << "tt2000 " << t;
        ++checked;
    }
}

TEST(Tt2000RoundTrip, RandomValuesAcrossTheRange) {
    std::mt19937_64 random(2292);
    std::uniform_int_distribution<long long> anyValue(kFirstOrdinary, kLast);
    int checked = 0;
    while (checked < 200000) {
        const long long t = anyValue(random);
        if (inDriftEra(t)) continue;
        ASSERT_EQ(encode(decode(t)), t);
        ++checked;
    }
}

// Random instants from two seconds before each whole-second row after the first to one
// second after it: the last ordinary second, the leap second 23:59:60 and the first
// second of the new offset. (The vectors pin the joins themselves.)
TEST(Tt2000RoundTrip, ThroughEveryLeapSecond) {
    const auto starts = et::LeapSecondTable::builtIn().wholeSecondStarts();
    ASSERT_EQ(starts.size(), 28u);
    std::mt19937_64 random(60);
    for (std::size_t i = 1; i < starts.size(); ++i) {
        const long long start = starts[i];
        std::uniform_int_distribution<long long> around(start - 2000000000, start + 1000000000);
        for (int k = 0; k < 2000; ++k) {
            const long long t = around(random);
            const Parts p = decode(t);
            ASSERT_EQ(encode(p), t);
            ASSERT_EQ(p[5] == 60.0, t >= start - 1000000000 && t < start) << t;
        }
    }
}

}  // namespace
