// Multi-file CDFs: the reference sample read and rebuilt byte for byte, values
// moved through every kind of access, and the calls that differ from single-file
// CDFs (format, caches, closing a variable, refused settings, deletion).
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "../store/test_files.h"

namespace {

namespace fs = std::filesystem;
using cdfgate::test::get_long;
using cdfgate::test::get_records;
using cdfgate::test::make_zvar;
using cdfgate::test::shared_data;
using I4 = std::vector<std::int32_t>;

constexpr std::int32_t kPad4 = -2147483647;

class MultiFile : public cdfgate::test::ScratchDir {
  protected:
    // A new multi-file CDF, current.
    void create(const std::string& name) {
        CDFid id = nullptr;
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        ASSERT_EQ(CDFlib(PUT_, CDF_FORMAT_, MULTI_FILE, NULL_), CDF_OK);
    }
    void reopen(const std::string& name) {
        CDFid id = nullptr;
        ASSERT_EQ(CDFlib(OPEN_, CDF_, path(name).c_str(), &id, NULL_), CDF_OK);
    }
    static CDFstatus put_record(long var, long record, const void* values) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, record, zVAR_RECCOUNT_, 1L,
                      zVAR_RECINTERVAL_, 1L, PUT_, zVAR_HYPERDATA_, values, NULL_);
    }
};

TEST_F(MultiFile, SampleReadsItsVariableFiles) {
    for (const char* file : {"multi_file.cdf", "multi_file.z0", "multi_file.z1"}) {
        fs::copy_file(shared_data(std::string("format/") + file), path(file));
    }
    reopen("multi_file");
    EXPECT_EQ(get_long(CDF_FORMAT_), MULTI_FILE);
    EXPECT_EQ(get_long(CDF_NUMzVARS_), 2);
    EXPECT_EQ(get_records<std::int32_t>(0, 0, 3, CDF_OK, 3),
              (I4{1, 2, 3, kPad4, kPad4, kPad4, 4, 5, 6}));
    EXPECT_EQ(get_records<std::int32_t>(0, 2, 2, VIRTUAL_RECORD_DATA, 3),
              (I4{4, 5, 6, kPad4, kPad4, kPad4}));
    EXPECT_EQ(get_long(zVAR_MAXREC_), 2);
    std::int32_t one = 0;
    long index[] = {1};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 2L, zVAR_DIMINDICES_, index, GET_, zVAR_DATA_, &one,
                     NULL_),
              CDF_OK);
    EXPECT_EQ(one, 5);
    EXPECT_EQ(get_records<std::int16_t>(1, 0, 1, CDF_OK), std::vector<std::int16_t>{7});
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(MultiFile, SameCallsGiveTheReferenceFiles) {
    create("multi_file");
    const long m = make_zvar("M", CDF_INT4, {3});
    const std::int32_t first[] = {1, 2, 3}, third[] = {4, 5, 6};
    ASSERT_EQ(put_record(m, 0, first), CDF_OK);
    ASSERT_EQ(put_record(m, 2, third), CDF_OK);
    const long m2 = make_zvar("M2", CDF_INT2, {});
    const std::int16_t seven = 7;
    ASSERT_EQ(put_record(m2, 0, &seven), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    for (const char* file : {"multi_file.cdf", "multi_file.z0", "multi_file.z1"}) {
        const auto expected = cdfgate::test::file_bytes(shared_data(std::string("format/") + file));
        ASSERT_FALSE(expected.empty()) << "missing sample " << file;
        EXPECT_TRUE(cdfgate::test::file_bytes(path(file)) == expected) << file;
    }
}

TEST_F(MultiFile, SlabsStridesAndPartialRecordsRoundTrip) {
    create("s");
    const long v = make_zvar("v", CDF_REAL8, {2, 3});
    // Records 0, 3, 6: every value of record r is 10 r + its index.
    std::vector<double> values(18);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<double>(30 * (i / 6) + i % 6);
    }
    long zero[] = {0, 0}, dims[] = {2, 3}, ones[] = {1, 1};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 3L, zVAR_RECINTERVAL_,
                     3L, zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, dims, zVAR_DIMINTERVALS_, ones,
                     PUT_, zVAR_HYPERDATA_, values.data(), NULL_),
              CDF_OK);
    // One value of record 4 (between written ones), one of record 9 (beyond them).
    const double a = -1.5, b = 2.5;
    long at[] = {1, 2};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 4L, zVAR_DIMINDICES_, at, PUT_, zVAR_DATA_, &a,
                     SELECT_, zVAR_RECNUMBER_, 9L, PUT_, zVAR_DATA_, &b, NULL_),
              CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 9);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    EXPECT_EQ(fs::file_size(path("s.z0")), 10u * 48);

    reopen("s");
    const auto back = get_records<double>(0, 0, 10, CDF_OK, 6);
    for (long r = 0; r < 10; ++r) {
        for (long i = 0; i < 6; ++i) {
            double want = -1.0e30;
            if (r % 3 == 0 && r <= 6) want = static_cast<double>(10 * r + i);
            if (r == 4 && i == 5) want = a;
            if (r == 9 && i == 5) want = b;
            EXPECT_EQ(back[static_cast<std::size_t>(r * 6 + i)], want) << r << "," << i;
        }
    }
    // The second column of every other record, through the dimension selections.
    long col[] = {0, 1}, two[] = {2, 1};
    std::vector<double> column(10);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 5L, zVAR_RECINTERVAL_, 2L,
                     zVAR_DIMINDICES_, col, zVAR_DIMCOUNTS_, two, GET_, zVAR_HYPERDATA_,
                     column.data(), NULL_),
              CDF_OK);
    EXPECT_EQ(column[0], 1.0);
    EXPECT_EQ(column[1], 4.0);
    EXPECT_EQ(column[6], 61.0);
    EXPECT_EQ(column[7], 64.0);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(MultiFile, InitialRecordsAndNonRecordVariantValues) {
    create("i");
    const long v = make_zvar("v", CDF_INT4);
    const std::int32_t pad = 9;
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, &pad, PUT_, zVAR_INITIALRECS_, 4L, NULL_), CDF_OK);
    EXPECT_EQ(get_records<std::int32_t>(v, 0, 5, VIRTUAL_RECORD_DATA), (I4{9, 9, 9, 9, 9}));
    const long n = make_zvar("n", CDF_INT4, {}, NOVARY);
    const std::int32_t once = 77;
    ASSERT_EQ(put_record(n, 5, &once), CDF_OK);
    EXPECT_EQ(get_records<std::int32_t>(n, 3, 1, CDF_OK), I4{77});
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    EXPECT_EQ(fs::file_size(path("i.z0")), 16u);
    EXPECT_EQ(fs::file_size(path("i.z1")), 4u);
}

