// The stored calendar vectors, converted through the six commands in whole matrices:
// the gateway must deliver the library's results column for column.
#include <cstdint>
#include <functional>
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

using Names = std::vector<const char*>;

// The first `count` calendar components: year .. psec.
Names components(std::size_t count) {
    const Names all{"year",   "month", "day",  "hour", "minute",
                    "second", "msec",  "usec", "nsec", "psec"};
    return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::vector<std::size_t> rowsWhere(const std::function<bool(std::size_t)>& keep) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < calendar().rowCount(); ++row) {
        if (keep(row)) rows.push_back(row);
    }
    return rows;
}

// The named columns of the rows, one matrix column per row.
Array matrix(const std::vector<std::size_t>& rows, const Names& names) {
    std::vector<double> values;
    for (const std::size_t row : rows) {
        for (const char* name : names) values.push_back(calendar().asDouble(row, name));
    }
    return Array::of<double>(std::span<const double>(values), {names.size(), rows.size()});
}

void checkColumns(const std::vector<std::size_t>& rows, const Array& result, const Names& names,
                  Mismatches& m) {
    const CsvTable& t = calendar();
    const auto out = result.data<double>();
    for (std::size_t k = 0; k < rows.size(); ++k) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            m.checkDouble(t.label(rows[k]), names[i], t.asDouble(rows[k], names[i]),
                          out[names.size() * k + i]);
        }
    }
}

TEST(CalendarThroughGateway, EpochCommands) {
    const CsvTable& t = calendar();
    const auto rows = rowsWhere(
        [&](std::size_t r) { return !t.empty(r, "epoch") && t.asDouble(r, "epoch") != -1.0; });
    ASSERT_GT(rows.size(), 6000u);
    Mismatches m;
    checkColumns(rows, call("computeEpoch", {matrix(rows, components(7))})[0], {"epoch"}, m);
    checkColumns(rows, call("epochBreakdown", {matrix(rows, {"epoch"})})[0],
                 {"e_year", "e_month", "e_day", "e_hour", "e_minute", "e_second", "e_msec"}, m);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarThroughGateway, Epoch16Commands) {
    const CsvTable& t = calendar();
    const auto rows = rowsWhere(
        [&](std::size_t r) { return !t.empty(r, "e16_ret") && t.asDouble(r, "e16_ret") == 0.0; });
    ASSERT_GT(rows.size(), 6000u);
    Mismatches m;
    const Names pair{"e16_seconds", "e16_picoseconds"};
    checkColumns(rows, call("computeEpoch16", {matrix(rows, components(10))})[0], pair, m);
    checkColumns(rows, call("epoch16Breakdown", {matrix(rows, pair)})[0],
                 {"e16_year", "e16_month", "e16_day", "e16_hour", "e16_minute", "e16_second",
                  "e16_msec", "e16_usec", "e16_nsec", "e16_psec"},
                 m);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(CalendarThroughGateway, Tt2000Commands) {
    const CsvTable& t = calendar();
    constexpr std::int64_t kFirstOrdinary = std::numeric_limits<std::int64_t>::min() + 4;
    // Years strictly inside the range always pass the gateway's range pass.
    const auto rows = rowsWhere([&](std::size_t r) {
        const double year = t.asDouble(r, "year");
        return t.asInt(r, "tt2000") >= kFirstOrdinary && year > 1707 && year < 2292;
    });
    const auto brokenRows = rowsWhere([&](std::size_t r) {
        const std::int64_t tt2000 = t.asInt(r, "tt2000");
        return tt2000 != ILLEGAL_TT2000_VALUE && tt2000 != kFirstOrdinary - 2;
    });
    ASSERT_GT(rows.size(), 5000u);
    Mismatches m;
    const Array computed = call("computeTT2000", {matrix(rows, components(9))})[0];
    for (std::size_t k = 0; k < rows.size(); ++k) {
        m.check(t.label(rows[k]), "tt2000", t.asInt(rows[k], "tt2000"),
                computed.data<std::int64_t>()[k]);
    }
    std::vector<std::int64_t> values;
    for (const std::size_t row : brokenRows) values.push_back(t.asInt(row, "tt2000"));
    checkColumns(brokenRows,
                 call("breakdownTT2000",
                      {Array::of<std::int64_t>(std::span<const std::int64_t>(values))})[0],
                 {"t_year", "t_month", "t_day", "t_hour", "t_minute", "t_second", "t_msec",
                  "t_usec", "t_nsec"},
                 m);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

}  // namespace
}  // namespace cdfgate::testing
