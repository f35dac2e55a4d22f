// Selection state of CDFlib: per-CDF and per-variable selections, their checks,
// resets on create, delete, open and zMode changes. zMode 2 presents rVariables as
// zVariables numbered first, with only their varying dimensions, and rEntries as
// zEntries; zMode 1 keeps every dimension.
#include <array>
#include <ostream>
#include <string>
#include <utility>

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

struct Inquiry {
    std::string name;
    long type = -9, elems = -9, dims = -9, rec_vary = -9;
    std::array<long, 2> sizes{-9, -9}, varys{-9, -9};
};

Inquiry inquire(long v) {
    Inquiry q;
    char name[CDF_VAR_NAME_LEN256 + 1] = {};
    EXPECT_EQ(
        CDFlib(SELECT_, zVAR_, v, GET_, zVAR_NAME_, name, zVAR_DATATYPE_, &q.type, zVAR_NUMELEMS_,
               &q.elems, zVAR_NUMDIMS_, &q.dims, zVAR_DIMSIZES_, q.sizes.data(), zVAR_RECVARY_,
               &q.rec_vary, zVAR_DIMVARYS_, q.varys.data(), NULL_),
        CDF_OK);
    q.name = name;
    return q;
}

class ZMode : public cdfgate::test::CdfTest {
  protected:
    // The file of the observed zMode cases, without values.
    void SetUp() override {
        CdfTest::SetUp();
        long dims[] = {3, 4};
        CDFid id = nullptr;
        ASSERT_EQ(CDFlib(CREATE_, CDF_, path("r").c_str(), 2L, dims, &id, NULL_), CDF_OK);
        long num = -1;
        long vv[] = {VARY, VARY}, vn[] = {VARY, NOVARY}, nn[] = {NOVARY, NOVARY};
        ASSERT_EQ(CDFlib(CREATE_, rVAR_, "rA", CDF_INT2, 1L, VARY, vv, &num, NULL_), CDF_OK);
        ASSERT_EQ(CDFlib(CREATE_, rVAR_, "rB", CDF_REAL4, 1L, NOVARY, vn, &num, NULL_), CDF_OK);
        ASSERT_EQ(CDFlib(CREATE_, rVAR_, "rC", CDF_CHAR, 4L, VARY, nn, &num, NULL_), CDF_OK);
        EXPECT_EQ(num, 2);
        long five[] = {5}, one[] = {VARY};
        ASSERT_EQ(CDFlib(CREATE_, zVAR_, "zA", CDF_INT4, 1L, 1L, five, VARY, one, &num, NULL_),
                  CDF_OK);
        EXPECT_EQ(num, 0);
        ASSERT_EQ(
            CDFlib(CREATE_, zVAR_, "zB", CDF_DOUBLE, 1L, 0L, nullptr, VARY, nullptr, &num, NULL_),
            CDF_OK);
        const long g = create_attr("G", GLOBAL_SCOPE);
        const long v = create_attr("V", VARIABLE_SCOPE);
        char ghi[] = "ghi", rc[] = "rc";
        short i2 = 100;
        int i4 = 200;
        double d = 300;
        ASSERT_EQ(CDFputAttrEntry(id, 1, g, 2, CDF_CHAR, 3, ghi), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 2, v, 0, CDF_INT2, 1, &i2), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 2, v, 2, CDF_CHAR, 2, rc), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 3, v, 0, CDF_INT4, 1, &i4), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 3, v, 1, CDF_DOUBLE, 1, &d), CDF_OK);
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
        ASSERT_EQ(open("r", id_), CDF_OK);
    }
    CDFid id_ = nullptr;
};

TEST_F(ZMode, CountsAndNumbering) {
    EXPECT_EQ((std::array{confirm(CDF_zMODE_), get(CDF_NUMrVARS_), get(CDF_NUMzVARS_)}),
              (std::array{zMODEoff, 3L, 2L}));
    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_), CDF_OK);
    EXPECT_EQ((std::array{get(CDF_NUMrVARS_), get(CDF_NUMzVARS_), get(rVARs_NUMDIMS_),
                          get(rVARs_MAXREC_)}),
              (std::array{0L, 5L, 2L, -1L}));
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, 5L, NULL_), NO_SUCH_VAR);
    EXPECT_EQ(var_num(id_, "rC"), 2);
    EXPECT_EQ(var_num(id_, "zA"), 3);
    long num = -1;
    long two[] = {2}, vary[] = {VARY};
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "zC", CDF_INT1, 1L, 1L, two, VARY, vary, &num, NULL_), CDF_OK);
    EXPECT_EQ(num, 5);
    EXPECT_EQ(CDFlib(CREATE_, rVAR_, "rD", CDF_INT1, 1L, VARY, vary, &num, NULL_),
              ILLEGAL_IN_zMODE);
    EXPECT_EQ(CDFlib(SELECT_, rVAR_, 0L, NULL_), ILLEGAL_IN_zMODE);
    EXPECT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEoff, NULL_), CDF_OK);
    EXPECT_EQ(var_num(id_, "rB"), 1);
    EXPECT_EQ(var_num(id_, "zB"), 1);  // ambiguous in zMode 0
}

