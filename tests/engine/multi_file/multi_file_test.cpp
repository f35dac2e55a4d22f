// Multi-file CDFs: the reference sample read and rebuilt byte for byte, values
// moved through every kind of access, and the calls that differ from single-file
// CDFs (format, caches, closing a variable, refused settings, deletion).
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "cdf.h"

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kPad4 = -2147483647;

std::vector<std::uint8_t> bytes_of(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.good()) << path;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class MultiFile : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = fs::temp_directory_path() / (std::string("cdfgate-mf-") + info->name());
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    // A new multi-file CDF, current.
    void create(const std::string& name) {
        CDFid id = nullptr;
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        ASSERT_EQ(CDFlib(PUT_, CDF_FORMAT_, MULTI_FILE, NULL_), CDF_OK);
    }
    static long zvar(const char* name, long type, std::vector<long> dims, long rec_vary = VARY) {
        std::vector<long> varys(dims.size(), VARY);
        long num = -1;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, type, 1L, static_cast<long>(dims.size()),
                         dims.data(), rec_vary, varys.data(), &num, NULL_),
                  CDF_OK);
        return num;
    }
    static CDFstatus put_record(long var, long record, const void* values) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, record, zVAR_RECCOUNT_, 1L,
                      zVAR_RECINTERVAL_, 1L, PUT_, zVAR_HYPERDATA_, values, NULL_);
    }
    template <typename T>
    static std::vector<T> get_records(long var, long first, long count, long per_record,
                                      CDFstatus expected) {
        std::vector<T> out(static_cast<std::size_t>(count * per_record));
        EXPECT_EQ(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                         zVAR_RECINTERVAL_, 1L, GET_, zVAR_HYPERDATA_, out.data(), NULL_),
                  expected);
        return out;
    }

    fs::path dir_;
};

TEST_F(MultiFile, SampleReadsItsVariableFiles) {
    const fs::path sample = fs::path(CDFGATE_SHARED_DATA) / "format" / "multi_file.cdf";
    fs::copy_file(sample, path("multi_file.cdf"));
    fs::copy_file(sample.parent_path() / "multi_file.z0", path("multi_file.z0"));
    fs::copy_file(sample.parent_path() / "multi_file.z1", path("multi_file.z1"));
    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("multi_file").c_str(), &id, NULL_), CDF_OK);
    EXPECT_EQ(get_records<std::int32_t>(0, 0, 3, 3, CDF_OK),
              (std::vector<std::int32_t>{1, 2, 3, kPad4, kPad4, kPad4, 4, 5, 6}));
    EXPECT_EQ(get_records<std::int32_t>(0, 2, 2, 3, VIRTUAL_RECORD_DATA),
              (std::vector<std::int32_t>{4, 5, 6, kPad4, kPad4, kPad4}));
    std::int32_t one = 0;
    long index[] = {1};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 2L, zVAR_DIMINDICES_, index, GET_, zVAR_DATA_, &one,
                     NULL_),
              CDF_OK);
    EXPECT_EQ(one, 5);
    EXPECT_EQ(get_records<std::int16_t>(1, 0, 1, 1, CDF_OK), std::vector<std::int16_t>{7});
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(MultiFile, SameCallsGiveTheReferenceFiles) {
    create("multi_file");
    const long m = zvar("M", CDF_INT4, {3});
    const std::int32_t first[] = {1, 2, 3}, third[] = {4, 5, 6};
    ASSERT_EQ(put_record(m, 0, first), CDF_OK);
    ASSERT_EQ(put_record(m, 2, third), CDF_OK);
    const long m2 = zvar("M2", CDF_INT2, {});
    const std::int16_t seven = 7;
    ASSERT_EQ(put_record(m2, 0, &seven), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    const fs::path reference = fs::path(CDFGATE_SHARED_DATA) / "format";
    for (const char* file : {"multi_file.cdf", "multi_file.z0", "multi_file.z1"}) {
        EXPECT_TRUE(bytes_of(path(file)) == bytes_of(reference / file)) << file;
    }
}

TEST_F(MultiFile, SlabsStridesAndPartialRecordsRoundTrip) {
    create("s");
    const long v = zvar("v", CDF_REAL8, {2, 3});
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
    long max = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_MAXREC_, &max, NULL_), CDF_OK);
    EXPECT_EQ(max, 9);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    EXPECT_EQ(fs::file_size(path("s.z0")), 10u * 48);

    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("s").c_str(), &id, NULL_), CDF_OK);
    const auto back = get_records<double>(0, 0, 10, 6, CDF_OK);
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
    const long v = zvar("v", CDF_INT4, {});
    const std::int32_t pad = 9;
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, &pad, PUT_, zVAR_INITIALRECS_, 4L, NULL_), CDF_OK);
    EXPECT_EQ(get_records<std::int32_t>(v, 0, 5, 1, VIRTUAL_RECORD_DATA),
              (std::vector<std::int32_t>{9, 9, 9, 9, 9}));
    const long n = zvar("n", CDF_INT4, {}, NOVARY);
    const std::int32_t once = 77;
    ASSERT_EQ(put_record(n, 5, &once), CDF_OK);
    EXPECT_EQ(get_records<std::int32_t>(n, 3, 1, 1, CDF_OK), std::vector<std::int32_t>{77});
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    EXPECT_EQ(fs::file_size(path("i.z0")), 16u);
    EXPECT_EQ(fs::file_size(path("i.z1")), 4u);
}

