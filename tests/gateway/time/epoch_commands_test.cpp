// "computeEpoch", "computeEpoch16", "epochBreakdown" and "epoch16Breakdown" on the
// built-in host: shapes, truncation and the library's results; and the refusals of
// all six time commands.
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::call;
using Dims = std::vector<std::size_t>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

Array doubles(std::vector<double> values, Dims dims = {}) {
    return Array::of<double>(std::span<const double>(values), std::move(dims));
}

std::vector<double> elements(const Array& a) {
    const auto d = a.data<double>();
    return {d.begin(), d.end()};
}

TEST(ComputeEpoch, OnlyTheElementCountDecidesTheShape) {
    const std::vector<double> times{2000, 1, 1, 0,    0, 0, 0,  1970, 1, 1, 0,
                                    0,    0, 0, 2017, 1, 1, 12, 30,   0, 5};
    const Array byColumns = call("computeEpoch", {doubles(times, {7, 3})})[0];
    const Array asRow = call("computeEpoch", {doubles(times)})[0];
    EXPECT_EQ(byColumns, asRow);
    EXPECT_EQ(byColumns,
              doubles({computeEPOCH(2000, 1, 1, 0, 0, 0, 0), computeEPOCH(1970, 1, 1, 0, 0, 0, 0),
                       computeEPOCH(2017, 1, 1, 12, 30, 0, 5)}));
}

TEST(ComputeEpoch, FractionsAreTruncatedTowardZero) {
    const Array truncated = call("computeEpoch", {doubles({2000, 1, 1, 0, 0, 1.9, -0.5})})[0];
    const Array whole = call("computeEpoch", {doubles({2000, 1, 1, 0, 0, 1, 0})})[0];
    EXPECT_EQ(truncated, whole);
}

TEST(ComputeEpoch, EmptyInputGivesAnEmptyRow) {
    EXPECT_EQ(call("computeEpoch", {Array::empty()})[0].dims(), (Dims{1, 0}));
    EXPECT_EQ(call("computeEpoch16", {Array::empty()})[0].dims(), (Dims{2, 0}));
}

struct RefusalCase {
    const char* name;
    const char* command;
    Array input;
    std::string identifier;
    Arguments arguments;
};

TEST(TimeCommands, RefusalsRaiseTheirError) {
    const std::string vector = cdflibId("badTimeVector");
    const std::string illegal = cdflibId("illegalEpochValue");
    const std::string modulus = cdflibId("badEpoch16Modulus");
    const std::string tt2000Range = cdflibId("outOfRangeTT2000Value");
    const Arguments n7{std::int64_t{7}}, n9{std::int64_t{9}}, n10{std::int64_t{10}};
    const Arguments tt2000Time{std::string("TT2000TIME")};
    const std::string notInt64 = validateId("argumentNotInt64Scalar");
    // clang-format off
    const RefusalCase cases[] = {
        {"count before class", "computeEpoch", Array::of<std::int32_t>({2000, 1, 1, 0, 0, 0, 0}, {7, 1}), vector, n7},
        {"count not a multiple of 7", "computeEpoch", doubles(std::vector<double>(8, 1.0)), vector, n7},
        {"single precision", "computeEpoch", Array::of<float>({2000, 1, 1, 0, 0, 0, 0}), vector, n7},
        {"epoch16 count", "computeEpoch16", doubles({2000, 1, 1, 0, 0, 0, 0}), vector, n10},
        {"epoch16 class", "computeEpoch16", Array::of<std::int64_t>({2000, 1, 1, 0, 0, 0, 0, 0, 0, 0}), vector, n10},
        {"component beyond 2^63", "computeEpoch", doubles({2000, 1, 1, 0, 0, 0, 9.3e18}), validateId("argumentOutOfBounds"), {}},
        {"negative year", "computeEpoch", doubles({-1, 1, 1, 0, 0, 0, 0}), illegal, {}},
        {"illegal after a legal group", "computeEpoch", doubles({2000, 1, 1, 0, 0, 0, 0, 0, 1, 1, 0, 0, 0, -1}), illegal, {}},
        {"epoch16 negative year", "computeEpoch16", doubles({-5, 1, 1, 0, 0, 0, 0, 0, 0, 0}), illegal, {}},
        {"epoch16 before year 0", "computeEpoch16", doubles({0, 1, 1, 0, 0, -1, 0, 0, 0, 0}), illegal, {}},
        {"breakdown of int64", "epochBreakdown", Array::int64(5), validateId("argumentNotDoublePrecision"), {std::string("EPOCHTIME")}},
        {"odd count", "epoch16Breakdown", doubles({1, 2, 3}), modulus, {}},
        {"odd count before class", "epoch16Breakdown", Array::of<std::int8_t>({1, 2, 3}), modulus, {}},
        {"epoch16 breakdown of int8", "epoch16Breakdown", Array::of<std::int8_t>({1, 2}), validateId("argumentNotDoublePrecision"), {std::string("EPOCH16TIME")}},
        {"tt2000 count before class", "computeTT2000", Array::of<std::int8_t>({1, 2}), vector, n9},
        {"tt2000 count", "computeTT2000", doubles(std::vector<double>(10, 1.0)), vector, n9},
        {"tt2000 class", "computeTT2000", Array::of<std::int64_t>({2000, 1, 1, 0, 0, 0, 0, 0, 0}), vector, n9},
        {"tt2000 breakdown of double", "breakdownTT2000", Array::scalar(0), notInt64, tt2000Time},
        {"tt2000 breakdown of uint64", "breakdownTT2000", Array::of<std::uint64_t>({0}), notInt64, tt2000Time},
        // The two values above the pad code, wherever they stand.
        {"tt2000 breakdown of min plus 2", "breakdownTT2000", Array::of<std::int64_t>({0, kMin + 2, 5}), tt2000Range, {}},
        {"tt2000 breakdown of min plus 3", "breakdownTT2000", Array::of<std::int64_t>({0, kMin + 3, 5}), tt2000Range, {}},
    };
    // clang-format on
    for (const RefusalCase& c : cases) {
        SCOPED_TRACE(c.name);
        expectHostError([&] { call(c.command, {c.input}); }, c.identifier, c.arguments);
    }
}

