// Damaged compressed variables and compression parameters: each gives the status
// the reference library gives, on open or when the block is read.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "compression_fixture.h"

namespace {

using cdfgate::test::CompressionTest;
using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;

class DamagedBlocks : public CompressionTest {
  protected:
    // Writes sample with bytes changed at the given offsets; returns its name.
    std::string damaged(const char* sample, const std::vector<std::pair<std::size_t, int>>& edits) {
        auto bytes = file_bytes(shared_data(std::string("compression/") + sample));
        for (const auto& [at, value] : edits) bytes.at(at) = static_cast<std::uint8_t>(value);
        const std::string name = path("d" + std::to_string(++count_));
        std::ofstream out(name + ".cdf", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
        return name;
    }
    // Reads all 100 records of variable var of the open current CDF.
    static CDFstatus read_all(long var) {
        std::vector<double> out(400);
        long dims[CDF_MAX_DIMS] = {}, zeros[CDF_MAX_DIMS] = {}, ones[CDF_MAX_DIMS] = {1, 1};
        CDFstatus s = CDFlib(SELECT_, zVAR_, var, GET_, zVAR_DIMSIZES_, dims, NULL_);
        if (s != CDF_OK) return s;
        return CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 100L, zVAR_DIMINDICES_, zeros,
                      zVAR_DIMCOUNTS_, dims, zVAR_DIMINTERVALS_, ones, GET_, zVAR_HYPERDATA_,
                      out.data(), NULL_);
    }
    int count_ = 0;
};

TEST_F(DamagedBlocks, DamagedPayloadsFailWhenRead) {
    struct Row {
        const char* what;
        const char* sample;
        std::vector<std::pair<std::size_t, int>> edits;
        long var;
        CDFstatus status;
    };
    // blk of var_rle.cdf: block 0-39 is a CVVR at 0x9ae with cSize 11 (at 0x9be),
    // payload 00 13 0a 00 12 14 00 12 1e 00 12; r8 of var_gzip6.cdf: a CVVR at
    // 0xaac (675 bytes, ending with the input size 80 0c 00 00) whose payload starts
    // at 0xac4.
    const Row rows[] = {
        {"RLE ends with a lone zero", "var_rle.cdf", {{0x9be + 7, 10}}, 3, DECOMPRESSION_ERROR},
        {"RLE decodes short", "var_rle.cdf", {{0x9be + 7, 9}}, 3, VAR_READ_ERROR},
        {"deflate data damaged", "var_gzip6.cdf", {{0xac4 + 100, 0x5a}}, 0, ZLIB_UNCOMPRESS_ERROR},
        {"gzip trailer damaged", "var_gzip6.cdf", {{0xaac + 671, 0x81}}, 0, ZLIB_UNCOMPRESS_ERROR},
    };
    for (const Row& row : rows) {
        CDFid id = nullptr;
        ASSERT_EQ(CDFlib(OPEN_, CDF_, damaged(row.sample, row.edits).c_str(), &id, NULL_), CDF_OK)
            << row.what;
        EXPECT_EQ(read_all(row.var), row.status) << row.what;
        EXPECT_EQ(read_all(1), CDF_OK) << row.what;  // other variables still read
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

// The CPR of r8 in var_gzip6.cdf is at 0x8b2; its parameter at 0x8ca.
TEST_F(DamagedBlocks, InvalidParameterIsCorruptionUnderValidation) {
    const std::string name = damaged("var_gzip6.cdf", {{0x8ca + 3, 0}});  // level 0
    CDFid id = nullptr;
    EXPECT_EQ(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), CORRUPTED_V3_CDF);
    CDFsetValidate(VALIDATEFILEoff);
    ASSERT_EQ(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), CDF_OK);
    EXPECT_EQ(read_all(0), UNKNOWN_COMPRESSION);
    EXPECT_EQ(read_all(1), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

// The CPR of file_gzip6.cdf follows its CCR at 0x90c.
TEST_F(DamagedBlocks, WholeFileWithAnInvalidParameterDoesNotOpen) {
    CDFid id = nullptr;
    EXPECT_EQ(
        CDFlib(OPEN_, CDF_, damaged("file_gzip6.cdf", {{0x90c + 27, 12}}).c_str(), &id, NULL_),
        UNKNOWN_COMPRESSION);
    EXPECT_EQ(CDFlib(OPEN_, CDF_, damaged("file_gzip6.cdf", {{0x90c + 15, 4}}).c_str(), &id, NULL_),
              UNKNOWN_COMPRESSION);  // the retired type 4
}

}  // namespace
