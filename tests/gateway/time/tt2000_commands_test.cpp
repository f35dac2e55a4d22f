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

long long library(const Tuple& t) {
    return computeTT2000(t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7], t[8]);
}

// `refusal` is the error's name, or null when the time converts.
struct RangeCase {
    const char* name;
    Tuple time;
    const char* refusal;
};

TEST(ComputeTT2000, RangePassAcceptsOrRefusesEachTime) {
    const char* const out = "outOfRangeTT2000Value";
    const char* const illegal = "illegalTT2000Value";
    // clang-format off
    const RangeCase cases[] = {
        {"lowest", {1707, 9, 22, 12, 12, 10, 961, 224, 196}, nullptr},
        {"below lowest", {1707, 9, 22, 12, 12, 10, 961, 224, 195}, out},
        {"highest", {2292, 4, 11, 11, 46, 7, 670, 775, 807}, nullptr},
        {"above highest", {2292, 4, 11, 11, 46, 7, 670, 775, 808}, out},
        {"later month decides", {1707, 10, 0, 0, 0, 0, 0, 0, 0}, nullptr},
        {"earlier month decides", {2292, 3, 31, 23, 59, 59, 999, 999, 999}, nullptr},
        {"carry past the end is refused by the library", {2292, 4, 10, 99, 0, 0, 0, 0, 0}, illegal},
        {"pad tuple", {0, 1, 1, 0, 0, 0, 0, 0, 0}, nullptr},
        {"fill tuple", {9999, 12, 31, 23, 59, 59, 999, 999, 999}, nullptr},
        {"near pad", {0, 1, 2, 0, 0, 0, 0, 0, 0}, out},
        {"near fill", {9999, 12, 31, 23, 59, 59, 999, 999, 998}, out},
        {"year between bound years", {1706.5, 12, 1, 0, 0, 0, 0, 0, 0}, out},
        {"NaN month at lower year moves on", {1707, kNaN, 22, 12, 12, 10, 961, 224, 195}, out},
        {"NaN month at lower year, later day", {1707, kNaN, 23, 0, 0, 0, 0, 0, 0}, illegal},
        {"NaN year passes the range pass", {kNaN, 1, 1, 0, 0, 0, 0, 0, 0}, illegal},
        {"fractional millisecond is kept", {2000, 1, 1, 0, 0, 0, 500.5, 0, 0}, illegal},
        {"fractional nanosecond", {2000, 1, 1, 0, 0, 0, 0, 0, 999.9}, nullptr},
        {"leap second", {2016, 12, 31, 23, 59, 60, 0, 0, 0}, nullptr},
        {"day beyond month", {2001, 2, 29, 0, 0, 0, 0, 0, 0}, illegal},
    };
    // clang-format on
    for (const RangeCase& c : cases) {
        SCOPED_TRACE(c.name);
        const Array input = Array::of<double>(std::span<const double>(c.time));
        if (c.refusal == nullptr) {
            EXPECT_EQ(call("computeTT2000", {input})[0], Array::int64(library(c.time)));
        } else {
            expectHostError([&] { call("computeTT2000", {input}); }, cdflibId(c.refusal));
        }
    }
}

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
    EXPECT_EQ(call("computeTT2000", {doubles(values, {9, 2})})[0],
              Array::of<std::int64_t>({library(a), library(b)}));
    EXPECT_EQ(call("computeTT2000", {Array::empty()})[0], Array::zeros(hvINT64_CLASS, {1, 0}));
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
