// The variadic forms of the TT2000 functions: shortened input lists and output lists.
#include <gtest/gtest.h>

#include <array>

#include "cdf.h"

namespace {

long long fullForm(double y, double m, double d, double h, double mi, double s, double ms,
                   double us, double ns) {
    return computeTT2000(y, m, d, h, mi, s, ms, us, ns);
}

TEST(Tt2000Interface, EndMarkerShortensTheInputList) {
    const long long midnight = fullForm(2010, 10, 12, 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(computeTT2000(2010.0, 10.0, 12.0, TT2000END), midnight);
    EXPECT_EQ(computeTT2000(2010.0, 10.0, 12.0, TT2000END, 5.0, 5.0, 5.0, 5.0, 5.0), midnight);
    EXPECT_EQ(computeTT2000(2010.0, 10.0, 12.0, 7.0, 8.0, TT2000END),
              fullForm(2010, 10, 12, 7, 8, 0, 0, 0, 0));
}

TEST(Tt2000Interface, LastComponentGivenIsSpreadOverTheSmallerFields) {
    EXPECT_EQ(computeTT2000(2000.0, 1.0, 1.5, TT2000END), fullForm(2000, 1, 1, 12, 0, 0, 0, 0, 0));
    EXPECT_EQ(computeTT2000(2000.0, 1.0, 1.0, 6.25, TT2000END),
              fullForm(2000, 1, 1, 6, 15, 0, 0, 0, 0));
    EXPECT_EQ(computeTT2000(2000.0, 1.0, 1.0, 6.0, 30.5, TT2000END),
              fullForm(2000, 1, 1, 6, 30, 30, 0, 0, 0));
    EXPECT_EQ(computeTT2000(2000.0, 1.0, 1.0, 0.0, 0.0, 1.5, TT2000END),
              fullForm(2000, 1, 1, 0, 0, 1, 500, 0, 0));
    // Only the last component may have a fraction.
    EXPECT_EQ(computeTT2000(2000.0, 1.0, 1.0, 6.5, 30.0, TT2000END), ILLEGAL_TT2000_VALUE);
}

TEST(Tt2000Interface, FullFormKeepsOnlyTheNanosecondFraction) {
    EXPECT_EQ(fullForm(2000, 1, 1, 0, 0, 0, 0, 0, 999.9), fullForm(2000, 1, 1, 0, 0, 0, 0, 0, 999));
    EXPECT_EQ(fullForm(2000, 1, 1, 0, 0, 0, 500.5, 0, 0), ILLEGAL_TT2000_VALUE);
    EXPECT_EQ(fullForm(2000, 1, 1, 0, 0, -1, 0, 0, 0), ILLEGAL_TT2000_VALUE);
}

TEST(Tt2000Interface, NullPointerShortensTheOutputListAndTheLastCarriesTheRest) {
    const long long noon = fullForm(2000, 1, 1, 12, 0, 0, 0, 0, 0);
    double y = 0, m = 0, d = 0, h = 0, mi = 0, s = 0;
    breakdownTT2000(noon, &y, &m, &d, TT2000NULL);
    EXPECT_EQ((std::array<double, 3>{y, m, d}), (std::array<double, 3>{2000, 1, 1.5}));

    const long long t = fullForm(2000, 1, 1, 12, 30, 15, 250, 0, 0);
    breakdownTT2000(t, &y, &m, &d, &h, &mi, &s, TT2000NULL);
    EXPECT_EQ((std::array<double, 6>{y, m, d, h, mi, s}),
              (std::array<double, 6>{2000, 1, 1, 12, 30, 15.25}));
    breakdownTT2000(t, &y, &m, &d, &h, TT2000NULL);
    EXPECT_DOUBLE_EQ(h, 12.0 + (30 * 60 + 15.25) / 3600.0);
}

TEST(Tt2000Interface, MonthsFarBeyondDecemberAreEncodedWithoutAMonthLimit) {
    EXPECT_EQ(fullForm(2000, 300, 1, 0, 0, 0, 0, 0, 0), ILLEGAL_TT2000_VALUE);
    for (const double month : {301.0, 5000.0, 1e9, 1e15}) {
        const long long t = fullForm(2000, month, 1, 0, 0, 0, 0, 0, 0);
        EXPECT_NE(t, ILLEGAL_TT2000_VALUE) << month;
        std::array<double, 9> p{};
        breakdownTT2000(t, &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8]);
        EXPECT_GE(p[0], 1707) << month;
        EXPECT_LE(p[0], 2292) << month;
    }
}

}  // namespace
