// Free-space reuse: exact fits and fits that leave room for a UIR; adjacent
// freed blocks used together; otherwise the end of the file.
#include <gtest/gtest.h>

#include "store/space_map.h"

namespace {

using cdfgate::engine::store::SpaceMap;

TEST(SpaceMap, AllocatesAtTheEndWithoutFreeSpace) {
    SpaceMap space(404);
    EXPECT_EQ(space.allocate(324), 404);
    EXPECT_EQ(space.allocate(65), 728);
    EXPECT_EQ(space.eof(), 793);
}

TEST(SpaceMap, ReusesFreedBlocksThatFit) {
    const struct {
        const char* label;
        std::int64_t freed_size;
        std::int64_t wanted;
        bool reused;
    } rows[] = {{"exact fit", 59, 59, true},
                {"leaves a UIR", 100, 60, true},
                {"leaves too little for a UIR", 80, 60, false},
                {"too small", 50, 60, false}};
    for (const auto& row : rows) {
        SpaceMap space(1000);
        space.release(500, row.freed_size);
        const std::int64_t at = space.allocate(row.wanted);
        EXPECT_EQ(at == 500, row.reused) << row.label;
        if (row.reused && row.freed_size > row.wanted) {
            ASSERT_EQ(space.free_blocks().size(), 1u);
            EXPECT_EQ(space.free_blocks().begin()->first, 500 + row.wanted);
        }
    }
}

TEST(SpaceMap, JoinsAdjacentFreedBlocks) {
    SpaceMap space(2000);
    space.release(500, 40);
    space.release(540, 40);
    space.release(700, 10);
    EXPECT_EQ(space.allocate(80), 500);
    ASSERT_EQ(space.free_blocks().size(), 1u);
    EXPECT_EQ(space.free_blocks().begin()->first, 700);
}

TEST(SpaceMap, ExtendsOnlyTheLastRecord) {
    SpaceMap space(1000);
    EXPECT_TRUE(space.extend_at_end(900, 100, 150));
    EXPECT_EQ(space.eof(), 1050);
    EXPECT_FALSE(space.extend_at_end(800, 100, 150));
}

}  // namespace
