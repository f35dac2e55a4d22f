// Files written through the C interface match the reference samples byte for
// byte when made with the same calls.
#include <gtest/gtest.h>

#include <cstring>

#include "cdf.h"
#include "test_files.h"

namespace {

using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;

class WorkedExample : public cdfgate::test::ScratchDir {
  protected:
    void TearDown() override {
        CDFsetFileBackward(BACKWARDFILEoff);
        ScratchDir::TearDown();
    }

    CDFid create(const std::string& name, bool backward) {
        CDFsetFileBackward(backward ? BACKWARDFILEon : BACKWARDFILEoff);
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        return id;
    }

    void expect_same(const std::string& name, const std::string& sample) {
        const auto written = file_bytes(path(name + ".cdf"));
        const auto expected = file_bytes(shared_data("format/" + sample));
        ASSERT_FALSE(expected.empty()) << "missing sample " << sample;
        ASSERT_EQ(written.size(), expected.size()) << sample;
        for (std::size_t i = 0; i < written.size(); ++i) {
            ASSERT_EQ(written[i], expected[i]) << sample << " differs at offset " << i;
        }
    }
};

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

}  // namespace
