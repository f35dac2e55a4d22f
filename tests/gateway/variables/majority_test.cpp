#include "variables/majority.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace {

using Dims = std::vector<std::size_t>;
using Longs = std::vector<long>;

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
