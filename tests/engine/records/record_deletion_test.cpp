// Deleting ranges of records: the reference library's observed counts and values
// (RA29-RA36), compressed blocks cut in two, indexes of many blocks, and files
// that still open and read after it.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

#include "../store/test_files.h"

namespace {

using cdfgate::test::Counts;
using cdfgate::test::counts;
using Values = std::vector<std::int32_t>;

constexpr std::int32_t kPad = -2147483647;

class RecordDeletion : public cdfgate::test::ScratchCdf {
  protected:
    static long make(const char* name, long sparse = NO_SPARSERECORDS) {
        const long num = cdfgate::test::make_zvar(name, CDF_INT4);
        EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, sparse, NULL_), CDF_OK);
        return num;
    }
    static CDFstatus put(long var, long first, const Values& values) {
        return cdfgate::test::put_records(var, first, values);
    }
    static Values get(long var, long first, long count, CDFstatus expected) {
        return cdfgate::test::get_records<std::int32_t>(var, first, count, expected);
    }
    static Values iota(long first, long count) {
        Values v(static_cast<std::size_t>(count));
        std::iota(v.begin(), v.end(), static_cast<std::int32_t>(first));
        return v;
    }
    static CDFstatus drop(long first, long last) {
        return CDFlib(DELETE_, zVAR_RECORDS_, first, last, NULL_);
    }
};

TEST_F(RecordDeletion, NonSparseRecordsMoveDown) {
    const long v = make("v");
    ASSERT_EQ(put(v, 0, iota(0, 6)), CDF_OK);
    EXPECT_EQ(counts(), (Counts{5, 6, 2048, 2047}));
    ASSERT_EQ(drop(1, 2), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2046, 2045}));
    EXPECT_EQ(get(v, 0, 6, VIRTUAL_RECORD_DATA), (Values{0, 3, 4, 5, kPad, kPad}));
    ASSERT_EQ(drop(10, 12), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2043, 2042}));
    EXPECT_EQ(drop(3, 1), BAD_REC_NUM);
    EXPECT_EQ(drop(-1, 1), BAD_REC_NUM);
    EXPECT_EQ(counts(), (Counts{3, 4, 2043, 2042}));
    reopen(v);
    EXPECT_EQ(counts(), (Counts{3, 4, 2043, 2042}));
    EXPECT_EQ(get(v, 0, 4, CDF_OK), (Values{0, 3, 4, 5}));
}

TEST_F(RecordDeletion, SparseRecordsLeaveAGap) {
    const long v = make("s", PAD_SPARSERECORDS);
    ASSERT_EQ(put(v, 0, iota(0, 6)), CDF_OK);
    ASSERT_EQ(drop(1, 2), CDF_OK);
    EXPECT_EQ(counts(), (Counts{5, 4, 4, 5}));
    EXPECT_EQ(get(v, 0, 6, VIRTUAL_RECORD_DATA), (Values{0, kPad, kPad, 3, 4, 5}));
    // The last records go: the maximum falls back to the highest one left.
    ASSERT_EQ(drop(4, 9), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 3}));
    reopen(v);
    EXPECT_EQ(get(v, 0, 4, VIRTUAL_RECORD_DATA), (Values{0, kPad, kPad, 3}));
}

// Blocks of 2 records: 50 VVRs under a tree of several levels; a deletion across
// many of them rebuilds the index, which later growth extends.
TEST_F(RecordDeletion, RangesAcrossManyBlocksKeepTheIndexWhole) {
    const long v = make("t");
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 2L, NULL_), CDF_OK);
    for (long r = 0; r < 100; ++r) ASSERT_EQ(put(v, r, {static_cast<std::int32_t>(r)}), CDF_OK);
    ASSERT_EQ(drop(15, 64), CDF_OK);
    EXPECT_EQ(counts(), (Counts{49, 50, 50, 49}));
    Values want = iota(0, 15);
    for (const std::int32_t r : iota(65, 35)) want.push_back(r);
    EXPECT_EQ(get(v, 0, 50, CDF_OK), want);
    for (long r = 50; r < 60; ++r)
        ASSERT_EQ(put(v, r, {static_cast<std::int32_t>(1000 + r)}), CDF_OK);
    reopen(v);
    const auto back = get(v, 0, 60, CDF_OK);
    EXPECT_EQ(Values(back.begin(), back.begin() + 50), want);
    EXPECT_EQ(back[55], 1055);
}

// Records 0-9 in one block; deleting 3-5 leaves blocks 0-2 and 3-6.
TEST_F(RecordDeletion, CompressedBlockIsCutInTwo) {
    for (const long sparse : {NO_SPARSERECORDS, PAD_SPARSERECORDS}) {
        const long v = make(sparse == NO_SPARSERECORDS ? "c" : "cs", sparse);
        long parms[] = {0};
        ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, RLE_COMPRESSION, parms, NULL_), CDF_OK);
        Values values(10, 0);
        values[7] = 7;
        ASSERT_EQ(put(v, 0, values), CDF_OK);
        // Three records of zeros do not shrink: stored as a VVR.
        ASSERT_EQ(drop(3, 5), DID_NOT_COMPRESS);
        if (sparse == NO_SPARSERECORDS) {
            EXPECT_EQ(counts(), (Counts{6, 7, 7, 6}));
            EXPECT_EQ(get(v, 0, 7, CDF_OK), (Values{0, 0, 0, 0, 7, 0, 0}));
        } else {
            EXPECT_EQ(counts(), (Counts{9, 7, 7, 9}));
            EXPECT_EQ(get(v, 0, 10, VIRTUAL_RECORD_DATA),
                      (Values{0, 0, 0, kPad, kPad, kPad, 0, 7, 0, 0}));
        }
    }
    reopen(0);
    EXPECT_EQ(counts(), (Counts{6, 7, 7, 6}));
    EXPECT_EQ(get(0, 0, 7, CDF_OK), (Values{0, 0, 0, 0, 7, 0, 0}));
    long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ(type, RLE_COMPRESSION);
}

TEST_F(RecordDeletion, MultiFileCdfsDeleteNothing) {
    ASSERT_EQ(CDFlib(PUT_, CDF_FORMAT_, MULTI_FILE, NULL_), CDF_OK);
    const long v = make("m");
    ASSERT_EQ(put(v, 0, iota(0, 3)), CDF_OK);
    EXPECT_EQ(drop(0, 0), MULTI_FILE_FORMAT);
    EXPECT_EQ(get(v, 0, 3, CDF_OK), iota(0, 3));
}

// Space freed by deleting records becomes one unused record that may be far larger
// than memory; reopening reads only its links. Built here as a sparse file.
TEST_F(RecordDeletion, UnusedSpaceLargerThanMemoryIsNotReadWhole) {
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_), CDF_OK);
    id_ = nullptr;
    const std::string file = path("d.cdf");
    auto bytes = cdfgate::test::file_bytes(file);
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
    cdfgate::test::write_bytes(file, bytes);
    std::filesystem::resize_file(file, uir + size);
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("d").c_str(), &id_, NULL_), CDF_OK);
    long vars = -1;
    EXPECT_EQ(CDFlib(GET_, CDF_NUMzVARS_, &vars, NULL_), CDF_OK);
    EXPECT_EQ(vars, 0);
}

}  // namespace
