// Selection state of CDFlib: per-CDF and per-variable selections, their checks,
// resets on create, delete, open and zMode changes.
#include <array>
#include <ostream>
#include <string>

#include "cdf_fixture.h"

namespace {

constexpr std::array kNoneSelected{NO_VAR_SELECTED, NO_ATTR_SELECTED, NO_ENTRY_SELECTED,
                                   NO_ENTRY_SELECTED};

struct VarState {
    long rec = -9, count = -9, interval = -9;
    std::array<long, 2> indices{-9, -9}, counts{-9, -9}, intervals{-9, -9};
    bool operator==(const VarState&) const = default;
};

std::ostream& operator<<(std::ostream& out, const VarState& s) {
    return out << "record " << s.rec << " count " << s.count << " interval " << s.interval
               << " indices " << s.indices[0] << "," << s.indices[1] << " counts " << s.counts[0]
               << "," << s.counts[1] << " intervals " << s.intervals[0] << "," << s.intervals[1];
}

VarState state() {
    VarState s;
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_RECNUMBER_, &s.rec, zVAR_RECCOUNT_, &s.count, zVAR_RECINTERVAL_,
                     &s.interval, zVAR_DIMINDICES_, s.indices.data(), zVAR_DIMCOUNTS_,
                     s.counts.data(), zVAR_DIMINTERVALS_, s.intervals.data(), NULL_),
              CDF_OK);
    return s;
}

// The statuses of confirming the variable, attribute, gEntry and zEntry selections; a
// refused confirmation writes nothing.
std::array<CDFstatus, 4> selections() {
    long n = -9;
    const std::array status{CDFlib(CONFIRM_, zVAR_, &n, NULL_), CDFlib(CONFIRM_, ATTR_, &n, NULL_),
                            CDFlib(CONFIRM_, gENTRY_, &n, NULL_),
                            CDFlib(CONFIRM_, zENTRY_, &n, NULL_)};
    EXPECT_TRUE(status != kNoneSelected || n == -9) << n;
    return status;
}

class Selection : public cdfgate::test::CdfTest {};

TEST_F(Selection, NothingIsSelectedInANewCdf) {
    create("s");
    char buf[CDF_VAR_NAME_LEN256 + 1];
    EXPECT_EQ(selections(), kNoneSelected);
    EXPECT_EQ(CDFlib(GET_, zVAR_NAME_, buf, NULL_), NO_VAR_SELECTED);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 3L, NULL_), NO_VAR_SELECTED);
    EXPECT_EQ(CDFlib(GET_, ATTR_NAME_, buf, NULL_), NO_ATTR_SELECTED);
}

TEST_F(Selection, RecordAndDimensionSelectionsAreKeptPerVariable) {
    create("s");
    EXPECT_EQ(create_zvar("v0", CDF_INT4, 1, {3, 4}), 0);
    EXPECT_EQ(state(), (VarState{0, 1, 1, {0, 0}, {3, 4}, {1, 1}}));

    create_zvar("v1", CDF_INT4, 1);
    long idx[] = {2, 3}, cnt[] = {1, 2}, itv[] = {1, 2};
    ASSERT_EQ(
        CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 5L, zVAR_RECCOUNT_, 2L, zVAR_RECINTERVAL_, 3L,
               zVAR_DIMINDICES_, idx, zVAR_DIMCOUNTS_, cnt, zVAR_DIMINTERVALS_, itv, NULL_),
        CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 1L, NULL_), CDF_OK);
    EXPECT_EQ(state(), (VarState{0, 1, 1}));  // 0 dims: no dimension values written
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(state(), (VarState{5, 2, 3, {2, 3}, {1, 2}, {1, 2}}));
}

TEST_F(Selection, RefusedSelectionsChangeNothing) {
    create("s");
    create_zvar("v0", CDF_INT4, 1, {3, 4});
    const auto select_dims = [](long item, long a, long b) {
        long v[] = {a, b};
        return CDFlib(SELECT_, item, v, NULL_);
    };
    const struct {
        const char* label;
        CDFstatus status;
        long expected;
    } rows[] = {
        {"negative record", CDFlib(SELECT_, zVAR_RECNUMBER_, -1L, NULL_), BAD_REC_NUM},
        {"huge record", CDFlib(SELECT_, zVAR_RECNUMBER_, 2000000000L, NULL_), CDF_OK},
        {"count 0", CDFlib(SELECT_, zVAR_RECCOUNT_, 0L, NULL_), BAD_REC_COUNT},
        {"count -2", CDFlib(SELECT_, zVAR_RECCOUNT_, -2L, NULL_), BAD_REC_COUNT},
        {"interval 0", CDFlib(SELECT_, zVAR_RECINTERVAL_, 0L, NULL_), BAD_REC_INTERVAL},
        {"index past end", select_dims(zVAR_DIMINDICES_, 3, 0), BAD_DIM_INDEX},
        {"negative index", select_dims(zVAR_DIMINDICES_, -1, 0), BAD_DIM_INDEX},
        {"dim count 0", select_dims(zVAR_DIMCOUNTS_, 0, 0), BAD_DIM_COUNT},
        {"dim count too large", select_dims(zVAR_DIMCOUNTS_, 4, 5), CDF_OK},
        {"dim interval 0", select_dims(zVAR_DIMINTERVALS_, 0, 1), BAD_DIM_INTERVAL},
        {"variable -1", CDFlib(SELECT_, zVAR_, -1L, NULL_), BAD_VAR_NUM},
        {"variable 1 of 1", CDFlib(SELECT_, zVAR_, 1L, NULL_), NO_SUCH_VAR},
        {"attribute -1", CDFlib(SELECT_, ATTR_, -1L, NULL_), BAD_ATTR_NUM},
        {"attribute 7", CDFlib(SELECT_, ATTR_, 7L, NULL_), NO_SUCH_ATTR},
        {"entry -1", CDFlib(SELECT_, gENTRY_, -1L, NULL_), BAD_ENTRY_NUM},
    };
    for (const auto& row : rows) EXPECT_EQ(row.status, row.expected) << row.label;
    EXPECT_EQ(confirm(zVAR_), 0);
    EXPECT_EQ(state(), (VarState{2000000000, 1, 1, {0, 0}, {4, 5}, {1, 1}}));
}

