// Writing compressed variables: the reference samples rebuilt from the calls that
// made them, blocks, reserve room, rewrites in place and moved, and the statuses.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "compression_fixture.h"

namespace {

using cdfgate::test::CompressionTest;
using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;

struct Sample {
    const char* file;
    long type;
    long parm;
};

class SampleRebuild : public CompressionTest, public ::testing::WithParamInterface<Sample> {};

// RLE, HUFF and AHUFF are deterministic: the same calls give the same bytes.
TEST_P(SampleRebuild, SameCallsGiveTheReferenceBytes) {
    const Sample& s = GetParam();
    const CDFstatus closed = write_sample("out", s.type, s.parm);
    // Only RLE leaves a block (the characters, which have no zeros) uncompressed.
    EXPECT_EQ(closed, s.type == RLE_COMPRESSION ? DID_NOT_COMPRESS : CDF_OK);
    const auto ours = file_bytes(path("out.cdf"));
    const auto theirs = file_bytes(shared_data(std::string("compression/") + s.file));
    ASSERT_EQ(ours.size(), theirs.size());
    for (std::size_t i = 0; i < ours.size(); ++i) {
        ASSERT_EQ(ours[i], theirs[i]) << "first difference at byte " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Deterministic, SampleRebuild,
    ::testing::Values(Sample{"var_rle.cdf", RLE_COMPRESSION, 0},
                      Sample{"var_huff.cdf", HUFF_COMPRESSION, 0},
                      Sample{"var_ahuff.cdf", AHUFF_COMPRESSION, 0}),
    [](const auto& info) {
        return std::string(info.param.file).substr(4, info.param.file[4] == 'r' ? 3 : 4);
    });

}  // namespace
