#include <boost/numeric/conversion/cast.hpp>
#include <cmath>
#include <cstdint>
#include <limits>

#include "gateway/arguments.h"
#include "gateway/open_file_registry.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {
namespace {

using gateway::getAsciiString;
using gateway::getCdfId;
using gateway::getInt64Scalar;
using gateway::getInt64Vector;
using gateway::getStringArg;

TEST(IntegerTruncation, TruncatesTowardZero) {
    const struct {
        const char* label;
        double input;
        long expected;
    } cases[] = {
        {"positive fraction", 3.7, 3},
        {"small negative fraction", -0.2, 0},
        {"negative fraction", -2.9, -2},
        {"large integral", 4503599627370497.0, 4503599627370497},
        {"largest below 2^63", 9223372036854774784.0, 9223372036854774784},
        {"NaN is the integer indefinite", std::nan(""), std::numeric_limits<long>::min()},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(getInt64Scalar(Array::scalar(c.input).get(), "RECNUM"), c.expected) << c.label;
    }
}

TEST(IntegerRange, ValuesAtOrBeyondTwoTo63Overflow) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {9.3e18, 9223372036854775808.0, infinity}) {
        const Array value = Array::scalar(bad);
        EXPECT_THROW(getInt64Scalar(value.get(), "VARNUM"), boost::numeric::positive_overflow);
    }
    // -2^63 is representable but refused by the range rule.
    for (const double bad : {-9223372036854775808.0, -infinity, -1e300}) {
        const Array value = Array::scalar(bad);
        EXPECT_THROW(getInt64Scalar(value.get(), "VARNUM"), boost::numeric::negative_overflow);
    }
}

TEST(IntegerScalar, OnlyOneByOneDoublesAreAccepted) {
    const Array notScalars[] = {
        Array::of<std::int32_t>({5}, {1, 1}), Array::of<float>({5}, {1, 1}),
        Array::of<double>({1, 2}, {1, 2}),    Array::logical({true}, {1, 1}),
        Array::empty(hvDOUBLE_CLASS),         Array::text("5")};
    for (const Array& bad : notScalars) {
        expectHostError([&] { getInt64Scalar(bad.get(), "VARNUM"); },
                        validateId("argumentNotDoubleScalar"), {std::string("VARNUM")});
    }
}

TEST(IntegerVector, ConvertsEveryElementAndStopsAtTheFirstOverflow) {
    const Array values = Array::of<double>({1.9, -1.9, 0.0}, {1, 3});
    EXPECT_EQ(getInt64Vector(values.get(), "INDICES"), (std::vector<long>{1, -1, 0}));
    EXPECT_TRUE(getInt64Vector(Array::empty(hvDOUBLE_CLASS).get(), "INDICES").empty());
    const Array overflowing = Array::of<double>({1.0, 1e19}, {2, 1});
    EXPECT_THROW(getInt64Vector(overflowing.get(), "INDICES"), boost::numeric::bad_numeric_cast);
}

TEST(FileIdentifier, MustBeARegisteredOneByOneUint64) {
    const Array notUint64[] = {Array::scalar(1), Array::empty(hvUINT64_CLASS),
                               Array::of<std::uint64_t>({1, 2}, {1, 2}),
                               Array::of<std::int64_t>({1}, {1, 1})};
    for (const Array& bad : notUint64) {
        expectHostError([&] { getCdfId(bad.get()); }, validateId("argumentNotUint64Scalar"),
                        {std::string("CDFID")});
    }
    const std::uint64_t handle = 0x5eed'0000'1234;
    expectHostError([&] { getCdfId(Array::uint64(handle).get()); }, cdflibId("invalidFileId"));

    gateway::openFileRegistry().registerFileId(handle);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(getCdfId(Array::uint64(handle).get())), handle);
    gateway::openFileRegistry().unregisterFileId(handle);
    expectHostError([&] { getCdfId(Array::uint64(handle).get()); }, cdflibId("invalidFileId"));
}

TEST(Strings, TextIsTakenAsItIs) {
    EXPECT_EQ(getStringArg(Array::text(" Mixed Case ").get()), " Mixed Case ");
    EXPECT_EQ(getAsciiString(Array::text("data/file.cdf").get()), "data/file.cdf");
    EXPECT_EQ(getAsciiString(Array::text("").get()), "");
    EXPECT_THROW(getStringArg(Array::scalar(1).get()), std::logic_error);
}

TEST(Strings, FileNamesWithNonAsciiCharactersAreRefused) {
    const Array name = Array::of<char16_t>({u'f', u'\u00e9', u'.', u'c'}, {1, 4});
    expectHostError([&] { getAsciiString(name.get()); }, cdflibId("invalidCharError"));
    const Array high = Array::of<char16_t>({u'a', char16_t{0x80}}, {1, 2});
    expectHostError([&] { getAsciiString(high.get()); }, cdflibId("invalidCharError"));
}

}  // namespace
}  // namespace cdfgate::testing
