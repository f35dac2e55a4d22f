// The vectors files: bursts of PAD-sparse records of a compressed one-byte
// variable, one block per burst, rebuilt from their inputs byte for byte and read
// back as their inputs with the pad between them.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "compression_fixture.h"
#include "file_index.h"

namespace {

using namespace cdfgate::test;

// Inputs of the named vectors ("A" .. "F") of a vectors text file.
std::map<char, std::vector<std::uint8_t>> vector_inputs(const std::string& file) {
    std::ifstream in(shared_data("compression/" + file));
    EXPECT_TRUE(in.good()) << file;
    std::map<char, std::vector<std::uint8_t>> out;
    char current = 0;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("name: ", 0) == 0) {
            current = line.size() > 7 && line[7] == ':' ? line[6] : 0;
        } else if (line.rfind("in: ", 0) == 0 && current != 0) {
            auto& bytes = out[current];
            for (std::size_t i = 4; i + 1 < line.size(); i += 2) {
                bytes.push_back(
                    static_cast<std::uint8_t>(std::stoi(line.substr(i, 2), nullptr, 16)));
            }
        }
    }
    return out;
}

struct Burst {
    char name;
    long first;
};
constexpr Burst kBursts[] = {{'A', 0},    {'B', 1000}, {'C', 2000},  {'D', 3000},
                             {'E', 4000}, {'F', 5000}, {'L', 100000}};

struct Case {
    const char* name;
    long type;
    long pct;  // getzVarCompression of the reference file
};

class SparseVectors : public CompressionTest, public ::testing::WithParamInterface<Case> {};

TEST_P(SparseVectors, BurstsGiveTheReferenceFileAndReadBack) {
    auto inputs = vector_inputs("vectors_huff.txt");  // the only one listing every burst
    inputs['L'] = file_bytes(shared_data("compression/large_input.bin"));
    ASSERT_EQ(inputs.size(), 7u);

    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("v").c_str()), &id), CDF_OK);
    const long v = zvar("v", CDF_UINT1, 1, {});
    long parms[] = {0};
    ASSERT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, PUT_, zVAR_COMPRESSION_,
                     GetParam().type, parms, NULL_),
              CDF_OK);
    for (const Burst& b : kBursts) {
        const auto& bytes = inputs[b.name];
        ASSERT_GE(
            CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, b.first, zVAR_RECCOUNT_,
                   static_cast<long>(bytes.size()), PUT_, zVAR_HYPERDATA_, bytes.data(), NULL_),
            CDF_OK)
            << b.name;
    }
    ASSERT_GE(close_cdf(), CDF_OK);

    const std::string reference =
        shared_data(std::string("compression/vectors_") + GetParam().name + ".cdf");
    const auto ours = file_bytes(path("v.cdf"));
    expect_same_bytes(ours, file_bytes(reference));
    const auto blocks = stored_blocks(ours, 0);
    ASSERT_EQ(blocks.size(), 7u);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_EQ(blocks[i].first, kBursts[i].first);
        EXPECT_EQ(blocks[i].last - blocks[i].first + 1,
                  static_cast<std::int64_t>(inputs[kBursts[i].name].size()));
    }

    ASSERT_EQ(open_cdf(reference), CDF_OK);
    const auto& large = inputs['L'];
    std::vector<std::uint8_t> got(large.size());
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 100000L, zVAR_RECCOUNT_,
                     static_cast<long>(large.size()), GET_, zVAR_HYPERDATA_, got.data(), NULL_),
              CDF_OK);
    EXPECT_TRUE(got == large);
    // Between bursts: virtual records, read as the pad.
    std::uint8_t gap[3] = {};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 39L, zVAR_RECCOUNT_, 3L, GET_, zVAR_HYPERDATA_, gap,
                     NULL_),
              VIRTUAL_RECORD_DATA);
    EXPECT_EQ(gap[1], 254);
    EXPECT_EQ(gap[2], 254);
    EXPECT_EQ(var_compression(0).pct, GetParam().pct);
    ASSERT_EQ(close_cdf(), CDF_OK);
}

INSTANTIATE_TEST_SUITE_P(Methods, SparseVectors,
                         ::testing::Values(Case{"rle", RLE_COMPRESSION, 21},
                                           Case{"huff", HUFF_COMPRESSION, 26},
                                           Case{"ahuff", AHUFF_COMPRESSION, 23}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
