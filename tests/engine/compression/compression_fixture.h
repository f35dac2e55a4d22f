// Scratch files and the content of the compression samples for the tests of
// compressed variables: four variables of 100 records written as the samples'
// README describes, and the values each record holds.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#include "cdf.h"

namespace cdfgate::test {

inline std::filesystem::path shared_data(const std::string& relative) {
    return std::filesystem::path(CDFGATE_SHARED_DATA) / relative;
}

inline std::vector<std::uint8_t> file_bytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.good()) << path;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void write_file(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

// What getzVarCompression or getCompression reports.
struct Compression {
    long type = -9, parm = -9, pct = -9;
};
inline Compression get_compression(long item) {
    Compression c;
    long parms[CDF_MAX_PARMS] = {-9};
    EXPECT_EQ(CDFlib(GET_, item, &c.type, parms, &c.pct, NULL_), CDF_OK);
    c.parm = parms[0];
    return c;
}
inline Compression var_compression(long var) {
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, var, NULL_), CDF_OK);
    return get_compression(zVAR_COMPRESSION_);
}

inline CDFstatus open_cdf(const std::string& path) {
    CDFid id = nullptr;
    return CDFlib(OPEN_, CDF_, path.c_str(), &id, NULL_);
}
inline CDFstatus close_cdf() {
    return CDFlib(CLOSE_, CDF_, NULL_);
}

// Record r of the samples' variables r8, i2, ch and blk.
inline std::array<double, 4> r8_record(long r) {
    return {static_cast<double>(r), 0.0, r * 0.25, r % 5 == 0 ? 0.0 : 1000 + r / 8.0};
}
inline std::array<short, 8> i2_record(long r) {
    std::array<short, 8> v{};
    for (int i = 4; i < 8; ++i) v[i] = r % 4 == 0 ? 0 : static_cast<short>(10 * r + i);
    return v;
}
inline std::string ch_record(long r) {
    char text[17];
    std::snprintf(text, sizeof text, "record %03ld      ", r);
    return text;
}
inline short blk_record(long r) {
    return r % 10 == 0 ? static_cast<short>(r) : 0;
}

// How the samples' file is written.
struct SampleOptions {
    long var_type = NO_COMPRESSION;  // compression of the four variables
    long var_parm = 0;
    long reserve = 0;
    long file_type = NO_COMPRESSION;  // compression of the whole file
    long file_parm = 0;
    bool md5 = false;
};

// Byte-for-byte equality, naming the first difference.
inline void expect_same_bytes(const std::vector<std::uint8_t>& ours,
                              const std::vector<std::uint8_t>& theirs) {
    ASSERT_EQ(ours.size(), theirs.size());
    const auto diff = std::mismatch(ours.begin(), ours.end(), theirs.begin());
    EXPECT_TRUE(diff.first == ours.end())
        << "first difference at byte " << (diff.first - ours.begin());
}

class CompressionTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name =
            std::string("cdfgate-cpr-") + info->test_suite_name() + "-" + info->name();
        for (char& c : name) {
            if (c == '/') c = '_';
        }
        dir_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override {
        CDFsetFileBackward(BACKWARDFILEoff);
        CDFsetValidate(VALIDATEFILEon);
        std::filesystem::remove_all(dir_);
    }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    static long zvar(const char* name, long type, long elems, std::vector<long> dims,
                     long rec_vary = VARY) {
        std::vector<long> varys(dims.size(), VARY);
        long num = -1;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, type, elems, static_cast<long>(dims.size()),
                         dims.data(), rec_vary, varys.data(), &num, NULL_),
                  CDF_OK);
        return num;
    }

    // Writes whole record r of variable var with one hyperslab call.
    static CDFstatus put_record(long var, long r, const void* values) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, r, zVAR_RECCOUNT_, 1L,
                      zVAR_RECINTERVAL_, 1L, PUT_, zVAR_HYPERDATA_, values, NULL_);
    }

    // The samples' file: title, the four variables (compressed as asked, reserve
    // percent as given), blk with blocking factor 40, records 0..99 written in
    // turn. Returns the status of the close.
    CDFstatus write_sample(const std::string& name, const SampleOptions& o) {
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        long file_parms[] = {o.file_parm};
        if (o.file_type != NO_COMPRESSION) {
            EXPECT_EQ(CDFlib(PUT_, CDF_COMPRESSION_, o.file_type, file_parms, NULL_), CDF_OK);
        }
        if (o.md5) {
            EXPECT_EQ(CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_), CDF_OK);
        }
        long attr = -1;
        EXPECT_EQ(CDFlib(CREATE_, ATTR_, "TITLE", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
        char title[] = "CDF compression sample";
        EXPECT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_CHAR, 22, title), CDF_OK);
        const long r8 = zvar("r8", CDF_REAL8, 1, {4});
        const long i2 = zvar("i2", CDF_INT2, 1, {8});
        const long ch = zvar("ch", CDF_CHAR, 16, {});
        const long blk = zvar("blk", CDF_INT2, 1, {});
        long parms[] = {o.var_parm};
        if (o.var_type != NO_COMPRESSION) {
            for (const long v : {r8, i2, ch, blk}) {
                EXPECT_EQ(
                    CDFlib(SELECT_, zVAR_, v, PUT_, zVAR_COMPRESSION_, o.var_type, parms, NULL_),
                    CDF_OK);
                if (o.reserve != 0) {
                    EXPECT_EQ(CDFlib(SELECT_, zVAR_RESERVEPERCENT_, o.reserve, NULL_), CDF_OK);
                }
            }
        }
        EXPECT_EQ(CDFlib(SELECT_, zVAR_, blk, PUT_, zVAR_BLOCKINGFACTOR_, 40L, NULL_),
                  o.var_type != NO_COMPRESSION ? BLOCKINGFACTOR_TOO_SMALL2 : CDF_OK);
        for (long r = 0; r < 100; ++r) {
            const auto a = r8_record(r);
            const auto b = i2_record(r);
            const std::string c = ch_record(r);
            const short d = blk_record(r);
            EXPECT_GE(put_record(r8, r, a.data()), CDF_OK) << r;
            EXPECT_GE(put_record(i2, r, b.data()), CDF_OK) << r;
            EXPECT_GE(put_record(ch, r, c.data()), CDF_OK) << r;
            EXPECT_GE(put_record(blk, r, &d), CDF_OK) << r;
        }
        return close_cdf();
    }

    // Checks every value of the samples' four variables in the open current CDF.
    static void expect_sample_values() {
        std::vector<double> r8(400);
        std::vector<short> i2(800);
        std::vector<char> ch(1600);
        std::vector<short> blk(100);
        const struct {
            long var;
            void* out;
        } reads[] = {{0, r8.data()}, {1, i2.data()}, {2, ch.data()}, {3, blk.data()}};
        for (const auto& read : reads) {
            long sizes[CDF_MAX_DIMS] = {};
            ASSERT_EQ(CDFlib(SELECT_, zVAR_, read.var, GET_, zVAR_DIMSIZES_, sizes, NULL_), CDF_OK);
            long zeros[CDF_MAX_DIMS] = {}, ones[CDF_MAX_DIMS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
            ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 100L, zVAR_RECINTERVAL_,
                             1L, zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, sizes,
                             zVAR_DIMINTERVALS_, ones, GET_, zVAR_HYPERDATA_, read.out, NULL_),
                      CDF_OK)
                << read.var;
        }
        for (long r = 0; r < 100; ++r) {
            ASSERT_TRUE(std::ranges::equal(r8_record(r), std::span(r8).subspan(r * 4, 4))) << r;
            ASSERT_TRUE(std::ranges::equal(i2_record(r), std::span(i2).subspan(r * 8, 8))) << r;
            ASSERT_EQ(std::string(ch.data() + r * 16, 16), ch_record(r));
            ASSERT_EQ(blk[r], blk_record(r));
        }
    }

    std::filesystem::path dir_;
};

}  // namespace cdfgate::test
