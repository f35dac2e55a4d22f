// Every calendar tuple of calendar.csv through the C interface, bit for bit.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>

#include "time_parts.h"
#include "time_vectors.h"

namespace {

using namespace cdfgate::test;

const CsvTable& calendar() {
    static const CsvTable table = CsvTable::readTimeVectors("calendar.csv");
    return table;
}

constexpr std::array kComponents{"year",   "month", "day",  "hour", "minute",
                                 "second", "msec",  "usec", "nsec", "psec"};

// The integers the gateway passes for EPOCH components: truncated, NaN as LONG_MIN.
std::array<long, 10> integerComponents(const CsvTable& t, std::size_t row) {
    std::array<long, 10> c{};
    for (std::size_t i = 0; i < c.size(); ++i) {
        const double x = t.asDouble(row, kComponents[i]);
        c[i] = std::isnan(x) ? LONG_MIN : static_cast<long>(std::trunc(x));
    }
    return c;
}

TEST(CalendarVectors, EpochAndItsBreakdownMatchEveryRow) {
    const CsvTable& t = calendar();
    Mismatches m;
    std::size_t checked = 0;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        if (t.empty(row, "epoch")) continue;
        const auto c = integerComponents(t, row);
        const double expected = t.asDouble(row, "epoch");
        m.checkDouble(t.label(row), "computeEPOCH", expected,
                      computeEPOCH(c[0], c[1], c[2], c[3], c[4], c[5], c[6]));
        m.checkColumns(
            t, row,
            std::array{"e_year", "e_month", "e_day", "e_hour", "e_minute", "e_second", "e_msec"},
            epochParts(expected));
        ++checked;
    }
    EXPECT_GT(checked, 6000u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarVectors, Epoch16AndItsBreakdownMatchEveryRow) {
    const CsvTable& t = calendar();
    Mismatches m;
    std::size_t checked = 0;
    constexpr double kUntouched = 12345.5;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        if (t.empty(row, "e16_ret")) continue;
        ++checked;
        const auto c = integerComponents(t, row);
        std::array<double, 2> pair{kUntouched, kUntouched};
        const double ret =
            computeEPOCH16(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8], c[9], pair.data());
        m.checkDouble(t.label(row), "computeEPOCH16 return", t.asDouble(row, "e16_ret"), ret);
        const bool refused = t.empty(row, "e16_seconds");
        m.checkDouble(t.label(row), "seconds",
                      refused ? kUntouched : t.asDouble(row, "e16_seconds"), pair[0]);
        m.checkDouble(t.label(row), "picoseconds",
                      refused ? kUntouched : t.asDouble(row, "e16_picoseconds"), pair[1]);
        if (refused) continue;
        m.checkColumns(
            t, row,
            std::array{"e16_year", "e16_month", "e16_day", "e16_hour", "e16_minute", "e16_second",
                       "e16_msec", "e16_usec", "e16_nsec", "e16_psec"},
            epoch16Parts({t.asDouble(row, "e16_seconds"), t.asDouble(row, "e16_picoseconds")}));
    }
    EXPECT_GT(checked, 6000u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarVectors, Tt2000AndItsBreakdownMatchEveryRow) {
    const CsvTable& t = calendar();
    Mismatches m;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        Tt2000Parts c{};
        for (std::size_t i = 0; i < c.size(); ++i) c[i] = t.asDouble(row, kComponents[i]);
        const long long expected = t.asInt(row, "tt2000");
        m.check(t.label(row), "computeTT2000", expected, encodeTT2000(c));
        m.checkColumns(t, row,
                       std::array{"t_year", "t_month", "t_day", "t_hour", "t_minute", "t_second",
                                  "t_msec", "t_usec", "t_nsec"},
                       decodeTT2000(expected));
    }
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

}  // namespace