TEST(ComputeEpoch16, PairsComeOutAsColumns) {
    const std::vector<double> times{2000, 1,  1,  12, 0,  0,  1,   2,   3,   4,
                                    1999, 12, 31, 23, 59, 59, 999, 999, 999, 1000};
    const Array result = call("computeEpoch16", {doubles(times, {10, 2})})[0];
    std::vector<double> pairs(4);
    computeEPOCH16(2000, 1, 1, 12, 0, 0, 1, 2, 3, 4, &pairs[0]);
    computeEPOCH16(1999, 12, 31, 23, 59, 59, 999, 999, 999, 1000, &pairs[2]);
    EXPECT_EQ(result, doubles(pairs, {2, 2}));
}

TEST(EpochBreakdown, EveryElementBecomesASevenRowColumn) {
    const std::vector<double> values{
        63113904000000.0, -1.0, 0.0, 1e31, -0.0, 62167219200000.5, kNaN, -1e31, 5.0, 6.0, 7.0, 8.0};
    const Array result = call("epochBreakdown", {doubles(values, {3, 4})})[0];
    ASSERT_EQ(result.dims(), (Dims{7, 12}));
    const auto out = result.data<double>();
    for (std::size_t k = 0; k < values.size(); ++k) {
        std::array<long, 7> p{};
        EPOCHbreakdown(values[k], &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6]);
        for (std::size_t i = 0; i < p.size(); ++i) {
            EXPECT_EQ(out[7 * k + i], static_cast<double>(p[i])) << "element " << k;
        }
    }
    EXPECT_EQ(call("epochBreakdown", {Array::empty()})[0].dims(), (Dims{7, 0}));
}

struct Epoch16ShapeCase {
    Dims input;
    Dims output;
};

TEST(Epoch16Breakdown, ResultDimensionsFollowTheInputsFirstDimension) {
    // clang-format off
    const Epoch16ShapeCase cases[] = {{{2, 5}, {10, 5}}, {{2, 3, 4}, {10, 3, 4}}, {{1, 6}, {10, 3}},
                                      {{6, 1}, {10, 3}}, {{4, 1}, {10, 2}}, {{2, 2, 2}, {10, 2, 2}}};
    // clang-format on
    for (const Epoch16ShapeCase& c : cases) {
        std::size_t count = 1;
        for (const std::size_t d : c.input) count *= d;
        const Array result =
            call("epoch16Breakdown", {doubles(std::vector<double>(count, 1.0), c.input)})[0];
        EXPECT_EQ(result.dims(), c.output) << ::testing::PrintToString(c.input);
    }
    EXPECT_EQ(call("epoch16Breakdown", {Array::empty()})[0].dims(), (Dims{10, 0}));
}

TEST(Epoch16Breakdown, LeavesTheHostsArrayUnchanged) {
    // The library rewrites negative and clamped pairs in place; the gateway must hand
    // it copies, so the very array the host passed keeps its values.
    const std::vector<double> values{-63113904000.0, -5.0, 1e20, 5e12};
    const std::array<Array, 2> inputs{Array::text("epoch16Breakdown"), doubles(values)};
    const Array result = embedded::callWithInputs(inputs)[0];
    EXPECT_EQ(elements(inputs[1]), values);
    const auto out = result.data<double>();
    EXPECT_EQ(out[0], 2000.0);
    EXPECT_EQ(out[9], 5.0);
    EXPECT_EQ(out[10], 9999.0);
}

}  // namespace
}  // namespace cdfgate::testing
