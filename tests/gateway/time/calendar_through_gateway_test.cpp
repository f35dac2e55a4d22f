// The stored calendar vectors, converted through the six commands in whole matrices:
// the gateway must deliver the library's results column for column.
#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "../../engine/time/time_vectors.h"
#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {
namespace {

using cdfgate::test::CsvTable;
using cdfgate::test::Mismatches;
using embedded::call;

const CsvTable& calendar() {
    static const CsvTable table = CsvTable::readTimeVectors("calendar.csv");
    return table;
}

constexpr std::array<const char*, 10> kComponents{"year",   "month", "day",  "hour", "minute",
                                                  "second", "msec",  "usec", "nsec", "psec"};

std::vector<double> components(const CsvTable& t, std::size_t row, std::size_t count) {
    std::vector<double> c;
    for (std::size_t i = 0; i < count; ++i) c.push_back(t.asDouble(row, kComponents[i]));
    return c;
}

Array matrix(const std::vector<double>& values, std::size_t rows) {
    return Array::of<double>(std::span<const double>(values), {rows, values.size() / rows});
}

void checkColumns(const CsvTable& t, const std::vector<std::size_t>& rows, const Array& result,
                  const std::vector<const char*>& columns, Mismatches& m) {
    const auto out = result.data<double>();
    for (std::size_t k = 0; k < rows.size(); ++k) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            m.checkDouble(t.label(rows[k]), columns[i], t.asDouble(rows[k], columns[i]),
                          out[columns.size() * k + i]);
        }
    }
}

TEST(CalendarThroughGateway, EpochCommands) {
    const CsvTable& t = calendar();
    std::vector<std::size_t> rows;
    std::vector<double> in;
    std::vector<double> epochs;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        if (t.empty(row, "epoch") || t.asDouble(row, "epoch") == -1.0) continue;
        rows.push_back(row);
        const auto c = components(t, row, 7);
        in.insert(in.end(), c.begin(), c.end());
        epochs.push_back(t.asDouble(row, "epoch"));
    }
    ASSERT_GT(rows.size(), 6000u);
    Mismatches m;
    const Array computed = call("computeEpoch", {matrix(in, 7)})[0];
    for (std::size_t k = 0; k < rows.size(); ++k) {
        m.checkDouble(t.label(rows[k]), "epoch", epochs[k], computed.data<double>()[k]);
    }
    const Array broken = call("epochBreakdown", {matrix(epochs, 1)})[0];
    checkColumns(t, rows, broken,
                 {"e_year", "e_month", "e_day", "e_hour", "e_minute", "e_second", "e_msec"}, m);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarThroughGateway, Epoch16Commands) {
    const CsvTable& t = calendar();
    std::vector<std::size_t> rows;
    std::vector<double> in;
    std::vector<double> pairs;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        if (t.empty(row, "e16_ret") || t.asDouble(row, "e16_ret") != 0.0) continue;
        rows.push_back(row);
        const auto c = components(t, row, 10);
        in.insert(in.end(), c.begin(), c.end());
        pairs.push_back(t.asDouble(row, "e16_seconds"));
        pairs.push_back(t.asDouble(row, "e16_picoseconds"));
    }
    ASSERT_GT(rows.size(), 6000u);
    Mismatches m;
    const Array computed = call("computeEpoch16", {matrix(in, 10)})[0];
    for (std::size_t k = 0; k < rows.size(); ++k) {
        m.checkDouble(t.label(rows[k]), "seconds", pairs[2 * k], computed.data<double>()[2 * k]);
        m.checkDouble(t.label(rows[k]), "picoseconds", pairs[2 * k + 1],
                      computed.data<double>()[2 * k + 1]);
    }
    const Array broken = call("epoch16Breakdown", {matrix(pairs, 2)})[0];
    checkColumns(t, rows, broken,
                 {"e16_year", "e16_month", "e16_day", "e16_hour", "e16_minute", "e16_second",
                  "e16_msec", "e16_usec", "e16_nsec", "e16_psec"},
                 m);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarThroughGateway, Tt2000Commands) {
    const CsvTable& t = calendar();
    constexpr std::int64_t kFirstOrdinary = std::numeric_limits<std::int64_t>::min() + 4;
    std::vector<std::size_t> rows;
    std::vector<double> in;
    std::vector<std::size_t> brokenRows;
    std::vector<std::int64_t> values;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        const std::int64_t tt2000 = t.asInt(row, "tt2000");
        if (tt2000 != ILLEGAL_TT2000_VALUE && tt2000 != kFirstOrdinary - 2) {
            brokenRows.push_back(row);
            values.push_back(tt2000);
        }
        // Years strictly inside the range always pass the gateway's range pass.
        const double year = t.asDouble(row, "year");
        if (tt2000 < kFirstOrdinary || !(year > 1707 && year < 2292)) continue;
        rows.push_back(row);
        const auto c = components(t, row, 9);
        in.insert(in.end(), c.begin(), c.end());
    }
    ASSERT_GT(rows.size(), 5000u);
    Mismatches m;
    const Array computed = call("computeTT2000", {matrix(in, 9)})[0];
    for (std::size_t k = 0; k < rows.size(); ++k) {
        m.check(t.label(rows[k]), "tt2000", t.asInt(rows[k], "tt2000"),
                computed.data<std::int64_t>()[k]);
    }
    const Array broken = call("breakdownTT2000",
                              {Array::of<std::int64_t>(std::span<const std::int64_t>(values))})[0];
    checkColumns(t, brokenRows, broken,
                 {"t_year", "t_month", "t_day", "t_hour", "t_minute", "t_second", "t_msec",
                  "t_usec", "t_nsec"},
                 m);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

}  // namespace
}  // namespace cdfgate::testing
