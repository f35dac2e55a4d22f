// Creating zVariables: data types, element counts, dimensions and variances
// are checked; accepted definitions read back as given.
#include <array>
#include <vector>

#include "cdf_fixture.h"

namespace {

class VariableCreation : public cdfgate::test::CdfTest {};

TEST_F(VariableCreation, DefinitionsAreChecked) {
    create("vc");
    const struct {
        const char* label;
        long type, elems;
        std::vector<long> dims;
        long status;
    } rows[] = {
        {"type 3", 3, 1, {}, BAD_DATA_TYPE},
        {"INT4 with 0 elements", CDF_INT4, 0, {}, BAD_NUM_ELEMS},
        {"INT4 with 2 elements", CDF_INT4, 2, {}, BAD_NUM_ELEMS},
        {"CHAR with 0 elements", CDF_CHAR, 0, {}, BAD_NUM_ELEMS},
        {"UCHAR with 300 elements", CDF_UCHAR, 300, {}, CDF_OK},
        {"11 dimensions", CDF_INT4, 1, std::vector<long>(11, 1), BAD_NUM_DIMS},
        {"a zero size", CDF_INT4, 1, {2, 0}, BAD_DIM_SIZE},
        {"10 dimensions", CDF_INT4, 1, {1, 1, 1, 1, 1, 1, 1, 1, 1, 2}, CDF_OK},
        {"40 GB records", CDF_DOUBLE, 1, {100000, 100000}, CDF_OK},
    };
    int n = 0;
    for (const auto& row : rows) {
        const std::string name = "v" + std::to_string(n++);
        std::vector<long> varys(row.dims.size(), VARY);
        long num = -9;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name.c_str(), row.type, row.elems,
                         static_cast<long>(row.dims.size()), row.dims.data(), VARY, varys.data(),
                         &num, NULL_),
                  row.status)
            << row.label;
        if (row.status != CDF_OK) {
            EXPECT_EQ(num, -9) << row.label;
        }
    }
    long num = -9;
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, "neg", CDF_INT4, 1L, -1L, nullptr, VARY, nullptr, &num, NULL_),
              BAD_NUM_DIMS);
}

TEST_F(VariableCreation, AnyNonZeroVarianceIsStoredAsVary) {
    create("vv");
    long dims[] = {2, 3}, varys[] = {5, 0};
    long num = -1;
    std::array<long, 2> got{};
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "v", CDF_INT4, 1L, 2L, dims, 7L, varys, &num, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(GET_, zVAR_DIMVARYS_, got.data(), NULL_), CDF_OK);
    EXPECT_EQ(got, (std::array{VARY, NOVARY}));
    EXPECT_EQ(get(zVAR_RECVARY_), VARY);
}

TEST_F(VariableCreation, NewVariablesHaveNoRecordsAndDefaults) {
    create("vd");
    create_zvar("v", CDF_REAL8, 1, {4});
    EXPECT_EQ((std::array{get(zVAR_MAXREC_), get(zVAR_NUMRECS_), get(zVAR_NUMallocRECS_),
                          get(zVAR_BLOCKINGFACTOR_), get(zVAR_SPARSERECORDS_)}),
              (std::array{-1L, 0L, 0L, 0L, NO_SPARSERECORDS}));
    long type = -9, parms[1] = {-9}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ((std::array{type, pct}), (std::array{NO_COMPRESSION, 100L}));
    double pad = 0;
    ASSERT_EQ(CDFlib(GET_, zVAR_PADVALUE_, &pad, NULL_), CDF_OK);
    EXPECT_EQ(pad, -1.0e30);
}

TEST_F(VariableCreation, VersionTwoFilesRefuseTheNewerTypes) {
    CDFsetFileBackward(BACKWARDFILEon);
    create("old");
    EXPECT_EQ(get(CDF_VERSION_) * 100 + get(CDF_RELEASE_) * 10 + get(CDF_INCREMENT_), 272);
    for (const long type : {CDF_INT8, CDF_TIME_TT2000, CDF_EPOCH16}) {
        long num = -9;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, "n", type, 1L, 0L, nullptr, VARY, nullptr, &num, NULL_),
                  BAD_DATA_TYPE)
            << type;
    }
    EXPECT_EQ(create_zvar("ok", CDF_INT4, 1), 0);
    int pad = -1;
    ASSERT_EQ(CDFlib(GET_, zVAR_PADVALUE_, &pad, NULL_), CDF_OK);
    EXPECT_EQ(pad, 0);  // version 2 default
}

}  // namespace