TEST_F(MultiFile, SettingsAndCallsThatDifferFromSingleFileCdfs) {
    create("e2");
    long format = 0;
    ASSERT_EQ(CDFlib(GET_, CDF_FORMAT_, &format, NULL_), CDF_OK);
    EXPECT_EQ(format, MULTI_FILE);
    const long v = zvar("v", CDF_INT4, {});
    EXPECT_TRUE(fs::exists(path("e2.z0")));  // made with the variable
    long cache = -9;
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_CACHESIZE_, &cache, NULL_), CDF_OK);
    EXPECT_EQ(cache, 1);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_CACHESIZE_, 6L, CONFIRM_, zVAR_CACHESIZE_, &cache, NULL_),
              CDF_OK);
    EXPECT_EQ(cache, 6);
    EXPECT_EQ(CDFlib(SELECT_, zVARs_CACHESIZE_, 3L, CONFIRM_, zVAR_CACHESIZE_, &cache, NULL_),
              CDF_OK);
    EXPECT_EQ(cache, 3);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_CACHESIZE_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_CACHESIZE_, -1L, NULL_), BAD_CACHE_SIZE);

    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), VAR_ALREADY_CLOSED);  // no data yet
    const std::int32_t one = 1;
    ASSERT_EQ(put_record(v, 0, &one), CDF_OK);
    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), VAR_ALREADY_CLOSED);
    EXPECT_EQ(get_records<std::int32_t>(v, 0, 1, 1, CDF_OK), std::vector<std::int32_t>{1});

    long parms[] = {6};
    EXPECT_EQ(CDFlib(PUT_, CDF_FORMAT_, SINGLE_FILE, NULL_), CANNOT_CHANGE);
    EXPECT_EQ(CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_), CANNOT_CHANGE);
    EXPECT_EQ(CDFlib(PUT_, CDF_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_), CANNOT_COMPRESS);
    const long w = zvar("w", CDF_INT4, {});
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, w, PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_),
              CANNOT_COMPRESS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, NULL_), CANNOT_SPARSERECORDS);
    EXPECT_EQ(CDFlib(DELETE_, zVAR_, NULL_), UNSUPPORTED_OPERATION);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("e2").c_str(), &id, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(DELETE_, CDF_, NULL_), CDF_OK);
    EXPECT_FALSE(fs::exists(path("e2.cdf")));
    EXPECT_FALSE(fs::exists(path("e2.z0")));
    EXPECT_FALSE(fs::exists(path("e2.z1")));
}

}  // namespace
