// A compressed variable's blocks over their life: staged while written, stored
// on moving on or closing, appended to in a later session, rewritten in place,
// grown at the end of the file or moved, and the statuses around them.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <random>
#include <vector>

#include "compression_fixture.h"
#include "file_index.h"

namespace {

using cdfgate::test::be;
using cdfgate::test::CompressionTest;
using cdfgate::test::file_bytes;
using cdfgate::test::stored_blocks;

class BlockLifecycle : public CompressionTest {
  protected:
    // A new CDF "name" with an INT4 variable of dims compressed with GZIP 6.
    long make(const std::string& name, std::vector<long> dims = {}, long type = GZIP_COMPRESSION,
              long parm = 6) {
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        const long v = zvar("v", CDF_INT4, 1, std::move(dims));
        long parms[] = {parm};
        EXPECT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, type, parms, NULL_), CDF_OK);
        return v;
    }
    void reopen(const std::string& name) {
        CDFid id = nullptr;
        ASSERT_EQ(CDFlib(OPEN_, CDF_, path(name).c_str(), &id, NULL_), CDF_OK);
    }
    // Writes records first..first+count-1 of var, one value each, from values.
    static CDFstatus put(long var, long first, const std::vector<std::int32_t>& values) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_,
                      static_cast<long>(values.size()), zVAR_RECINTERVAL_, 1L, PUT_,
                      zVAR_HYPERDATA_, values.data(), NULL_);
    }
    static std::vector<std::int32_t> get(long var, long first, long count,
                                         CDFstatus expected = CDF_OK) {
        std::vector<std::int32_t> out(static_cast<std::size_t>(count));
        EXPECT_EQ(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                         zVAR_RECINTERVAL_, 1L, GET_, zVAR_HYPERDATA_, out.data(), NULL_),
                  expected);
        return out;
    }
    static std::vector<std::int32_t> noise(std::size_t n, unsigned seed) {
        std::mt19937 gen(seed);
        std::vector<std::int32_t> v(n);
        for (auto& x : v) x = static_cast<std::int32_t>(gen());
        return v;
    }
    static long get_long(long item) {
        long v = -9;
        EXPECT_EQ(CDFlib(GET_, item, &v, NULL_), CDF_OK);
        return v;
    }
    static long percent() {
        long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
        EXPECT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
        return pct;
    }
};

