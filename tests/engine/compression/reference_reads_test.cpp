// Reading the reference library's compressed files that the other tests do not
// rebuild: a file that ends inside the unused room of its last CVVR, and the
// sparse vectors files, whose bursts must read back as their inputs.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "compression_fixture.h"

namespace {

using cdfgate::test::CompressionTest;
using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;

TEST_F(CompressionTest, FileEndingInsideTheReserveRoomReads) {
    const std::string file = shared_data("compression/var_gzip6_reserve50_short.cdf").string();
    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, file.c_str(), &id, NULL_), CDF_OK);
    std::vector<double> values(2048 * 4);
    long count[] = {4}, zero[] = {0}, one[] = {1};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 2048L,
                     zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, count, zVAR_DIMINTERVALS_, one, GET_,
                     zVAR_HYPERDATA_, values.data(), NULL_),
              CDF_OK);
    for (std::size_t r = 0; r < 2048; ++r) {
        ASSERT_EQ(values[r * 4], static_cast<double>(r));
        ASSERT_EQ(values[r * 4 + 1] + values[r * 4 + 2] + values[r * 4 + 3], 0.0);
    }
    long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ(pct, 50);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    // Cut inside the payload, it is a truncated file.
    auto bytes = file_bytes(file);
    bytes.resize(0x3a4 + 24 + 1000);
    {
        std::ofstream out(path("cut.cdf"), std::ios::binary);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
    }
    EXPECT_EQ(CDFlib(OPEN_, CDF_, path("cut").c_str(), &id, NULL_), CDF_READ_ERROR);
}

// Bursts of records and the bytes they hold, by vector name (see the README).
TEST_F(CompressionTest, SparseVectorsFilesReadBackTheirBursts) {
    const std::vector<std::uint8_t> large = file_bytes(shared_data("compression/large_input.bin"));
    for (const char* method : {"rle", "huff", "ahuff"}) {
        const std::string file = shared_data(std::string("compression/vectors_") + method + ".cdf");
        CDFid id = nullptr;
        ASSERT_EQ(CDFlib(OPEN_, CDF_, file.c_str(), &id, NULL_), CDF_OK);
        std::vector<std::uint8_t> got(large.size());
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 100000L, zVAR_RECCOUNT_,
                         static_cast<long>(large.size()), GET_, zVAR_HYPERDATA_, got.data(), NULL_),
                  CDF_OK);
        EXPECT_TRUE(got == large) << method;
        // Between bursts: virtual records, read as the pad.
        std::uint8_t gap[3] = {};
        ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 39L, zVAR_RECCOUNT_, 3L, GET_, zVAR_HYPERDATA_,
                         gap, NULL_),
                  VIRTUAL_RECORD_DATA);
        EXPECT_EQ(gap[1], 254);
        EXPECT_EQ(gap[2], 254);
        long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
        ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
        EXPECT_EQ(pct, std::string(method) == "rle" ? 21 : std::string(method) == "huff" ? 26 : 23);
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

}  // namespace