TEST_F(MultiFile, SettingsAndCallsThatDifferFromSingleFileCdfs) {
    create("e2");
    EXPECT_EQ(get_long(CDF_FORMAT_), MULTI_FILE);
    const long v = make_zvar("v", CDF_INT4);
    EXPECT_TRUE(fs::exists(path("e2.z0")));  // made with the variable
    EXPECT_EQ(get_long(zVAR_CACHESIZE_, CONFIRM_), 1);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_CACHESIZE_, 6L, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_CACHESIZE_, CONFIRM_), 6);
    EXPECT_EQ(CDFlib(SELECT_, zVARs_CACHESIZE_, 3L, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_CACHESIZE_, CONFIRM_), 3);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_CACHESIZE_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_CACHESIZE_, -1L, NULL_), BAD_CACHE_SIZE);

    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), VAR_ALREADY_CLOSED);  // no data yet
    const std::int32_t one = 1;
    ASSERT_EQ(put_record(v, 0, &one), CDF_OK);
    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), VAR_ALREADY_CLOSED);
    EXPECT_EQ(get_records<std::int32_t>(v, 0, 1, CDF_OK), I4{1});

    long parms[] = {6};
    EXPECT_EQ(CDFlib(PUT_, CDF_FORMAT_, SINGLE_FILE, NULL_), CANNOT_CHANGE);
    EXPECT_EQ(CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_), CANNOT_CHANGE);
    EXPECT_EQ(CDFlib(PUT_, CDF_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_), CANNOT_COMPRESS);
    const long w = make_zvar("w", CDF_INT4);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, w, PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_),
              CANNOT_COMPRESS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, NULL_), CANNOT_SPARSERECORDS);
    EXPECT_EQ(CDFlib(DELETE_, zVAR_, NULL_), UNSUPPORTED_OPERATION);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    reopen("e2");
    ASSERT_EQ(CDFlib(DELETE_, CDF_, NULL_), CDF_OK);
    for (const char* file : {"e2.cdf", "e2.z0", "e2.z1"}) EXPECT_FALSE(fs::exists(path(file)));
}

}  // namespace