TEST_F(BlockLifecycle, StagedRecordsReadBackAndCountBeforeTheyAreStored) {
    const long v = make("s", {100}, GZIP_COMPRESSION, 9);
    EXPECT_EQ(get_long(zVAR_BLOCKINGFACTOR_), 0);
    std::vector<std::int32_t> zeros(200, 0);
    zeros[150] = 7;
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 2L, PUT_,
                     zVAR_HYPERDATA_, zeros.data(), NULL_),
              CDF_OK);
    EXPECT_EQ(get_long(zVAR_NUMallocRECS_), 2);
    EXPECT_EQ(get_long(zVAR_MAXallocREC_), 1);
    EXPECT_EQ(get_long(zVAR_NUMRECS_), 2);
    EXPECT_EQ(get_long(zVAR_BLOCKINGFACTOR_), 164);  // ceil(65536 / 400)
    EXPECT_EQ(percent(), 0);                         // nothing stored yet
    std::vector<std::int32_t> back(200, -1);
    ASSERT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, back.data(), NULL_), CDF_OK);
    EXPECT_EQ(back, zeros);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    const auto blocks = stored_blocks(file_bytes(path("s.cdf")), 0);
    ASSERT_EQ(blocks.size(), 1u);
    reopen("s");
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(percent(), (200 * blocks[0].c_size + 800) / 1600);  // payload over 800 bytes
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(BlockLifecycle, BlocksHoldAtMostTheBlockingFactor) {
    const long v = make("b", {}, RLE_COMPRESSION, 0);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 30L, NULL_), BLOCKINGFACTOR_TOO_SMALL2);
    std::vector<std::int32_t> values(100);
    for (std::size_t i = 0; i < values.size(); i += 7) values[i] = static_cast<std::int32_t>(i);
    ASSERT_EQ(put(v, 0, values), CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 40L, NULL_), CANNOT_CHANGE);
    long parms[] = {0};
    EXPECT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, RLE_COMPRESSION, parms, NULL_), CANNOT_COMPRESS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 200L, 210L, NULL_), CANNOT_ALLOCATE_RECORDS);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto blocks = stored_blocks(file_bytes(path("b.cdf")), 0);
    ASSERT_EQ(blocks.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(blocks[i].first, static_cast<std::int64_t>(30 * i));
        EXPECT_EQ(blocks[i].last, std::min<std::int64_t>(30 * i + 29, 99));
        EXPECT_EQ(blocks[i].type, 13);
    }
    reopen("b");
    EXPECT_EQ(get(0, 0, 100), values);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(BlockLifecycle, RecordsAppendedInALaterSessionStartANewBlock) {
    const long v = make("a");
    ASSERT_EQ(put(v, 0, std::vector<std::int32_t>(100, 0)), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    reopen("a");
    EXPECT_EQ(get(0, 99, 1), std::vector<std::int32_t>{0});
    ASSERT_EQ(put(0, 100, std::vector<std::int32_t>(10, 5)), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto blocks = stored_blocks(file_bytes(path("a.cdf")), 0);
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_EQ(blocks[0].last, 99);
    EXPECT_EQ(blocks[1].first, 100);
    EXPECT_EQ(blocks[1].last, 109);
    reopen("a");
    EXPECT_EQ(get(0, 98, 4), (std::vector<std::int32_t>{0, 0, 5, 5}));
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

// Gaps below a non-sparse write are padded and join the blocks.
TEST_F(BlockLifecycle, SkippedRecordsArePaddedIntoTheBlocks) {
    const long v = make("g");
    ASSERT_EQ(put(v, 0, {1}), CDF_OK);
    ASSERT_EQ(put(v, 5, {6}), CDF_OK);
    const std::int32_t pad = -2147483647;
    EXPECT_EQ(get(v, 0, 6), (std::vector<std::int32_t>{1, pad, pad, pad, pad, 6}));
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), DID_NOT_COMPRESS);  // 24 bytes do not shrink
    const auto blocks = stored_blocks(file_bytes(path("g.cdf")), 0);
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].first, 0);
    EXPECT_EQ(blocks[0].last, 5);
}

