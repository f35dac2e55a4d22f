// jcdf, an independent reader, lists the values of compressed files the engine
// wrote: variables under each of the four methods split into many blocks (CVVRs
// and VVRs mixed), sparse compressed records, blocks rewritten and moved, records
// deleted, whole-file compression with a checksum, and a version 2.7 file.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "cdf.h"
#include "jcdf_listing.h"

namespace {

namespace fs = std::filesystem;

class JcdfCompression : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("cdfgate-jcdf-cpr-" + std::to_string(::getpid()));
        fs::remove_all(dir_);
        fs::create_directories(dir_);
    }
    void TearDown() override {
        CDFsetFileBackward(BACKWARDFILEoff);
        fs::remove_all(dir_);
    }

    // Variable `name` (CDF_INT4 scalar) compressed with type, blocks of 10 records.
    static long make(const char* name, long type, long parm, long sparse = NO_SPARSERECORDS) {
        long dims[1] = {}, varys[1] = {}, var = -1, parms[] = {parm};
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, CDF_INT4, 1L, 0L, dims, VARY, varys, &var, NULL_),
                  CDF_OK);
        EXPECT_EQ(
            CDFlib(PUT_, zVAR_SPARSERECORDS_, sparse, PUT_, zVAR_COMPRESSION_, type, parms, NULL_),
            CDF_OK);
        EXPECT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_), BLOCKINGFACTOR_TOO_SMALL2);
        return var;
    }
    static void put(long var, long record, int value) {
        ASSERT_GE(CDFputVarRecordData(current(), 1, var, record, &value), CDF_OK);
    }
    static CDFid current() {
        CDFid id = nullptr;
        EXPECT_EQ(CDFlib(CONFIRM_, CDF_, &id, NULL_), CDF_OK);
        return id;
    }
    void expect_listing(const std::string& file,
                        const std::map<std::string, std::vector<std::string>>& want) {
        const std::string listing = cdfgate::test::jcdf_listing(file);
        const auto got = cdfgate::test::jcdf_records(listing);
        ASSERT_EQ(got.size(), want.size()) << listing.substr(0, 2000);
        for (const auto& [variable, lines] : want) {
            ASSERT_TRUE(got.count(variable)) << variable << "\n" << listing.substr(0, 2000);
            EXPECT_EQ(got.at(variable), lines) << variable;
        }
    }

    fs::path dir_;
};

// Values: mostly runs that compress, with a stretch of noise that does not.
int value(long r) {
    return r >= 40 && r < 50 ? static_cast<int>(r * 2654435761u)
                             : (r % 7 == 0 ? static_cast<int>(r) : 0);
}

TEST_F(JcdfCompression, ListsEveryMethodsBlocksRewritesAndDeletions) {
    const std::string name = (dir_ / "vars").string();
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), CDF_OK);
    std::map<std::string, std::vector<std::string>> want;
    const struct {
        const char* name;
        long type, parm;
    } methods[] = {{"rle", RLE_COMPRESSION, 0},
                   {"huff", HUFF_COMPRESSION, 0},
                   {"ahuff", AHUFF_COMPRESSION, 0},
                   {"gzip", GZIP_COMPRESSION, 6}};
    for (const auto& m : methods) {
        const long v = make(m.name, m.type, m.parm);
        for (long r = 0; r < 95; ++r) put(v, r, value(r));
        for (long r = 0; r < 95; ++r)
            want[m.name].push_back(std::to_string(r) + ": " + std::to_string(value(r)));
    }
    ASSERT_GE(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    // A second session: block 0-9 of gzip rewritten with noise (it moves), records
    // 20-29 of rle deleted (later ones move down), and a sparse variable.
    ASSERT_EQ(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), CDF_OK);
    for (long r = 0; r < 10; ++r) {
        const int noise = static_cast<int>((r + 1) * 2246822519u);
        put(3, r, noise);
        want["gzip"][static_cast<std::size_t>(r)] =
            std::to_string(r) + ": " + std::to_string(noise);
    }
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, DELETE_, zVAR_RECORDS_, 20L, 29L, NULL_), CDF_OK);
    auto& rle = want["rle"];
    rle.erase(rle.begin() + 20, rle.begin() + 30);
    for (std::size_t i = 20; i < rle.size(); ++i) {
        rle[i] = std::to_string(i) + ": " + std::to_string(value(static_cast<long>(i) + 10));
    }
    const long s = make("sparse", GZIP_COMPRESSION, 9, PAD_SPARSERECORDS);
    for (const long r : {5L, 6L, 7L, 50L, 51L, 2L}) put(s, r, static_cast<int>(r * 100));
    // jcdf lists a sparse variable's written records only.
    for (const long r : {2L, 5L, 6L, 7L, 50L, 51L}) {
        want["sparse"].push_back(std::to_string(r) + ": " + std::to_string(r * 100));
    }
    ASSERT_GE(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    expect_listing(name + ".cdf", want);
}

TEST_F(JcdfCompression, ListsWholeFileCompressedAndVersion2Files) {
    for (const bool backward : {false, true}) {
        CDFsetFileBackward(backward ? BACKWARDFILEon : BACKWARDFILEoff);
        const std::string name = (dir_ / (backward ? "v27" : "whole")).string();
        CDFid id = nullptr;
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), CDF_OK);
        long parms[] = {6};
        if (!backward) {
            ASSERT_EQ(CDFlib(PUT_, CDF_COMPRESSION_, GZIP_COMPRESSION, parms, PUT_, CDF_CHECKSUM_,
                             MD5_CHECKSUM, NULL_),
                      CDF_OK);
        }
        const long v = make("v", backward ? HUFF_COMPRESSION : RLE_COMPRESSION, 0);
        std::map<std::string, std::vector<std::string>> want;
        for (long r = 0; r < 35; ++r) {
            put(v, r, value(r));
            want["v"].push_back(std::to_string(r) + ": " + std::to_string(value(r)));
        }
        ASSERT_GE(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
        expect_listing(name + ".cdf", want);
    }
}

}  // namespace
