// Deleting ranges of records: the reference library's observed counts and values
// (RA29-RA36), compressed blocks cut in two, indexes of many blocks, and files
// that still open and read after it.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

#include "cdf.h"

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kPad = -2147483647;

class RecordDeletion : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() / (std::string("cdfgate-del-") + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("d").c_str()), &id_), CDF_OK);
    }
    void TearDown() override {
        if (id_ != nullptr) CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_);
        fs::remove_all(dir_);
    }
    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    static long make(const char* name, long sparse = NO_SPARSERECORDS) {
        long num = -1, dims[1] = {}, varys[1] = {};
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, CDF_INT4, 1L, 0L, dims, VARY, varys, &num, NULL_),
                  CDF_OK);
        EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, sparse, NULL_), CDF_OK);
        return num;
    }
    static CDFstatus put(long var, long first, const std::vector<std::int32_t>& values) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_,
                      static_cast<long>(values.size()), zVAR_RECINTERVAL_, 1L, PUT_,
                      zVAR_HYPERDATA_, values.data(), NULL_);
    }
    static std::vector<std::int32_t> get(long var, long first, long count, CDFstatus expected) {
        std::vector<std::int32_t> out(static_cast<std::size_t>(count));
        EXPECT_EQ(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                         zVAR_RECINTERVAL_, 1L, GET_, zVAR_HYPERDATA_, out.data(), NULL_),
                  expected);
        return out;
    }
    struct Counts {
        long max_rec, num_recs, num_alloc, max_alloc;
        bool operator==(const Counts&) const = default;
    };
    static Counts counts() {
        Counts c{-9, -9, -9, -9};
        EXPECT_EQ(
            CDFlib(GET_, zVAR_MAXREC_, &c.max_rec, GET_, zVAR_NUMRECS_, &c.num_recs, GET_,
                   zVAR_NUMallocRECS_, &c.num_alloc, GET_, zVAR_MAXallocREC_, &c.max_alloc, NULL_),
            CDF_OK);
        return c;
    }
    void reopen() {
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_), CDF_OK);
        ASSERT_EQ(CDFlib(OPEN_, CDF_, path("d").c_str(), &id_, NULL_), CDF_OK);
    }
    static std::vector<std::int32_t> iota(long first, long count) {
        std::vector<std::int32_t> v(static_cast<std::size_t>(count));
        std::iota(v.begin(), v.end(), static_cast<std::int32_t>(first));
        return v;
    }

    CDFid id_ = nullptr;
    fs::path dir_;
};

TEST_F(RecordDeletion, NonSparseRecordsMoveDown) {
    const long v = make("v");
    ASSERT_EQ(put(v, 0, iota(0, 6)), CDF_OK);
    EXPECT_EQ(counts(), (Counts{5, 6, 2048, 2047}));
    ASSERT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 1L, 2L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2046, 2045}));
    EXPECT_EQ(get(v, 0, 6, VIRTUAL_RECORD_DATA),
              (std::vector<std::int32_t>{0, 3, 4, 5, kPad, kPad}));
    ASSERT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 10L, 12L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2043, 2042}));
    EXPECT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 3L, 1L, NULL_), BAD_REC_NUM);
    EXPECT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, -1L, 1L, NULL_), BAD_REC_NUM);
    EXPECT_EQ(counts(), (Counts{3, 4, 2043, 2042}));
    reopen();
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2043, 2042}));
    EXPECT_EQ(get(v, 0, 4, CDF_OK), (std::vector<std::int32_t>{0, 3, 4, 5}));
}

TEST_F(RecordDeletion, SparseRecordsLeaveAGap) {
    const long v = make("s", PAD_SPARSERECORDS);
    ASSERT_EQ(put(v, 0, iota(0, 6)), CDF_OK);
    ASSERT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 1L, 2L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{5, 4, 4, 5}));
    EXPECT_EQ(get(v, 0, 6, VIRTUAL_RECORD_DATA),
              (std::vector<std::int32_t>{0, kPad, kPad, 3, 4, 5}));
    // The last records go: the maximum falls back to the highest one left.
    ASSERT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 4L, 9L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 3}));
    reopen();
    EXPECT_EQ(get(v, 0, 4, VIRTUAL_RECORD_DATA), (std::vector<std::int32_t>{0, kPad, kPad, 3}));
}

