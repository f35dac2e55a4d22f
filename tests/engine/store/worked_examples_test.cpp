// Files written through the C interface match the reference samples byte for
// byte when made with the same calls.
#include <gtest/gtest.h>

#include <cstring>

#include "cdf.h"
#include "reference_files.h"
#include "test_files.h"

namespace {

using cdfgate::test::shared_data;

class WorkedExample : public cdfgate::test::ReferenceFiles {};

TEST_F(WorkedExample, EmptyFile) {
    for (const bool backward : {false, true}) {
        const std::string name = backward ? "e27" : "e3";
        CDFid id = create(name, backward);
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, backward ? "empty_v27.cdf" : "empty.cdf");
    }
}

TEST_F(WorkedExample, GlobalAttributeWithTwoEntries) {
    for (const bool backward : {false, true}) {
        const std::string name = backward ? "g27" : "g3";
        CDFid id = create(name, backward);
        long attr = -1;
        ASSERT_EQ(CDFlib(CREATE_, ATTR_, "Project", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
        char text[] = "Hello CDF";
        double reals[] = {1.5, -2.25};
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_CHAR, 9, text), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 1, CDF_REAL8, 2, reals), CDF_OK);
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, backward ? "gattr_v27.cdf" : "gattr.cdf");
    }
}

TEST_F(WorkedExample, VariableAttributeWithOneZEntry) {
    for (const bool backward : {false, true}) {
        const std::string name = backward ? "v27" : "v3";
        CDFid id = create(name, backward);
        long var = -1, attr = -1;
        ASSERT_EQ(
            CDFlib(CREATE_, zVAR_, "Temp", CDF_REAL4, 1L, 0L, nullptr, VARY, nullptr, &var, NULL_),
            CDF_OK);
        ASSERT_EQ(CDFlib(CREATE_, ATTR_, "UNITS", VARIABLE_SCOPE, &attr, NULL_), CDF_OK);
        char text[] = "Kelvin";
        ASSERT_EQ(CDFputAttrEntry(id, 3, attr, var, CDF_CHAR, 6, text), CDF_OK);
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, backward ? "vattr_v27.cdf" : "vattr.cdf");
    }
}

TEST_F(WorkedExample, GrownEntryLeavesUnusedRecord) {
    CDFid id = create("grown", false);
    long attr = -1;
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "A", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
    char abc[] = "abc", xyz[] = "xyz", longer[] = "abcdefghij";
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_CHAR, 3, abc), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 1, CDF_CHAR, 3, xyz), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_CHAR, 10, longer), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    expect_same("grown", "uir_entry_grown.cdf");
}

TEST_F(WorkedExample, DeletedAttributeLeavesUnusedRecords) {
    CDFid id = create("deleted", false);
    long a = -1, b = -1;
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "A", GLOBAL_SCOPE, &a, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "B", GLOBAL_SCOPE, &b, NULL_), CDF_OK);
    char abc[] = "abc", def[] = "def";
    ASSERT_EQ(CDFputAttrEntry(id, 1, a, 0, CDF_CHAR, 3, abc), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, b, 0, CDF_CHAR, 3, def), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, ATTR_, a, DELETE_, ATTR_, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    expect_same("deleted", "uir_attr_deleted.cdf");
}

TEST_F(WorkedExample, ChecksummedFile) {
    CDFid id = create("sum", false);
    long attr = -1;
    ASSERT_EQ(CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "A", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
    char hi[] = "hi";
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_CHAR, 2, hi), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    expect_same("sum", "checksum_md5.cdf");
}

TEST_F(WorkedExample, ValuesInNetworkAndVaxEncodings) {
    const struct {
        long encoding;
        const char* sample;
    } rows[] = {{NETWORK_ENCODING, "encoding_network.cdf"},
                {VAX_ENCODING, "encoding_vax.cdf"},
                {ALPHAVMSg_ENCODING, "encoding_alphavmsg.cdf"}};
    for (const auto& row : rows) {
        const std::string name = "enc" + std::to_string(row.encoding);
        CDFid id = create(name, false);
        ASSERT_EQ(CDFlib(PUT_, CDF_ENCODING_, row.encoding, NULL_), CDF_OK);
        long attr = -1;
        ASSERT_EQ(CDFlib(CREATE_, ATTR_, "A", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
        float r4[] = {1.0f, -2.5f, 3.0e-39f, 1.0e30f};
        double r8[] = {1.0, -2.5, 1.0e-300, 0.1};
        short i2 = 0x0102;
        int i4 = 0x01020304;
        long long i8 = 0x0102030405060708LL;
        double epoch = 63113904000000.0;
        double epoch16[] = {63113904000.0, 1.0};
        long long tt2000 = 0;
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_REAL4, 4, r4), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 1, CDF_REAL8, 4, r8), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 2, CDF_INT2, 1, &i2), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 3, CDF_INT4, 1, &i4), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 4, CDF_INT8, 1, &i8), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 5, CDF_EPOCH, 1, &epoch), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 6, CDF_EPOCH16, 1, epoch16), CDF_OK);
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 7, CDF_TIME_TT2000, 1, &tt2000), CDF_OK);
        long var = -1;
        ASSERT_EQ(
            CDFlib(CREATE_, zVAR_, "R4", CDF_REAL4, 1L, 0L, nullptr, VARY, nullptr, &var, NULL_),
            CDF_OK);
        ASSERT_EQ(
            CDFlib(CREATE_, zVAR_, "R8", CDF_REAL8, 1L, 0L, nullptr, VARY, nullptr, &var, NULL_),
            CDF_OK);
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, row.sample);
    }
}

TEST_F(WorkedExample, ValuesReadBackFromOtherEncodings) {
    for (const char* sample :
         {"encoding_network.cdf", "encoding_vax.cdf", "encoding_alphavmsg.cdf"}) {
        CDFid id = nullptr;
        const std::string file = shared_data(std::string("format/") + sample).string();
        ASSERT_EQ(CDFlib(OPEN_, CDF_, file.c_str(), &id, NULL_), CDF_OK) << sample;
        float r4[4] = {};
        double r8[4] = {};
        long long i8 = 0;
        double epoch16[2] = {};
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 0, r4), CDF_OK);
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 1, r8), CDF_OK);
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 4, &i8), CDF_OK);
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 6, epoch16), CDF_OK);
        EXPECT_EQ(r4[0], 1.0f) << sample;
        EXPECT_EQ(r4[1], -2.5f) << sample;
        EXPECT_EQ(r4[2], 3.0e-39f) << sample;
        EXPECT_EQ(r4[3], 1.0e30f) << sample;
        EXPECT_EQ(r8[1], -2.5) << sample;
        EXPECT_EQ(r8[3], 0.1) << sample;
        // The smallest D_FLOAT magnitude stands in for 1.0e-300 in the VAX file.
        EXPECT_EQ(r8[2],
                  std::string(sample) == "encoding_vax.cdf" ? 2.9387358770557188e-39 : 1.0e-300)
            << sample;
        EXPECT_EQ(i8, 0x0102030405060708LL) << sample;
        EXPECT_EQ(epoch16[0], 63113904000.0) << sample;
        EXPECT_EQ(epoch16[1], 1.0) << sample;
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

}  // namespace