TEST_F(Selection, SelectionsBelongToTheirCdf) {
    CDFid a = create("a");
    create_zvar("v0", CDF_INT4, 1);
    create_attr("g", GLOBAL_SCOPE);
    ASSERT_EQ(CDFlib(SELECT_, gENTRY_, 4L, zENTRY_, 6L, NULL_), CDF_OK);
    create("b");
    EXPECT_EQ(selections(), kNoneSelected);
    ASSERT_EQ(CDFlib(SELECT_, CDF_, a, NULL_), CDF_OK);
    EXPECT_EQ((std::array{confirm(zVAR_), confirm(ATTR_), confirm(gENTRY_), confirm(zENTRY_)}),
              (std::array{0L, 0L, 4L, 6L}));
    // The entry number belongs to the CDF, not to the attribute.
    create_attr("v", VARIABLE_SCOPE);
    EXPECT_EQ(confirm(gENTRY_), 4);
}

TEST_F(Selection, SelectingAZModeClearsSelections) {
    create("s");
    create_zvar("v0", CDF_INT4, 1);
    create_attr("g", GLOBAL_SCOPE);
    ASSERT_EQ(CDFlib(SELECT_, gENTRY_, 4L, zENTRY_, 6L, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEoff, NULL_), CDF_OK);  // even the same mode
    EXPECT_EQ(selections(), kNoneSelected);
    EXPECT_EQ(CDFlib(SELECT_, CDF_zMODE_, 3L, NULL_), BAD_zMODE);
}

TEST_F(Selection, DeletingTheCurrentVariableRenumbersTheRest) {
    create("s");
    for (const char* name : {"v0", "v1", "v2", "v3"}) create_zvar(name, CDF_INT4, 1);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 1L, DELETE_, zVAR_, NULL_), CDF_OK);
    long n = -9;
    char name[CDF_VAR_NAME_LEN256 + 1];
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_, &n, NULL_), NO_VAR_SELECTED);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 1L, GET_, zVAR_NAME_, name, NULL_), CDF_OK);
    EXPECT_STREQ(name, "v2");
    EXPECT_EQ(CDFlib(SELECT_, zVAR_NAME_, "v3", NULL_), CDF_OK);
    EXPECT_EQ(confirm(zVAR_), 2);
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_EXISTENCE_, "v1", NULL_), NO_SUCH_VAR);
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_EXISTENCE_, "v0", NULL_), CDF_OK);
}

TEST_F(Selection, StandardFunctionsSelectWhatTheyTouch) {
    CDFid a = create("a");
    create_zvar("v0", CDF_INT4, 1);
    create_zvar("v1", CDF_INT4, 1);
    create_attr("g0", GLOBAL_SCOPE);
    create_attr("g1", GLOBAL_SCOPE);
    create("b");
    EXPECT_EQ(var_num(a, "v0"), 0);
    CDFid cur = nullptr;
    ASSERT_EQ(CDFlib(CONFIRM_, CDF_, &cur, NULL_), CDF_OK);
    EXPECT_EQ(cur, a);
    EXPECT_EQ((std::array{confirm(zVAR_), confirm(ATTR_)}), (std::array{1L, 1L}));
    char x = 'x';
    ASSERT_EQ(CDFputAttrEntry(a, 1, 0, 2, CDF_INT1, 1, &x), CDF_OK);
    EXPECT_EQ((std::array{confirm(ATTR_), confirm(gENTRY_)}), (std::array{0L, 2L}));
}

TEST_F(Selection, OpeningStartsWithNothingSelected) {
    CDFid id = create("o");
    create_zvar("v0", CDF_INT4, 1, {3, 4});
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 9L, NULL_), CDF_OK);
    ASSERT_EQ(close(id), CDF_OK);
    CDFid cur = reinterpret_cast<CDFid>(1);
    ASSERT_EQ(CDFlib(CONFIRM_, CDF_, &cur, NULL_), CDF_OK);
    EXPECT_EQ(cur, nullptr);
    ASSERT_EQ(open("o", id), CDF_OK);
    EXPECT_EQ(selections(), kNoneSelected);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(state(), (VarState{0, 1, 1, {0, 0}, {3, 4}, {1, 1}}));
}

}  // namespace
