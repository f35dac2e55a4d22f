// zMode 2 presents rVariables as zVariables numbered first, with only their
// varying dimensions, and rEntries as zEntries; zMode 1 keeps every dimension.
#include <array>
#include <string>
#include <utility>

#include "cdf_fixture.h"

namespace {

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
