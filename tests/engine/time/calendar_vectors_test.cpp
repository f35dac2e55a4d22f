// Every calendar tuple of calendar.csv through the C interface, bit for bit.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>

#include "cdf.h"
#include "time_vectors.h"

namespace {

using cdfgate::test::CsvTable;
using cdfgate::test::Mismatches;

const CsvTable& calendar() {
    static const CsvTable table = CsvTable::readTimeVectors("calendar.csv");
    return table;
}

constexpr std::array<const char*, 10> kComponents{"year",   "month", "day",  "hour", "minute",
                                                  "second", "msec",  "usec", "nsec", "psec"};

// The integer the gateway passes for an EPOCH component: truncated, NaN as LONG_MIN.
long gatewayInteger(double x) {
    return std::isnan(x) ? LONG_MIN : static_cast<long>(std::trunc(x));
}

std::array<long, 10> integerComponents(const CsvTable& t, std::size_t row) {
    std::array<long, 10> c{};
    for (std::size_t i = 0; i < c.size(); ++i)
        c[i] = gatewayInteger(t.asDouble(row, kComponents[i]));
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
        std::array<long, 7> out{};
        EPOCHbreakdown(expected, &out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6]);
        constexpr std::array<const char*, 7> kColumns{"e_year",   "e_month",  "e_day", "e_hour",
                                                      "e_minute", "e_second", "e_msec"};
        for (std::size_t i = 0; i < out.size(); ++i) {
            m.check(t.label(row), kColumns[i], t.asInt(row, kColumns[i]), std::int64_t{out[i]});
        }
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
        const auto c = integerComponents(t, row);
        std::array<double, 2> pair{kUntouched, kUntouched};
        const double ret =
            computeEPOCH16(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8], c[9], pair.data());
        m.checkDouble(t.label(row), "computeEPOCH16 return", t.asDouble(row, "e16_ret"), ret);
        if (t.empty(row, "e16_seconds")) {
            m.checkDouble(t.label(row), "untouched seconds", kUntouched, pair[0]);
            m.checkDouble(t.label(row), "untouched picoseconds", kUntouched, pair[1]);
            ++checked;
            continue;
        }
        m.checkDouble(t.label(row), "seconds", t.asDouble(row, "e16_seconds"), pair[0]);
        m.checkDouble(t.label(row), "picoseconds", t.asDouble(row, "e16_picoseconds"), pair[1]);
        std::array<double, 2> input{t.asDouble(row, "e16_seconds"),
                                    t.asDouble(row, "e16_picoseconds")};
        std::array<long, 10> out{};
        EPOCH16breakdown(input.data(), &out[0], &out[1], &out[2], &out[3], &out[4], &out[5],
                         &out[6], &out[7], &out[8], &out[9]);
        constexpr std::array<const char*, 10> kColumns{
            "e16_year",   "e16_month", "e16_day",  "e16_hour", "e16_minute",
            "e16_second", "e16_msec",  "e16_usec", "e16_nsec", "e16_psec"};
        for (std::size_t i = 0; i < out.size(); ++i) {
            m.check(t.label(row), kColumns[i], t.asInt(row, kColumns[i]), std::int64_t{out[i]});
        }
        ++checked;
    }
    EXPECT_GT(checked, 6000u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarVectors, Tt2000AndItsBreakdownMatchEveryRow) {
    const CsvTable& t = calendar();
    Mismatches m;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        std::array<double, 9> c{};
        for (std::size_t i = 0; i < c.size(); ++i) c[i] = t.asDouble(row, kComponents[i]);
        const long long expected = t.asInt(row, "tt2000");
        m.check(t.label(row), "computeTT2000", expected,
                computeTT2000(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]));
        std::array<double, 9> out{};
        breakdownTT2000(expected, &out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6],
                        &out[7], &out[8]);
        constexpr std::array<const char*, 9> kColumns{"t_year", "t_month",  "t_day",
                                                      "t_hour", "t_minute", "t_second",
                                                      "t_msec", "t_usec",   "t_nsec"};
        for (std::size_t i = 0; i < out.size(); ++i) {
            m.checkDouble(t.label(row), kColumns[i], t.asDouble(row, kColumns[i]), out[i]);
        }
    }
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

}  // namespace
