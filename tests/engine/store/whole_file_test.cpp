// Whole-file compression: reading a compressed sample, the CDF_INFO_ inquiry and
// the parameters refused. (Writing compressed files: the compression suite.)
#include <gtest/gtest.h>

#include "cdf.h"
#include "test_files.h"

namespace {

using cdfgate::test::shared_data;

class WholeFile : public cdfgate::test::ScratchDir {};

TEST_F(WholeFile, CompressedSampleOpensWithItsCompression) {
    const std::string file = shared_data("format/compressed_file_gzip.cdf").string();
    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, file.c_str(), &id, NULL_), CDF_OK);
    long type = -9, parms[CDF_MAX_PARMS] = {-9}, pct = -9, vars = -9;
    ASSERT_EQ(CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, CDF_NUMzVARS_, &vars, NULL_),
              CDF_OK);
    EXPECT_EQ(type, GZIP_COMPRESSION);
    EXPECT_EQ(parms[0], 9);
    EXPECT_EQ(pct, 408 * 100 / 9096);
    EXPECT_EQ(vars, 1);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    long long stored = 0, expanded = 0;
    ASSERT_EQ(CDFlib(GET_, CDF_INFO_, file.c_str(), &type, parms, &stored, &expanded, NULL_),
              CDF_OK);
    EXPECT_EQ(type, GZIP_COMPRESSION);
    EXPECT_EQ(stored, 408);
    EXPECT_EQ(expanded, 9096);
}

TEST_F(WholeFile, CompressionParametersAreChecked) {
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("p").c_str()), &id), CDF_OK);
    const struct {
        long type, parm, status;
    } rows[] = {{GZIP_COMPRESSION, 0, BAD_COMPRESSION_PARM},
                {GZIP_COMPRESSION, 10, BAD_COMPRESSION_PARM},
                {4, 0, UNKNOWN_COMPRESSION},
                {6, 0, UNKNOWN_COMPRESSION},
                {-1, 0, UNKNOWN_COMPRESSION},
                {RLE_COMPRESSION, 1, BAD_COMPRESSION_PARM},
                {RLE_COMPRESSION, 0, CDF_OK},
                {GZIP_COMPRESSION, 6, CDF_OK}};
    for (const auto& row : rows) {
        long parms[] = {row.parm};
        EXPECT_EQ(CDFlib(PUT_, CDF_COMPRESSION_, row.type, parms, NULL_), row.status)
            << row.type << "/" << row.parm;
    }
    long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ(type, GZIP_COMPRESSION);
    EXPECT_EQ(parms[0], 6);
    EXPECT_EQ(pct, 0);  // not known until the file is written
    ASSERT_EQ(CDFlib(DELETE_, CDF_, NULL_), CDF_OK);
}

}  // namespace
