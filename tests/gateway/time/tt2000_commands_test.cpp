// "computeTT2000" and "breakdownTT2000" on the built-in host: the range pass and
// shapes (their other refusals are rows of the time commands' refusal table).
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::call;
using Dims = std::vector<std::size_t>;
using Tuple = std::array<double, 9>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

Array doubles(std::vector<double> values, Dims dims = {}) {
    return Array::of<double>(std::span<const double>(values), std::move(dims));
}

Array tuple(const Tuple& t) {
    return Array::of<double>(std::span<const double>(t));
}

long long library(const Tuple& t) {
    return computeTT2000(t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7], t[8]);
}

enum class Outcome { converted, outOfRange, illegal };

struct RangeCase {
    const char* name;
    Tuple time;
    Outcome outcome;
};

class ComputeTT2000Range : public ::testing::TestWithParam<RangeCase> {};

TEST_P(ComputeTT2000Range, AcceptsOrRefusesTheTime) {
    const RangeCase& c = GetParam();
    switch (c.outcome) {
        case Outcome::converted: {
            const Array result = call("computeTT2000", {tuple(c.time)})[0];
            ASSERT_EQ(result.classId(), hvINT64_CLASS);
            EXPECT_EQ(result.data<std::int64_t>()[0], library(c.time));
            break;
        }
        case Outcome::outOfRange:
            expectHostError([&] { call("computeTT2000", {tuple(c.time)}); },
                            cdflibId("outOfRangeTT2000Value"));
            break;
        case Outcome::illegal:
            expectHostError([&] { call("computeTT2000", {tuple(c.time)}); },
                            cdflibId("illegalTT2000Value"));
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Bounds, ComputeTT2000Range,
    ::testing::Values(
        RangeCase{"lowest", {1707, 9, 22, 12, 12, 10, 961, 224, 196}, Outcome::converted},
        RangeCase{"belowLowest", {1707, 9, 22, 12, 12, 10, 961, 224, 195}, Outcome::outOfRange},
        RangeCase{"highest", {2292, 4, 11, 11, 46, 7, 670, 775, 807}, Outcome::converted},
        RangeCase{"aboveHighest", {2292, 4, 11, 11, 46, 7, 670, 775, 808}, Outcome::outOfRange},
        RangeCase{"laterMonthDecides", {1707, 10, 0, 0, 0, 0, 0, 0, 0}, Outcome::converted},
        RangeCase{
            "earlierMonthDecides", {2292, 3, 31, 23, 59, 59, 999, 999, 999}, Outcome::converted},
        RangeCase{"carryPastTheEndIsRefusedByTheLibrary",
                  {2292, 4, 10, 99, 0, 0, 0, 0, 0},
                  Outcome::illegal},
        RangeCase{"padTuple", {0, 1, 1, 0, 0, 0, 0, 0, 0}, Outcome::converted},
        RangeCase{"fillTuple", {9999, 12, 31, 23, 59, 59, 999, 999, 999}, Outcome::converted},
        RangeCase{"nearPad", {0, 1, 2, 0, 0, 0, 0, 0, 0}, Outcome::outOfRange},
        RangeCase{"nearFill", {9999, 12, 31, 23, 59, 59, 999, 999, 998}, Outcome::outOfRange},
        RangeCase{"yearBetweenBoundYears", {1706.5, 12, 1, 0, 0, 0, 0, 0, 0}, Outcome::outOfRange},
        RangeCase{"nanMonthAtLowerYearMovesOn",
                  {1707, kNaN, 22, 12, 12, 10, 961, 224, 195},
                  Outcome::outOfRange},
        RangeCase{
            "nanMonthAtLowerYearLaterDay", {1707, kNaN, 23, 0, 0, 0, 0, 0, 0}, Outcome::illegal},
        RangeCase{"nanYearPassesTheRangePass", {kNaN, 1, 1, 0, 0, 0, 0, 0, 0}, Outcome::illegal},
        RangeCase{
            "fractionalMillisecondIsKept", {2000, 1, 1, 0, 0, 0, 500.5, 0, 0}, Outcome::illegal},
        RangeCase{"fractionalNanosecond", {2000, 1, 1, 0, 0, 0, 0, 0, 999.9}, Outcome::converted},
        RangeCase{"leapSecond", {2016, 12, 31, 23, 59, 60, 0, 0, 0}, Outcome::converted},
        RangeCase{"dayBeyondMonth", {2001, 2, 29, 0, 0, 0, 0, 0, 0}, Outcome::illegal}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ComputeTT2000, EveryTimeIsRangeCheckedBeforeAnyConversion) {
    // The first time alone would be refused by the library as illegal.
    const Array input = doubles({2001, 2, 29, 0, 0, 0, 0, 0, 0, 1600, 1, 1, 0, 0, 0, 0, 0, 0});
    expectHostError([&] { call("computeTT2000", {input}); }, cdflibId("outOfRangeTT2000Value"));
}

TEST(ComputeTT2000, ColumnsBecomeOneInt64Row) {
    const Tuple a{2000, 1, 1, 12, 0, 0, 0, 0, 0};
    const Tuple b{1972, 1, 1, 0, 0, 0, 0, 0, 0};
    std::vector<double> values(a.begin(), a.end());
    values.insert(values.end(), b.begin(), b.end());
    const Array result = call("computeTT2000", {doubles(values, {9, 2})})[0];
    ASSERT_EQ(result.classId(), hvINT64_CLASS);
    ASSERT_EQ(result.dims(), (Dims{1, 2}));
    EXPECT_EQ(result.data<std::int64_t>()[0], library(a));
    EXPECT_EQ(result.data<std::int64_t>()[1], library(b));

    const Array empty = call("computeTT2000", {Array::empty()})[0];
    EXPECT_EQ(empty.classId(), hvINT64_CLASS);
    EXPECT_EQ(empty.dims(), (Dims{1, 0}));
}

TEST(BreakdownTT2000, EveryValueBecomesANineRowColumn) {
    const std::vector<std::int64_t> values{
        0, 536500868184000000, kMin, kMin + 1, kMin + 4, std::numeric_limits<std::int64_t>::max()};
    const Array result =
        call("breakdownTT2000",
             {Array::of<std::int64_t>(std::span<const std::int64_t>(values), {2, 3})})[0];
    ASSERT_EQ(result.classId(), hvDOUBLE_CLASS);
    ASSERT_EQ(result.dims(), (Dims{9, 6}));
    const auto out = result.data<double>();
    for (std::size_t k = 0; k < values.size(); ++k) {
        Tuple p{};
        breakdownTT2000(values[k], &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8]);
        for (std::size_t i = 0; i < p.size(); ++i) EXPECT_EQ(out[9 * k + i], p[i]) << k;
    }
    EXPECT_EQ(out[9 * 1 + 5], 60.0);  // the leap second at the end of 2016
    EXPECT_EQ(out[9 * 2], 9999.0);    // fill
    EXPECT_EQ(call("breakdownTT2000", {Array::zeros(hvINT64_CLASS, {0, 0})})[0].dims(),
              (Dims{9, 0}));
}

}  // namespace
}  // namespace cdfgate::testing
