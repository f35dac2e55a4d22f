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

using namespace cdfgate::test;

using Spans = std::vector<std::pair<std::int64_t, std::int64_t>>;  // first, last

class BlockLifecycle : public CompressionTest {
  protected:
    // A new CDF "name" with an INT4 variable of dims compressed with GZIP 6.
    long make(const std::string& name, std::vector<long> dims = {}, long type = GZIP_COMPRESSION,
              long parm = 6, long rec_vary = VARY) {
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        const long v = zvar("v", CDF_INT4, 1, std::move(dims), rec_vary);
        long parms[] = {parm};
        EXPECT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, type, parms, NULL_), CDF_OK);
        return v;
    }
    void reopen(const std::string& name) { ASSERT_EQ(open_cdf(path(name)), CDF_OK); }
    std::vector<StoredBlock> blocks(const std::string& name) const {
        return stored_blocks(file_bytes(path(name + ".cdf")), 0);
    }
    static Spans spans(const std::vector<StoredBlock>& blocks) {
        Spans out;
        for (const auto& b : blocks) out.emplace_back(b.first, b.last);
        return out;
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
    static long percent() { return get_compression(zVAR_COMPRESSION_).pct; }
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
    ASSERT_EQ(close_cdf(), CDF_OK);

    const auto stored = blocks("s");
    ASSERT_EQ(stored.size(), 1u);
    reopen("s");
    EXPECT_EQ(var_compression(0).pct, (200 * stored[0].c_size + 800) / 1600);  // over 800 bytes
    ASSERT_EQ(close_cdf(), CDF_OK);
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
    ASSERT_EQ(close_cdf(), CDF_OK);
    const auto stored = blocks("b");
    EXPECT_EQ(spans(stored), (Spans{{0, 29}, {30, 59}, {60, 89}, {90, 99}}));
    for (const auto& b : stored) EXPECT_EQ(b.type, 13);
    reopen("b");
    EXPECT_EQ(get(0, 0, 100), values);
    ASSERT_EQ(close_cdf(), CDF_OK);
}

