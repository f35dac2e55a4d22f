// The variadic forms of the TT2000 functions: shortened input lists and output lists.
#include <gtest/gtest.h>

#include <array>

#include "time_parts.h"

namespace {

using cdfgate::test::decodeTT2000;
using cdfgate::test::encodeTT2000;

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

}  // namespace