TEST_F(ZMode, TwoHidesNonVaryingDimensionsOneKeepsThem) {
    const struct {
        long mode;
        long var;
        const char* name;
        long dims;
        std::array<long, 2> sizes, varys;
    } rows[] = {
        {zMODEon2, 0, "rA", 2, {3, 4}, {VARY, VARY}},
        {zMODEon2, 1, "rB", 1, {3, -9}, {VARY, -9}},
        {zMODEon2, 2, "rC", 0, {-9, -9}, {-9, -9}},
        {zMODEon2, 3, "zA", 1, {5, -9}, {VARY, -9}},
        {zMODEon2, 4, "zB", 0, {-9, -9}, {-9, -9}},
        {zMODEon1, 1, "rB", 2, {3, 4}, {VARY, NOVARY}},
        {zMODEon1, 2, "rC", 2, {3, 4}, {NOVARY, NOVARY}},
    };
    for (const auto& row : rows) {
        ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, row.mode, NULL_), CDF_OK);
        const Inquiry q = inquire(row.var);
        EXPECT_EQ(q.name, row.name);
        EXPECT_EQ(q.dims, row.dims) << row.name;
        EXPECT_EQ(q.sizes, row.sizes) << row.name;
        EXPECT_EQ(q.varys, row.varys) << row.name;
    }
    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_), CDF_OK);
    const Inquiry rb = inquire(1);
    EXPECT_EQ(rb.type, CDF_REAL4);
    EXPECT_EQ(rb.rec_vary, NOVARY);
    EXPECT_EQ(inquire(2).elems, 4);
}

TEST_F(ZMode, REntriesAppearAsZEntries) {
    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_), CDF_OK);
    char name[CDF_ATTR_NAME_LEN256 + 1];
    long scope = 0, g = 0, r = 0, z = 0, n = -9;
    ASSERT_EQ(CDFinquireAttr(id_, 1, name, &scope, &g, &r, &z), CDF_OK);
    EXPECT_EQ((std::array{g, r, z}), (std::array{-1L, -1L, 4L}));
    for (const auto& [kind, count] : {std::pair{3L, 4L}, std::pair{2L, 0L}}) {
        ASSERT_EQ(CDFgetNumAttrEntries(id_, kind, 1, &n), CDF_OK);
        EXPECT_EQ(n, count) << kind;
    }
    long type = -9, elems = -9;
    const struct {
        long entry;
        long status, type, elems;
    } rows[] = {{0, CDF_OK, CDF_INT2, 1},
                {1, NO_SUCH_ENTRY, -9, -9},
                {2, CDF_OK, CDF_CHAR, 2},
                {3, CDF_OK, CDF_INT4, 1},
                {4, CDF_OK, CDF_DOUBLE, 1}};
    for (const auto& row : rows) {
        type = elems = -9;
        EXPECT_EQ(CDFinquireAttrEntry(id_, 3, 1, row.entry, &type, &elems), row.status)
            << row.entry;
        EXPECT_EQ((std::array{type, elems}), (std::array{row.type, row.elems})) << row.entry;
    }
    int value = 0;
    ASSERT_EQ(CDFgetAttrEntry(id_, 3, 1, 3, &value), CDF_OK);
    EXPECT_EQ(value, 200);

    int v555 = 555;
    ASSERT_EQ(CDFputAttrEntry(id_, 3, 1, 1, CDF_INT4, 1, &v555), CDF_OK);  // rB's rEntry
    EXPECT_EQ(CDFputAttrEntry(id_, 2, 1, 0, CDF_INT4, 1, &v555), ILLEGAL_IN_zMODE);
    ASSERT_EQ(close(id_), CDF_OK);
    ASSERT_EQ(open("r", id_), CDF_OK);
    value = 0;
    ASSERT_EQ(CDFlib(SELECT_, ATTR_, 1L, rENTRY_, 1L, GET_, rENTRY_DATATYPE_, &type, rENTRY_DATA_,
                     &value, NULL_),
              CDF_OK);
    EXPECT_EQ((std::array{type, long{value}}), (std::array{CDF_INT4, 555L}));
}

TEST(ZModeRecords, RVariableRecordsInZModeZeroAndTwo) {
    const std::string file = std::string(CDFGATE_SHARED_DATA) + "/format/rvars_network.cdf";
    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, file.c_str(), &id, NULL_), CDF_OK);
    std::array<short, 6> full{};
    ASSERT_EQ(CDFgetVarRecordData(id, 0, 0, 1, full.data()), CDF_OK);
    // Dimension 1 does not vary: each stored value repeats along it.
    EXPECT_EQ(full, (std::array<short, 6>{1, 1, 1, 2, 2, 2}));
    EXPECT_EQ(CDFgetVarRecordData(id, 0, 2, 0, full.data()), NO_SUCH_VAR);
    EXPECT_EQ(cdfgate::test::CdfTest::confirm(CDF_zMODE_), zMODEoff);

    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_), CDF_OK);
    std::array<short, 2> shown{};
    ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, 0, shown.data()), CDF_OK);
    EXPECT_EQ(shown, (std::array<short, 2>{1, 2}));
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

}  // namespace