TEST_F(BlockLifecycle, RecordsAppendedInALaterSessionStartANewBlock) {
    const long v = make("a");
    ASSERT_EQ(put(v, 0, std::vector<std::int32_t>(100, 0)), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
    reopen("a");
    EXPECT_EQ(get(0, 99, 1), std::vector<std::int32_t>{0});
    ASSERT_EQ(put(0, 100, std::vector<std::int32_t>(10, 5)), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
    EXPECT_EQ(spans(blocks("a")), (Spans{{0, 99}, {100, 109}}));
    reopen("a");
    EXPECT_EQ(get(0, 98, 4), (std::vector<std::int32_t>{0, 0, 5, 5}));
    ASSERT_EQ(close_cdf(), CDF_OK);
}

// Gaps below a non-sparse write are padded and join the blocks.
TEST_F(BlockLifecycle, SkippedRecordsArePaddedIntoTheBlocks) {
    const long v = make("g");
    ASSERT_EQ(put(v, 0, {1}), CDF_OK);
    ASSERT_EQ(put(v, 5, {6}), CDF_OK);
    const std::int32_t pad = -2147483647;
    EXPECT_EQ(get(v, 0, 6), (std::vector<std::int32_t>{1, pad, pad, pad, pad, 6}));
    ASSERT_EQ(close_cdf(), DID_NOT_COMPRESS);  // 24 bytes do not shrink
    EXPECT_EQ(spans(blocks("g")), (Spans{{0, 5}}));
}

TEST_F(BlockLifecycle, RewriteThatFitsStaysInPlaceWithSlack) {
    const long v = make("r");
    ASSERT_EQ(put(v, 0, noise(30, 1)), CDF_OK);  // staged: stored at the close
    ASSERT_EQ(close_cdf(), DID_NOT_COMPRESS);
    const auto size_before = std::filesystem::file_size(path("r.cdf"));
    const auto before = blocks("r");
    ASSERT_EQ(before.size(), 1u);
    ASSERT_EQ(before[0].type, 7);

    reopen("r");
    ASSERT_EQ(put(0, 0, std::vector<std::int32_t>(30, 0)), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
    const auto after = blocks("r");
    ASSERT_EQ(after.size(), 1u);
    EXPECT_EQ(after[0].offset, before[0].offset);
    EXPECT_EQ(after[0].size, before[0].size);  // the rest is slack
    EXPECT_EQ(after[0].type, 13);
    EXPECT_LT(after[0].c_size + 24, after[0].size);
    EXPECT_EQ(std::filesystem::file_size(path("r.cdf")), size_before);
    reopen("r");
    EXPECT_EQ(get(0, 0, 30), std::vector<std::int32_t>(30, 0));
    ASSERT_EQ(close_cdf(), CDF_OK);
}

TEST_F(BlockLifecycle, RewriteThatGrowsMovesAndFreesTheOldPlace) {
    const long v = make("m");
    ASSERT_EQ(put(v, 0, std::vector<std::int32_t>(100, 0)), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);  // the block is stored at the close
    reopen("m");
    const long w = zvar("w", CDF_INT4, 1, {});
    ASSERT_EQ(put(w, 0, {42}), CDF_OK);  // after it in the file
    ASSERT_EQ(close_cdf(), CDF_OK);
    const auto before = blocks("m");
    ASSERT_EQ(before.size(), 1u);

    reopen("m");
    const auto values = noise(100, 2);
    ASSERT_EQ(put(0, 0, values), CDF_OK);
    ASSERT_EQ(close_cdf(), DID_NOT_COMPRESS);
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
    ASSERT_EQ(close_cdf(), CDF_OK);
}

TEST_F(BlockLifecycle, RewriteOfTheLastRecordInTheFileGrowsInPlace) {
    const long v = make("e");
    ASSERT_EQ(put(v, 0, std::vector<std::int32_t>(100, 0)), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
    const auto before = blocks("e");
    reopen("e");
    std::vector<std::int32_t> values(100);
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<std::int32_t>(i * i);
    ASSERT_EQ(put(0, 0, values), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
    const auto bytes = file_bytes(path("e.cdf"));
    const auto after = stored_blocks(bytes, 0);
    ASSERT_EQ(after.size(), 1u);
    EXPECT_EQ(after[0].offset, before[0].offset);
    EXPECT_GT(after[0].size, before[0].size);
    EXPECT_EQ(after[0].size, 24 + after[0].c_size);
    EXPECT_EQ(be(bytes, 320 + 64, 8), 0);  // nothing freed
    reopen("e");
    EXPECT_EQ(get(0, 0, 100), values);
    ASSERT_EQ(close_cdf(), CDF_OK);
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
    EXPECT_EQ(close_cdf(), DID_NOT_COMPRESS);
}

TEST_F(BlockLifecycle, InitialRecordsAreCompressedPads) {
    make("i", {}, RLE_COMPRESSION, 0);
    const std::int32_t pad = 0;
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, &pad, PUT_, zVAR_INITIALRECS_, 5L, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 4);
    EXPECT_EQ(get(0, 0, 5), std::vector<std::int32_t>(5, 0));
    EXPECT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 2L, NULL_), CANNOT_CHANGE);
    ASSERT_EQ(close_cdf(), CDF_OK);
    const auto stored = blocks("i");
    EXPECT_EQ(spans(stored), (Spans{{0, 4}}));
    EXPECT_EQ(stored.at(0).type, 13);
    EXPECT_EQ(stored.at(0).c_size, 2);  // RLE: 00 13
}

TEST_F(BlockLifecycle, NonRecordVariantVariableKeepsOneRecordBlock) {
    const long v = make("n", {50}, GZIP_COMPRESSION, 6, NOVARY);
    std::vector<std::int32_t> values(50, 3);
    ASSERT_EQ(
        CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 7L, PUT_, zVAR_HYPERDATA_, values.data(), NULL_),
        CDF_OK);
    EXPECT_EQ(get_long(zVAR_BLOCKINGFACTOR_), 1);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 0);
    ASSERT_EQ(close_cdf(), CDF_OK);
    EXPECT_EQ(spans(blocks("n")), (Spans{{0, 0}}));
}

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
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, NO_COMPRESSION, zero, NULL_), CDF_OK);
    const Compression c = get_compression(zVAR_COMPRESSION_);
    EXPECT_EQ(c.type, NO_COMPRESSION);
    EXPECT_EQ(c.parm, -9);
    EXPECT_EQ(c.pct, 100);
    ASSERT_EQ(close_cdf(), CDF_OK);
}

// Variables compressed inside a whole-file compressed CDF.
TEST_F(CompressionTest, CompressedVariablesInsideACompressedFile) {
    ASSERT_EQ(
        write_sample(
            "both", {.var_type = AHUFF_COMPRESSION, .file_type = GZIP_COMPRESSION, .file_parm = 9}),
        CDF_OK);
    ASSERT_EQ(open_cdf(path("both")), CDF_OK);
    EXPECT_EQ(get_compression(CDF_COMPRESSION_).type, GZIP_COMPRESSION);
    const Compression c = var_compression(1);
    EXPECT_EQ(c.type, AHUFF_COMPRESSION);
    EXPECT_EQ(c.pct, 50);  // as in var_ahuff.cdf
    expect_sample_values();
    ASSERT_EQ(close_cdf(), CDF_OK);
}

}  // namespace
