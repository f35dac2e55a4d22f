#include "variables/majority.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace {

using Dims = std::vector<std::size_t>;
using Longs = std::vector<long>;

struct RecordCase {
    const char* name;
    long datatype;
    long numElements;
    Longs dimSizes;
    long majority;
    Dims expected;
};

TEST(RecordDimensions, FollowTheMajorityRule) {
    const RecordCase cases[] = {
        {"scalar numeric", CDF_INT2, 1, {}, COLUMN_MAJOR, {1, 1}},
        {"numeric column", CDF_REAL8, 1, {3, 4}, COLUMN_MAJOR, {3, 4}},
        {"numeric row", CDF_REAL8, 1, {3, 4}, ROW_MAJOR, {4, 3}},
        {"numeric 3-d row", CDF_INT4, 1, {2, 3, 5}, ROW_MAJOR, {5, 3, 2}},
        {"numeric 1-d", CDF_UINT1, 1, {7}, ROW_MAJOR, {7, 1}},
        {"epoch16 scalar", CDF_EPOCH16, 1, {}, ROW_MAJOR, {2, 1}},
        {"epoch16 1-d", CDF_EPOCH16, 1, {3}, COLUMN_MAJOR, {2, 3}},
        {"epoch16 row", CDF_EPOCH16, 1, {3, 4}, ROW_MAJOR, {2, 4, 3}},
        {"text scalar", CDF_CHAR, 10, {}, COLUMN_MAJOR, {10, 1}},
        {"text column", CDF_UCHAR, 10, {3, 4}, COLUMN_MAJOR, {10, 3, 4}},
        {"text row", CDF_CHAR, 10, {3, 4}, ROW_MAJOR, {10, 4, 3}},
        {"one character with dimensions", CDF_CHAR, 1, {4}, COLUMN_MAJOR, {4, 1}},
        {"one character row", CDF_CHAR, 1, {3, 4}, ROW_MAJOR, {4, 3}},
        {"one character scalar", CDF_CHAR, 1, {}, ROW_MAJOR, {1, 1}},
    };
    for (const RecordCase& c : cases) {
        EXPECT_EQ(
            cdfgate::gateway::recordDimensions(c.datatype, c.numElements, c.dimSizes, c.majority),
            c.expected)
            << c.name;
    }
}

struct HyperslabCase {
    const char* name;
    long datatype;
    long numElements;
    Longs dimCounts;  // library order
    long recCount;
    long majority;
    Dims expected;
};

TEST(HyperslabDimensions, KeepTheRecordCountLast) {
    const HyperslabCase cases[] = {
        {"scalar variable", CDF_INT2, 1, {}, 5, COLUMN_MAJOR, {5, 1}},
        {"counts column", CDF_REAL4, 1, {2, 3}, 4, COLUMN_MAJOR, {2, 3, 4}},
        {"counts row", CDF_REAL4, 1, {2, 3}, 4, ROW_MAJOR, {3, 2, 4}},
        {"epoch16 row", CDF_EPOCH16, 1, {2, 3}, 1, ROW_MAJOR, {2, 3, 2, 1}},
        {"epoch16 scalar", CDF_EPOCH16, 1, {}, 3, COLUMN_MAJOR, {2, 3}},
        {"one character keeps its leading entry", CDF_CHAR, 1, {4}, 2, ROW_MAJOR, {1, 4, 2}},
        {"text row", CDF_UCHAR, 6, {2, 3}, 2, ROW_MAJOR, {6, 3, 2, 2}},
        {"no records", CDF_INT8, 1, {2}, 0, COLUMN_MAJOR, {2, 0}},
    };
    for (const HyperslabCase& c : cases) {
        EXPECT_EQ(cdfgate::gateway::hyperslabDimensions(c.datatype, c.numElements, c.dimCounts,
                                                        c.recCount, c.majority),
                  c.expected)
            << c.name;
    }
}

TEST(MajorityHelpers, ReverseOnlyForRowMajorFiles) {
    Longs indices{1, 2, 3};
    cdfgate::gateway::reverseForMajority(indices, COLUMN_MAJOR);
    EXPECT_EQ(indices, (Longs{1, 2, 3}));
    cdfgate::gateway::reverseForMajority(indices, ROW_MAJOR);
    EXPECT_EQ(indices, (Longs{3, 2, 1}));
}

TEST(MajorityHelpers, ProductRefusesOverflowAndNegativeExtents) {
    const Dims fits{1u << 20, 1u << 20, 3};
    EXPECT_EQ(cdfgate::gateway::checkedProduct(fits), 3ull << 40);
    const Dims zero{0, SIZE_MAX, SIZE_MAX};
    EXPECT_EQ(cdfgate::gateway::checkedProduct(zero), 0u);
    const Dims overflow{SIZE_MAX / 2, 3};
    EXPECT_THROW(cdfgate::gateway::checkedProduct(overflow), std::length_error);
    EXPECT_THROW(cdfgate::gateway::recordDimensions(CDF_INT1, 1, Longs{-2}, COLUMN_MAJOR),
                 std::length_error);
}

}  // namespace
