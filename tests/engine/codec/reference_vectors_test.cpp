// The raw vectors and large blocks cut from files written by the reference library:
// every payload decodes to its block and every block encodes to the identical payload.
#include <gtest/gtest.h>

#include <ostream>

#include "codec/dispatch.h"
#include "codec_test_data.h"

namespace cdfgate::engine::codec {
namespace {

using testing::Bytes;

struct VectorSet {
    Method method;
    const char* vectors;
    const char* large;
};

void PrintTo(const VectorSet& v, std::ostream* out) {
    *out << v.vectors;
}

class ReferenceVectors : public ::testing::TestWithParam<VectorSet> {};

TEST_P(ReferenceVectors, PayloadsAndBlocksMatchBothWays) {
    const Method method = GetParam().method;
    auto vectors = testing::read_vectors(std::string("compression/") + GetParam().vectors);
    const Bytes large = testing::read_shared("compression/large_input.bin");
    ASSERT_EQ(large.size(), 40000u);
    vectors.push_back(
        {"large", large, testing::read_shared(std::string("compression/") + GetParam().large)});
    for (const auto& v : vectors) {
        SCOPED_TRACE(v.name);
        Bytes exact(v.in.size(), 0xcc);
        ASSERT_EQ(decode(method, v.out, exact), Result::Ok);
        EXPECT_EQ(exact, v.in);

        Bytes grown{0x55};  // decoding appends after what is there
        ASSERT_EQ(decode(method, v.out, grown, v.in.size()), Result::Ok);
        EXPECT_EQ(grown.front(), 0x55);
        EXPECT_EQ(Bytes(grown.begin() + 1, grown.end()), v.in);

        Bytes encoded{0x99};  // so does encoding
        ASSERT_EQ(encode(method, 0, v.in, encoded), Result::Ok);
        EXPECT_EQ(encoded.front(), 0x99);
        EXPECT_EQ(Bytes(encoded.begin() + 1, encoded.end()), v.out);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Codecs, ReferenceVectors,
    ::testing::Values(VectorSet{Method::Rle, "vectors_rle.txt", "large_rle.bin"},
                      VectorSet{Method::Huff, "vectors_huff.txt", "large_huff.bin"},
                      VectorSet{Method::Ahuff, "vectors_ahuff.txt", "large_ahuff.bin"}),
    [](const auto& info) { return testing::method_name(info.param.method); });

// The worked examples of the notes, written out bit by bit there.
TEST(ReferenceExamples, ShortInputsGiveTheDocumentedStreams) {
    struct Row {
        Method method;
        Bytes in;
        Bytes out;
    };
    const Row rows[] = {
        {Method::Rle, {0x00, 0x00, 0x00, 0x41, 0x00}, {0x00, 0x02, 0x41, 0x00, 0x00}},
        {Method::Rle, Bytes(256, 0), {0x00, 0xff}},
        {Method::Rle, Bytes(257, 0), {0x00, 0xff, 0x00, 0x00}},
        {Method::Rle, Bytes(300, 0), {0x00, 0xff, 0x00, 0x2b}},
        {Method::Huff, {0x41, 0x41, 0x42}, {0x41, 0x42, 0x02, 0x01, 0x00, 0x2c}},
        {Method::Ahuff, {0x41, 0x41, 0x42}, {0xa0, 0xa2, 0x10}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::method_name(row.method) + " of " + std::to_string(row.in.size()));
        Bytes out;
        ASSERT_EQ(encode(row.method, 0, row.in, out), Result::Ok);
        EXPECT_EQ(out, row.out);
        Bytes back(row.in.size());
        ASSERT_EQ(decode(row.method, row.out, back), Result::Ok);
        EXPECT_EQ(back, row.in);
    }
}

}  // namespace
}  // namespace cdfgate::engine::codec
