// jcdf, an independent reader, lists the records the engine's data layer laid
// out: column-major records built from partial and strided hyperslab writes,
// gaps padded by later writes, a big-endian file, and a variable whose small
// blocks need a multi-level VXR index.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "cdf.h"
#include "jcdf_listing.h"

namespace {

namespace fs = std::filesystem;

constexpr int kPad = -2147483647;

std::string line(long record, const std::vector<int>& values) {
    std::string s = std::to_string(record) + ":";
    for (std::size_t i = 0; i < values.size(); ++i) {
        s += (i ? ", " : " ") + std::to_string(values[i]);
    }
    return s;
}

class JcdfData : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("cdfgate-jcdf-data-" + std::to_string(::getpid()));
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    fs::path dir_;
};

TEST_F(JcdfData, ListsTheRecordsOfHyperslabWritesGapsAndIndexTrees) {
    const std::string name = (dir_ / "layout").string();
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), CDF_OK);
    ASSERT_EQ(
        CDFlib(PUT_, CDF_MAJORITY_, COLUMN_MAJOR, PUT_, CDF_ENCODING_, NETWORK_ENCODING, NULL_),
        CDF_OK);
    std::map<std::string, std::vector<std::string>> want;

    // [2,3] records in column-major order: element (i,j) at i + 2j.
    long dims[] = {2, 3}, varys[] = {VARY, VARY}, var = -1;
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "grid", CDF_INT4, 1L, 2L, dims, VARY, varys, &var, NULL_),
              CDF_OK);
    // Records 1 and 3 (interval 2), row 1 only (indices [1,0], counts [1,3]).
    int row[] = {10, 11, 12, 30, 31, 32};
    long at[] = {1, 0}, counts[] = {1, 3}, ones[] = {1, 1};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 1L, zVAR_RECCOUNT_, 2L, zVAR_RECINTERVAL_, 2L,
                     zVAR_DIMINDICES_, at, zVAR_DIMCOUNTS_, counts, zVAR_DIMINTERVALS_, ones, PUT_,
                     zVAR_HYPERDATA_, row, NULL_),
              CDF_OK);
    // One value at (0,2) of record 3.
    int one = 99;
    long at02[] = {0, 2};
    ASSERT_EQ(
        CDFlib(SELECT_, zVAR_RECNUMBER_, 3L, zVAR_DIMINDICES_, at02, PUT_, zVAR_DATA_, &one, NULL_),
        CDF_OK);
    want["grid"] = {
        line(0, {kPad, kPad, kPad, kPad, kPad, kPad}), line(1, {kPad, 10, kPad, 11, kPad, 12}),
        line(2, {kPad, kPad, kPad, kPad, kPad, kPad}), line(3, {kPad, 30, kPad, 31, 99, 32})};

    // Blocks of one record each, interleaved with another variable: 24 VVRs
    // under a two-level index.
    long small = -1, other = -1;
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "small", CDF_INT4, 1L, 0L, dims, VARY, varys, &small, NULL_),
              CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 1L, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "other", CDF_INT4, 1L, 0L, dims, VARY, varys, &other, NULL_),
              CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 1L, NULL_), CDF_OK);
    for (int r = 0; r < 24; ++r) {
        int a = 1000 + r, b = 2000 + r;
        ASSERT_EQ(CDFputVarRecordData(id, 1, small, r, &a), CDF_OK);
        ASSERT_EQ(CDFputVarRecordData(id, 1, other, r, &b), CDF_OK);
        want["small"].push_back(line(r, {a}));
        want["other"].push_back(line(r, {b}));
    }
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    const std::string listing = cdfgate::test::jcdf_listing(name + ".cdf");
    const auto got = cdfgate::test::jcdf_records(listing);
    ASSERT_EQ(got.size(), want.size()) << listing.substr(0, 2000);
    for (const auto& [variable, lines] : want) {
        ASSERT_TRUE(got.count(variable)) << variable << "\n" << listing.substr(0, 2000);
        EXPECT_EQ(got.at(variable), lines) << variable;
    }
}

}  // namespace