TEST_F(BlockLifecycle, RewriteThatFitsStaysInPlaceWithSlack) {
    const long v = make("r");
    ASSERT_EQ(put(v, 0, noise(30, 1)), CDF_OK);  // staged: stored at the close
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), DID_NOT_COMPRESS);
    const auto size_before = std::filesystem::file_size(path("r.cdf"));
    const auto before = stored_blocks(file_bytes(path("r.cdf")), 0);
    ASSERT_EQ(before.size(), 1u);
    ASSERT_EQ(before[0].type, 7);

    reopen("r");
    ASSERT_EQ(put(0, 0, std::vector<std::int32_t>(30, 0)), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto after = stored_blocks(file_bytes(path("r.cdf")), 0);
    ASSERT_EQ(after.size(), 1u);
    EXPECT_EQ(after[0].offset, before[0].offset);
    EXPECT_EQ(after[0].size, before[0].size);  // the rest is slack
    EXPECT_EQ(after[0].type, 13);
    EXPECT_LT(after[0].c_size + 24, after[0].size);
    EXPECT_EQ(std::filesystem::file_size(path("r.cdf")), size_before);
    reopen("r");
    EXPECT_EQ(get(0, 0, 30), std::vector<std::int32_t>(30, 0));
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(BlockLifecycle, RewriteThatGrowsMovesAndFreesTheOldPlace) {
    const long v = make("m");
    ASSERT_EQ(put(v, 0, std::vector<std::int32_t>(100, 0)), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);  // the block is stored at the close
    reopen("m");
    const long w = zvar("w", CDF_INT4, 1, {});
    ASSERT_EQ(put(w, 0, {42}), CDF_OK);  // after it in the file
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto before = stored_blocks(file_bytes(path("m.cdf")), 0);
    ASSERT_EQ(before.size(), 1u);

    reopen("m");
    const auto values = noise(100, 2);
    ASSERT_EQ(put(0, 0, values), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), DID_NOT_COMPRESS);
    const auto bytes = file_bytes(path("m.cdf"));
    const auto after = stored_blocks(bytes, 0);
    ASSERT_EQ(after.size(), 1u);
    EXPECT_NE(after[0].offset, before[0].offset);
    EXPECT_EQ(after[0].type, 7);
    const std::int64_t uir_head = be(bytes, 320 + 64, 8);
    EXPECT_EQ(uir_head, before[0].offset);
    EXPECT_EQ(be(bytes, uir_head + 8, 4), -1);  // a UIR now

    reopen("m");  // validation walks the records: they still tile the file
    EXPECT_EQ(get(0, 0, 100), values);
    EXPECT_EQ(get(1, 0, 1), std::vector<std::int32_t>{42});
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(BlockLifecycle, RewriteOfTheLastRecordInTheFileGrowsInPlace) {
    const long v = make("e");
    ASSERT_EQ(put(v, 0, std::vector<std::int32_t>(100, 0)), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto before = stored_blocks(file_bytes(path("e.cdf")), 0);
    reopen("e");
    std::vector<std::int32_t> values(100);
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<std::int32_t>(i * i);
    ASSERT_EQ(put(0, 0, values), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto bytes = file_bytes(path("e.cdf"));
    const auto after = stored_blocks(bytes, 0);
    ASSERT_EQ(after.size(), 1u);
    EXPECT_EQ(after[0].offset, before[0].offset);
    EXPECT_GT(after[0].size, before[0].size);
    EXPECT_EQ(after[0].size, 24 + after[0].c_size);
    EXPECT_EQ(be(bytes, 320 + 64, 8), 0);  // nothing freed
    reopen("e");
    EXPECT_EQ(get(0, 0, 100), values);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(BlockLifecycle, MovingToANewBlockReportsAnUncompressedOne) {
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("d").c_str()), &id), CDF_OK);
    const long v = zvar("c", CDF_CHAR, 8, {});
    long parms[] = {0};
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, RLE_COMPRESSION, parms, PUT_, zVAR_BLOCKINGFACTOR_,
                     2L, NULL_),
              BLOCKINGFACTOR_TOO_SMALL2);
    char text[] = "abcdefghABCDEFGHijklmnop";
    ASSERT_EQ(put_record(v, 0, text), CDF_OK);
    ASSERT_EQ(put_record(v, 1, text + 8), CDF_OK);
    EXPECT_EQ(put_record(v, 2, text + 16), DID_NOT_COMPRESS);  // block 0-1 stored as a VVR
    char back[25] = {};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 3L, GET_, zVAR_HYPERDATA_, back,
                     NULL_),
              CDF_OK);
    EXPECT_STREQ(back, text);
    EXPECT_EQ(CDFlib(CLOSE_, CDF_, NULL_), DID_NOT_COMPRESS);
}

TEST_F(BlockLifecycle, InitialRecordsAreCompressedPads) {
    make("i", {}, RLE_COMPRESSION, 0);
    const std::int32_t pad = 0;
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, &pad, PUT_, zVAR_INITIALRECS_, 5L, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 4);
    EXPECT_EQ(get(0, 0, 5), std::vector<std::int32_t>(5, 0));
    EXPECT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 2L, NULL_), CANNOT_CHANGE);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto blocks = stored_blocks(file_bytes(path("i.cdf")), 0);
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].last, 4);
    EXPECT_EQ(blocks[0].type, 13);
    EXPECT_EQ(blocks[0].c_size, 2);  // RLE: 00 13
}

