// Damaged and cut compressed variables and compression parameters: each gives the
// status the reference library gives, on open or when the block is read.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "compression_fixture.h"

namespace {

using namespace cdfgate::test;

class DamagedBlocks : public CompressionTest {
  protected:
    // Writes sample with bytes changed at the given offsets; returns its name.
    std::string damaged(const char* sample, const std::vector<std::pair<std::size_t, int>>& edits) {
        auto bytes = file_bytes(shared_data(std::string("compression/") + sample));
        for (const auto& [at, value] : edits) bytes.at(at) = static_cast<std::uint8_t>(value);
        const std::string name = path("d" + std::to_string(++count_));
        write_file(name + ".cdf", bytes);
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
        ASSERT_EQ(open_cdf(damaged(row.sample, row.edits)), CDF_OK) << row.what;
        EXPECT_EQ(read_all(row.var), row.status) << row.what;
        EXPECT_EQ(read_all(1), CDF_OK) << row.what;  // other variables still read
        ASSERT_EQ(close_cdf(), CDF_OK);
    }
}

// The CPR of r8 in var_gzip6.cdf is at 0x8b2; its parameter at 0x8ca.
TEST_F(DamagedBlocks, InvalidParameterIsCorruptionUnderValidation) {
    const std::string name = damaged("var_gzip6.cdf", {{0x8ca + 3, 0}});  // level 0
    EXPECT_EQ(open_cdf(name), CORRUPTED_V3_CDF);
    CDFsetValidate(VALIDATEFILEoff);
    ASSERT_EQ(open_cdf(name), CDF_OK);
    EXPECT_EQ(read_all(0), UNKNOWN_COMPRESSION);
    EXPECT_EQ(read_all(1), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
}

// The CPR of file_gzip6.cdf follows its CCR at 0x90c.
TEST_F(DamagedBlocks, WholeFileWithAnInvalidParameterDoesNotOpen) {
    EXPECT_EQ(open_cdf(damaged("file_gzip6.cdf", {{0x90c + 27, 12}})), UNKNOWN_COMPRESSION);
    EXPECT_EQ(open_cdf(damaged("file_gzip6.cdf", {{0x90c + 15, 4}})),
              UNKNOWN_COMPRESSION);  // the retired type 4
}

// The reference library's file ends inside the unused room of its last CVVR and
// reads; cut inside the payload, it is a truncated file.
TEST_F(DamagedBlocks, FileEndingInsideTheReserveRoomReads) {
    const std::string file = shared_data("compression/var_gzip6_reserve50_short.cdf").string();
    ASSERT_EQ(open_cdf(file), CDF_OK);
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
    EXPECT_EQ(var_compression(0).pct, 50);
    ASSERT_EQ(close_cdf(), CDF_OK);
    auto bytes = file_bytes(file);
    bytes.resize(0x3a4 + 24 + 1000);
    write_file(path("cut.cdf"), bytes);
    EXPECT_EQ(open_cdf(path("cut")), CDF_READ_ERROR);
}

}  // namespace
