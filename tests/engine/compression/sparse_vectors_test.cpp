// The vectors files: bursts of PAD-sparse records of a compressed one-byte
// variable, one block per burst, rebuilt from their inputs byte for byte.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "compression_fixture.h"
#include "file_index.h"

namespace {

using cdfgate::test::CompressionTest;
using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;

std::vector<std::uint8_t> from_hex(const std::string& hex) {
    std::vector<std::uint8_t> out;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        out.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return out;
}

// Inputs of the named vectors ("A" .. "F") of a vectors text file.
std::map<char, std::vector<std::uint8_t>> vector_inputs(const std::string& file) {
    std::ifstream in(shared_data("compression/" + file));
    EXPECT_TRUE(in.good()) << file;
    std::map<char, std::vector<std::uint8_t>> out;
    std::string line;
    char current = 0;
    while (std::getline(in, line)) {
        if (line.rfind("name: ", 0) == 0) {
            const char c = line.size() > 7 && line[7] == ':' ? line[6] : 0;
            current = c;
        } else if (line.rfind("in: ", 0) == 0 && current != 0) {
            out[current] = from_hex(line.substr(4));
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
};

class SparseVectors : public CompressionTest, public ::testing::WithParamInterface<Case> {};

TEST_P(SparseVectors, BurstsGiveTheReferenceFile) {
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
    ASSERT_GE(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);

    const auto ours = file_bytes(path("v.cdf"));
    const auto theirs =
        file_bytes(shared_data(std::string("compression/vectors_") + GetParam().name + ".cdf"));
    ASSERT_EQ(ours.size(), theirs.size());
    for (std::size_t i = 0; i < ours.size(); ++i) {
        ASSERT_EQ(ours[i], theirs[i]) << "first difference at byte " << i;
    }
    const auto blocks = cdfgate::test::stored_blocks(ours, 0);
    ASSERT_EQ(blocks.size(), 7u);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_EQ(blocks[i].first, kBursts[i].first);
        EXPECT_EQ(blocks[i].last - blocks[i].first + 1,
                  static_cast<std::int64_t>(inputs[kBursts[i].name].size()));
    }
}

INSTANTIATE_TEST_SUITE_P(Methods, SparseVectors,
                         ::testing::Values(Case{"rle", RLE_COMPRESSION},
                                           Case{"huff", HUFF_COMPRESSION},
                                           Case{"ahuff", AHUFF_COMPRESSION}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