TEST_F(BlockLifecycle, NonRecordVariantVariableKeepsOneRecordBlock) {
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("n").c_str()), &id), CDF_OK);
    const long v = zvar("n", CDF_INT4, 1, {50}, NOVARY);
    long parms[] = {6};
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_), CDF_OK);
    std::vector<std::int32_t> values(50, 3);
    ASSERT_EQ(
        CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 7L, PUT_, zVAR_HYPERDATA_, values.data(), NULL_),
        CDF_OK);
    EXPECT_EQ(get_long(zVAR_BLOCKINGFACTOR_), 1);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 0);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const auto blocks = stored_blocks(file_bytes(path("n.cdf")), 0);
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].first, 0);
    EXPECT_EQ(blocks[0].last, 0);
}

}  // namespace

namespace {

using cdfgate::test::CompressionTest;

// Settings around compression, one row per call, on fresh variables of a new CDF.
TEST_F(CompressionTest, SettingsAroundCompressionGiveTheReferenceStatuses) {
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("s").c_str()), &id), CDF_OK);
    long gzip[] = {6}, zero[] = {0};
    long value = -9;

    // A blocking factor below 64 KiB worth of records, set before compression.
    zvar("a", CDF_INT4, 1, {});
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, gzip, NULL_),
              BLOCKINGFACTOR_TOO_SMALL);
    ASSERT_EQ(CDFlib(GET_, zVAR_BLOCKINGFACTOR_, &value, NULL_), CDF_OK);
    EXPECT_EQ(value, 10);

    // Reserve percentages: only for compressed variables; reset by a new compression.
    zvar("b", CDF_INT4, 1, {});
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RESERVEPERCENT_, 20L, NULL_), NA_FOR_VARIABLE);
    value = -9;
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_RESERVEPERCENT_, &value, NULL_), NA_FOR_VARIABLE);
    EXPECT_EQ(value, 0);
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, RLE_COMPRESSION, zero, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RESERVEPERCENT_, -1L, NULL_), BAD_COMPRESSION_PARM);
    EXPECT_EQ(
        CDFlib(SELECT_, zVAR_RESERVEPERCENT_, 150L, CONFIRM_, zVAR_RESERVEPERCENT_, &value, NULL_),
        CDF_OK);
    EXPECT_EQ(value, 150);
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, HUFF_COMPRESSION, zero, CONFIRM_,
                     zVAR_RESERVEPERCENT_, &value, NULL_),
              CDF_OK);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 0L, 9L, NULL_), CANNOT_ALLOCATE_RECORDS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATERECS_, 5L, NULL_), CANNOT_ALLOCATE_RECORDS);

    // Turning compression off again before any record.
    long type = -9, parms[CDF_MAX_PARMS] = {-9}, pct = -9;
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, NO_COMPRESSION, zero, GET_, zVAR_COMPRESSION_, &type,
                     parms, &pct, NULL_),
              CDF_OK);
    EXPECT_EQ(type, NO_COMPRESSION);
    EXPECT_EQ(parms[0], -9);
    EXPECT_EQ(pct, 100);

    // A non-record-variant variable takes blocking factor 1 whatever is asked.
    zvar("c", CDF_INT4, 1, {}, NOVARY);
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, gzip, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 8L, NULL_), FORCED_PARAMETER);
    ASSERT_EQ(CDFlib(GET_, zVAR_BLOCKINGFACTOR_, &value, NULL_), CDF_OK);
    EXPECT_EQ(value, 1);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

// Variables compressed inside a whole-file compressed CDF.
TEST_F(CompressionTest, CompressedVariablesInsideACompressedFile) {
    SampleOptions o;
    o.var_type = AHUFF_COMPRESSION;
    o.file_type = GZIP_COMPRESSION;
    o.file_parm = 9;
    ASSERT_EQ(write_sample("both", o), CDF_OK);
    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("both").c_str(), &id, NULL_), CDF_OK);
    long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ(type, GZIP_COMPRESSION);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 1L, GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_),
              CDF_OK);
    EXPECT_EQ(type, AHUFF_COMPRESSION);
    EXPECT_EQ(pct, 50);  // as in var_ahuff.cdf
    expect_sample_values();
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

}  // namespace
