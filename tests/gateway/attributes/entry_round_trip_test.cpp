// Entries of all 17 datatypes written and read back, as gEntries and as zEntries.
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "variables/scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using embedded::call;

struct DatatypeCase {
    const char* lowerName;
    long code;
    // Written, and given back by a read: 1-by-N (2-by-N for EPOCH16) of the same class.
    Array (*value)();
    double numElements;
};

template <typename T>
Array row(std::initializer_list<T> values) {
    return Array::of<T>(values);
}

constexpr double kInf = std::numeric_limits<double>::infinity();

const DatatypeCase kDatatypes[] = {
    // clang-format off
    {"cdf_int1", CDF_INT1, [] { return row<std::int8_t>({-128, 0, 127}); }, 3},
    {"cdf_int2", CDF_INT2, [] { return row<std::int16_t>({-32768, 1, 32767}); }, 3},
    {"cdf_int4", CDF_INT4, [] { return row<std::int32_t>({-2147483647 - 1, 2147483647}); }, 2},
    {"cdf_int8", CDF_INT8, [] { return row<std::int64_t>({-9223372036854775807 - 1, 42}); }, 2},
    {"cdf_uint1", CDF_UINT1, [] { return row<std::uint8_t>({0, 200, 255}); }, 3},
    {"cdf_uint2", CDF_UINT2, [] { return row<std::uint16_t>({65535}); }, 1},
    {"cdf_uint4", CDF_UINT4, [] { return row<std::uint32_t>({4294967295u, 7}); }, 2},
    {"cdf_real4", CDF_REAL4, [] { return row<float>({1.5f, -0.0f, -1.0e30f}); }, 3},
    {"cdf_real8", CDF_REAL8, [] { return row<double>({0.1, -kInf}); }, 2},
    {"cdf_epoch", CDF_EPOCH, [] { return row<double>({62167219200000.0}); }, 1},
    {"cdf_epoch16", CDF_EPOCH16,
     [] { return Array::of<double>({63000000000.0, 5.0, 63000000001.0, 999999999999.0}, {2, 2}); },
     2},
    {"cdf_time_tt2000", CDF_TIME_TT2000,
     [] { return row<std::int64_t>({-9223372036854775807 - 1, 631108869184000000}); }, 2},
    {"cdf_byte", CDF_BYTE, [] { return row<std::int8_t>({-1}); }, 1},
    {"cdf_float", CDF_FLOAT, [] { return row<float>({3.25f, 4.5f}); }, 2},
    {"cdf_double", CDF_DOUBLE, [] { return row<double>({-2.5, 1e300, 0}); }, 3},
    // A byte above 0x7F travels as the sign-extended 16-bit unit both ways.
    {"cdf_char", CDF_CHAR, [] { return Array::text("caf\xe9"); }, 4},
    {"cdf_uchar", CDF_UCHAR, [] { return Array::text("xyz"); }, 3},
    // clang-format on
};

class EntryRoundTrip : public AttributeFileTest {
  protected:
    // Writes with `writer` to attribute `attr`, entry `entry`, then reads and inquires
    // with the commands of the attribute's kind.
    void roundTrip(const DatatypeCase& row, const char* writer, double attr, double entry,
                   const char* reader, const char* inquirer) {
        SCOPED_TRACE(std::string(row.lowerName) + " through " + writer);
        ASSERT_TRUE(call(writer, {id(), Array::scalar(attr), Array::scalar(entry),
                                  Array::scalar(static_cast<double>(row.code)), row.value()})
                        .empty());
        EXPECT_EQ(call(reader, {id(), Array::scalar(attr), Array::scalar(entry)}).at(0),
                  row.value());
        EXPECT_EQ(call(inquirer, {id(), Array::scalar(attr), Array::scalar(entry)}, 2),
                  (std::vector<Array>{Array::text(row.lowerName), Array::scalar(row.numElements)}));
    }
};

// gEntries take one entry number each; zEntry 1 is rewritten each time, so type and size
// may change.
TEST_F(EntryRoundTrip, EveryDatatypeAsAGEntryAndAsAZEntry) {
    double entry = 0;
    for (const DatatypeCase& row : kDatatypes) {
        roundTrip(row, "putAttrgEntry", 0, entry++, "getAttrgEntry", "inquireAttrgEntry");
        roundTrip(row, "putAttrEntry", 1, 1, "getAttrEntry", "inquireAttrEntry");
    }
    EXPECT_EQ(call("getNumAttrgEntries", {id(), Array::scalar(0)}).at(0),
              Array::scalar(std::size(kDatatypes)));
    EXPECT_EQ(call("getNumAttrEntries", {id(), Array::scalar(1)}).at(0), Array::scalar(1));
}

TEST_F(EntryRoundTrip, AMatrixValueComesBackAsOneRow) {
    call("putAttrgEntry", {id(), Array::scalar(0), Array::scalar(0), Array::scalar(CDF_INT2),
                           Array::of<std::int16_t>({1, 2, 3, 4, 5, 6}, {2, 3})});
    EXPECT_EQ(call("getAttrgEntry", {id(), Array::scalar(0), Array::scalar(0)}).at(0),
              Array::of<std::int16_t>({1, 2, 3, 4, 5, 6}));
}

}  // namespace
}  // namespace cdfgate::testing