// Blocks of 2 records: 50 VVRs under a tree of several levels; a deletion across
// many of them rebuilds the index, which later growth extends.
TEST_F(RecordDeletion, RangesAcrossManyBlocksKeepTheIndexWhole) {
    const long v = make("t");
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 2L, NULL_), CDF_OK);
    for (long r = 0; r < 100; ++r) ASSERT_EQ(put(v, r, {static_cast<std::int32_t>(r)}), CDF_OK);
    ASSERT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 15L, 64L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{49, 50, 50, 49}));
    std::vector<std::int32_t> want = iota(0, 15);
    const auto rest = iota(65, 35);
    want.insert(want.end(), rest.begin(), rest.end());
    EXPECT_EQ(get(v, 0, 50, CDF_OK), want);
    for (long r = 50; r < 60; ++r)
        ASSERT_EQ(put(v, r, {static_cast<std::int32_t>(1000 + r)}), CDF_OK);
    reopen();
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, NULL_), CDF_OK);
    const auto back = get(v, 0, 60, CDF_OK);
    EXPECT_EQ(std::vector<std::int32_t>(back.begin(), back.begin() + 50), want);
    EXPECT_EQ(back[55], 1055);
}

// Records 0-9 in one block; deleting 3-5 leaves blocks 0-2 and 3-6.
TEST_F(RecordDeletion, CompressedBlockIsCutInTwo) {
    for (const long sparse : {NO_SPARSERECORDS, PAD_SPARSERECORDS}) {
        const long v = make(sparse == NO_SPARSERECORDS ? "c" : "cs", sparse);
        long parms[] = {0};
        ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, RLE_COMPRESSION, parms, NULL_), CDF_OK);
        std::vector<std::int32_t> values(10, 0);
        values[7] = 7;
        ASSERT_EQ(put(v, 0, values), CDF_OK);
        // Three records of zeros do not shrink: stored as a VVR.
        ASSERT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 3L, 5L, NULL_), DID_NOT_COMPRESS);
        if (sparse == NO_SPARSERECORDS) {
            EXPECT_EQ(counts(), (Counts{6, 7, 7, 6}));
            EXPECT_EQ(get(v, 0, 7, CDF_OK), (std::vector<std::int32_t>{0, 0, 0, 0, 7, 0, 0}));
        } else {
            EXPECT_EQ(counts(), (Counts{9, 7, 7, 9}));
            EXPECT_EQ(get(v, 0, 10, VIRTUAL_RECORD_DATA),
                      (std::vector<std::int32_t>{0, 0, 0, kPad, kPad, kPad, 0, 7, 0, 0}));
        }
    }
    reopen();
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{6, 7, 7, 6}));
    EXPECT_EQ(get(0, 0, 7, CDF_OK), (std::vector<std::int32_t>{0, 0, 0, 0, 7, 0, 0}));
    long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ(type, RLE_COMPRESSION);
}

TEST_F(RecordDeletion, MultiFileCdfsDeleteNothing) {
    ASSERT_EQ(CDFlib(PUT_, CDF_FORMAT_, MULTI_FILE, NULL_), CDF_OK);
    const long v = make("m");
    ASSERT_EQ(put(v, 0, iota(0, 3)), CDF_OK);
    EXPECT_EQ(CDFlib(DELETE_, zVAR_RECORDS_, 0L, 0L, NULL_), MULTI_FILE_FORMAT);
    EXPECT_EQ(get(v, 0, 3, CDF_OK), iota(0, 3));
}

// Space freed by deleting records becomes one unused record that may be far larger
// than memory; reopening reads only its links. Built here as a sparse file.
TEST_F(RecordDeletion, UnusedSpaceLargerThanMemoryIsNotReadWhole) {
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_), CDF_OK);
    id_ = nullptr;
    const std::string file = path("d.cdf");
    std::vector<std::uint8_t> bytes(fs::file_size(file));
    {
        std::FILE* f = std::fopen(file.c_str(), "rb");
        ASSERT_NE(f, nullptr);
        ASSERT_EQ(std::fread(bytes.data(), 1, bytes.size(), f), bytes.size());
        std::fclose(f);
    }
    const auto put_be = [&](std::size_t at, std::uint64_t value, int width) {
        if (bytes.size() < at + width) bytes.resize(at + width);
        for (int i = 0; i < width; ++i)
            bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * (width - 1 - i)));
    };
    const std::uint64_t uir = bytes.size();
    const std::uint64_t size = std::uint64_t{1} << 40;
    const std::size_t gdr = 320;
    put_be(gdr + 36, uir + size, 8);  // eof
    put_be(gdr + 64, uir, 8);         // UIRhead
    put_be(uir, size, 8);
    put_be(uir + 8, 0xFFFFFFFF, 4);  // RecordType -1
    put_be(uir + 12, 0, 8);
    put_be(uir + 20, 0, 8);
    {
        std::FILE* f = std::fopen(file.c_str(), "wb");
        ASSERT_NE(f, nullptr);
        ASSERT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), f), bytes.size());
        std::fclose(f);
    }
    fs::resize_file(file, uir + size);
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("d").c_str(), &id_, NULL_), CDF_OK);
    long vars = -1;
    EXPECT_EQ(CDFlib(GET_, CDF_NUMzVARS_, &vars, NULL_), CDF_OK);
    EXPECT_EQ(vars, 0);
}

}  // namespace
