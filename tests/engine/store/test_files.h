// Shared helpers of the engine tests: scratch directories, file bytes, the call
// sequences repeated through the C interface (making a zVariable, moving whole
// records, record counts), and the fixture comparing written files with samples.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "cdf.h"

namespace cdfgate::test {

inline std::vector<std::uint8_t> file_bytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void write_bytes(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

inline std::filesystem::path shared_data(const std::string& relative) {
    return std::filesystem::path(CDFGATE_SHARED_DATA) / relative;
}

// A fresh directory for one test, removed afterwards.
class ScratchDir : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = std::filesystem::temp_directory_path() /
               (std::string("cdfgate-") + info->test_suite_name() + "-" + info->name());
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    std::filesystem::path dir_;
};

// A scratch directory holding CDF "d", created and current; closed at the end.
class ScratchCdf : public ScratchDir {
  protected:
    void SetUp() override {
        ScratchDir::SetUp();
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("d").c_str()), &id_), CDF_OK);
    }
    void TearDown() override {
        if (id_ != nullptr) CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_);
        ScratchDir::TearDown();
    }
    // Closes and reopens the CDF, selecting zVariable var again.
    void reopen(long var) {
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_), CDF_OK);
        ASSERT_EQ(CDFlib(OPEN_, CDF_, path("d").c_str(), &id_, SELECT_, zVAR_, var, NULL_), CDF_OK);
    }

    CDFid id_ = nullptr;
};

// A zVariable of the current CDF, varying in every dimension; its number.
inline long make_zvar(const char* name, long type, std::vector<long> dims = {},
                      long rec_vary = VARY, long elems = 1) {
    std::vector<long> varys(dims.size(), VARY);
    long num = -1;
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, type, elems, static_cast<long>(dims.size()), dims.data(),
                     rec_vary, varys.data(), &num, NULL_),
              CDF_OK)
        << name;
    return num;
}

// Selects records first, first + interval, ... (count of them) of variable var.
inline CDFstatus select_records(long var, long first, long count, long interval = 1) {
    return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                  zVAR_RECINTERVAL_, interval, NULL_);
}

// count whole records (per_record values each) of var from first, read with the
// status expected.
template <typename T>
std::vector<T> get_records(long var, long first, long count, CDFstatus expected,
                           long per_record = 1, long interval = 1) {
    std::vector<T> out(static_cast<std::size_t>(count * per_record));
    EXPECT_EQ(select_records(var, first, count, interval), CDF_OK);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, out.data(), NULL_), expected)
        << "records " << first << ".." << count;
    return out;
}

template <typename T>
CDFstatus put_records(long var, long first, const std::vector<T>& values, long interval = 1) {
    const CDFstatus selected =
        select_records(var, first, static_cast<long>(values.size()), interval);
    if (selected != CDF_OK) return selected;
    return CDFlib(PUT_, zVAR_HYPERDATA_, values.data(), NULL_);
}

// The record counts of the current zVariable.
struct Counts {
    long max_rec, num_recs, num_alloc, max_alloc;
    bool operator==(const Counts&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Counts& c) {
        return out << "{max " << c.max_rec << ", recs " << c.num_recs << ", alloc " << c.num_alloc
                   << ", max alloc " << c.max_alloc << "}";
    }
};

inline Counts counts() {
    Counts c{-9, -9, -9, -9};
    EXPECT_EQ(
        CDFlib(GET_, zVAR_MAXREC_, &c.max_rec, GET_, zVAR_NUMRECS_, &c.num_recs, GET_,
               zVAR_NUMallocRECS_, &c.num_alloc, GET_, zVAR_MAXallocREC_, &c.max_alloc, NULL_),
        CDF_OK);
    return c;
}

// One long read by GET_ (or CONFIRM_) on the current selections.
inline long get_long(long item, long op = GET_) {
    long v = -9;
    EXPECT_EQ(CDFlib(op, item, &v, NULL_), CDF_OK) << "item " << item;
    return v;
}

// Writes files through the C interface with the calls that made a reference sample
// and compares the bytes.
class ReferenceFiles : public ScratchDir {
  protected:
    void TearDown() override {
        CDFsetFileBackward(BACKWARDFILEoff);
        ScratchDir::TearDown();
    }

    CDFid create(const std::string& name, bool backward) {
        CDFsetFileBackward(backward ? BACKWARDFILEon : BACKWARDFILEoff);
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        return id;
    }

    // Closes CDF id, whose file name.cdf must have the bytes of format/sample.
    void close_and_compare(CDFid id, const std::string& name, const std::string& sample) {
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, sample);
    }

    // name.cdf of the scratch folder has the bytes of format/sample.
    void expect_same(const std::string& name, const std::string& sample) {
        const auto written = file_bytes(path(name + ".cdf"));
        const auto expected = file_bytes(shared_data("format/" + sample));
        ASSERT_FALSE(expected.empty()) << "missing sample " << sample;
        ASSERT_EQ(written.size(), expected.size()) << sample;
        const auto diff = std::mismatch(written.begin(), written.end(), expected.begin());
        EXPECT_EQ(diff.first, written.end())
            << sample << " differs at offset " << (diff.first - written.begin());
    }
};

}  // namespace cdfgate::test
