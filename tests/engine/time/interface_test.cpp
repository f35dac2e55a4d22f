// The time functions beyond the vectors. TT2000: the variadic forms' shortened input
// and output lists, and exact inverses outside the drifting 1960-1971 era (random
// calendar times across the whole range, random values, and every leap second).
// EPOCH16: a fraction of a second just before midnight, and round trips over the
// whole calendar range.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <random>

#include "time/leap_second_table.h"
#include "time_parts.h"

namespace {

using cdfgate::test::decodeTT2000;
using cdfgate::test::encodeTT2000;
using cdfgate::test::epoch16Parts;
using cdfgate::test::randomCalendar;
namespace et = cdfgate::engine::time;

TEST(Tt2000Interface, EndMarkerShortensTheInputListAndItsLastComponentCarriesTheRest) {
    const struct {
        long long given, expected;
    } rows[] = {
        {computeTT2000(2010.0, 10.0, 12.0, TT2000END), encodeTT2000({2010, 10, 12})},
        {computeTT2000(2010.0, 10.0, 12.0, TT2000END, 5.0, 5.0, 5.0, 5.0, 5.0),
         encodeTT2000({2010, 10, 12})},
        {computeTT2000(2010.0, 10.0, 12.0, 7.0, 8.0, TT2000END),
         encodeTT2000({2010, 10, 12, 7, 8})},
        {computeTT2000(2000.0, 1.0, 1.5, TT2000END), encodeTT2000({2000, 1, 1, 12})},
        {computeTT2000(2000.0, 1.0, 1.0, 6.25, TT2000END), encodeTT2000({2000, 1, 1, 6, 15})},
        {computeTT2000(2000.0, 1.0, 1.0, 6.0, 30.5, TT2000END),
         encodeTT2000({2000, 1, 1, 6, 30, 30})},
        {computeTT2000(2000.0, 1.0, 1.0, 0.0, 0.0, 1.5, TT2000END),
         encodeTT2000({2000, 1, 1, 0, 0, 1, 500})},
        // Only the last component may have a fraction.
        {computeTT2000(2000.0, 1.0, 1.0, 6.5, 30.0, TT2000END), ILLEGAL_TT2000_VALUE},
        // The full form keeps only the nanosecond fraction.
        {encodeTT2000({2000, 1, 1, 0, 0, 0, 0, 0, 999.9}),
         encodeTT2000({2000, 1, 1, 0, 0, 0, 0, 0, 999})},
        {encodeTT2000({2000, 1, 1, 0, 0, 0, 500.5}), ILLEGAL_TT2000_VALUE},
        {encodeTT2000({2000, 1, 1, 0, 0, -1}), ILLEGAL_TT2000_VALUE},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(rows[i].given, rows[i].expected) << "row " << i;
}

TEST(Tt2000Interface, NullPointerShortensTheOutputListAndTheLastCarriesTheRest) {
    double y = 0, m = 0, d = 0, h = 0, mi = 0, s = 0;
    breakdownTT2000(encodeTT2000({2000, 1, 1, 12}), &y, &m, &d, TT2000NULL);
    EXPECT_EQ((std::array{y, m, d}), (std::array{2000.0, 1.0, 1.5}));

    const long long t = encodeTT2000({2000, 1, 1, 12, 30, 15, 250});
    breakdownTT2000(t, &y, &m, &d, &h, &mi, &s, TT2000NULL);
    EXPECT_EQ((std::array{y, m, d, h, mi, s}), (std::array{2000.0, 1.0, 1.0, 12.0, 30.0, 15.25}));
    breakdownTT2000(t, &y, &m, &d, &h, TT2000NULL);
    EXPECT_DOUBLE_EQ(h, 12.0 + (30 * 60 + 15.25) / 3600.0);
}

TEST(Tt2000Interface, MonthsFarBeyondDecemberAreEncodedWithoutAMonthLimit) {
    EXPECT_EQ(encodeTT2000({2000, 300, 1}), ILLEGAL_TT2000_VALUE);
    for (const double month : {301.0, 5000.0, 1e9, 1e15}) {
        const long long t = encodeTT2000({2000, month, 1});
        EXPECT_NE(t, ILLEGAL_TT2000_VALUE) << month;
        const double year = decodeTT2000(t)[0];
        EXPECT_GE(year, 1707) << month;
        EXPECT_LE(year, 2292) << month;
    }
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
        const auto c = randomCalendar(random, 1708, 2291);
        if (c[0] >= 1959 && c[0] <= 1972) continue;
        cdfgate::test::Tt2000Parts p{};
        std::copy_n(c.begin(), p.size(), p.begin());
        const long long t = encodeTT2000(p);
        ASSERT_NE(t, ILLEGAL_TT2000_VALUE) << p[0] << "-" << p[1] << "-" << p[2];
        ASSERT_EQ(decodeTT2000(t), p) << "tt2000 " << t;
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
        ASSERT_EQ(encodeTT2000(decodeTT2000(t)), t);
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
            const auto p = decodeTT2000(t);
            ASSERT_EQ(encodeTT2000(p), t);
            ASSERT_EQ(p[5] == 60.0, t >= start - 1000000000 && t < start) << t;
        }
    }
}

// The seconds keep their fraction through the split, whose chained divisions can round
// a time just before midnight up to the next day's date (the hour, minute and second
// come from separate remainders). The C interface behaves so; no vector covers it.
TEST(Epoch16Breakdown, FractionJustBeforeMidnightTakesTheNextDaysDate) {
    EXPECT_EQ(epoch16Parts({86399.999999999, 5.0}),
              (std::array<long, 10>{0, 1, 2, 23, 59, 59, 0, 0, 0, 5}));
    EXPECT_EQ(epoch16Parts({63113903999.999992, 0.0}),
              (std::array<long, 10>{2000, 1, 1, 23, 59, 59, 0, 0, 0, 0}));
}

TEST(Epoch16RoundTrip, RandomPicosecondsOfYears0To9999) {
    std::mt19937_64 random(77);
    for (int i = 0; i < 200000; ++i) {
        const auto parts = randomCalendar(random, 0, 9999);
        if (parts == std::array<long, 10>{9999, 12, 31, 23, 59, 59, 999, 999, 999, 999}) continue;
        std::array<double, 2> pair{};
        ASSERT_EQ(computeEPOCH16(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5],
                                 parts[6], parts[7], parts[8], parts[9], pair.data()),
                  0.0);
        ASSERT_EQ(epoch16Parts(pair), parts) << pair[0] << " " << pair[1];
    }
}

}  // namespace
