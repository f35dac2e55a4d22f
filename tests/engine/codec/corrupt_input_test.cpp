// Damaged, truncated and oversized payloads give a result, never a crash or an
// allocation beyond the caller's bound.
#include <gtest/gtest.h>

#include <random>

#include "codec/adaptive_huffman.h"
#include "codec/dispatch.h"
#include "codec/huffman.h"
#include "codec/rle.h"
#include "codec_test_data.h"

namespace cdfgate::engine::codec {
namespace {

using testing::Bytes;

// The first 3000 bytes of the large input, and their payload.
class DamagedPayload : public ::testing::TestWithParam<Method> {
  protected:
    void SetUp() override {
        input.resize(3000);
        ASSERT_EQ(encode(GetParam(), 6, input, payload), Result::Ok);
    }
    Bytes input = testing::read_shared("compression/large_input.bin");
    Bytes payload;
};

TEST_P(DamagedPayload, EveryTruncationFailsOrYieldsOnlyTrueData) {
    for (std::size_t len = 0; len < payload.size(); ++len) {
        const ByteView cut(payload.data(), len);
        Bytes exact(input.size());
        const Result r = decode(GetParam(), cut, exact);
        // A span decode stops when full, so only the end-of-stream code may be missing.
        if (r == Result::Ok) {
            ASSERT_EQ(exact, input) << "prefix " << len;
        }

        Bytes grown;
        const Result g = decode(GetParam(), cut, grown, input.size());
        if (GetParam() == Method::Rle) {
            // RLE has no terminator: a prefix is a valid shorter stream unless it cuts a pair.
            if (g == Result::Ok) {
                ASSERT_LT(grown.size(), input.size());
                ASSERT_TRUE(std::equal(grown.begin(), grown.end(), input.begin()));
            }
        } else {
            ASSERT_NE(g, Result::Ok) << "prefix " << len;
            ASSERT_TRUE(grown.empty());
        }
    }
}

TEST_P(DamagedPayload, RandomDamageStaysWithinBounds) {
    std::mt19937 gen(11);
    int failures = 0;
    int unprotected = 0;
    for (int trial = 0; trial < 400; ++trial) {
        Bytes bad = payload;
        const int flips = 1 + trial % 4;
        for (int f = 0; f < flips; ++f) {
            const std::size_t at = gen() % bad.size();
            bad[at] ^= static_cast<std::uint8_t>(1 + gen() % 255);
            unprotected += GetParam() == Method::Gzip && at >= 4 && at < 10;  // time, XFL, OS
        }
        Bytes exact(input.size());
        const Result r = decode(GetParam(), bad, exact);
        Bytes grown{1, 2, 3};
        const Result g = decode(GetParam(), bad, grown, input.size());
        if (g != Result::Ok) {
            ASSERT_EQ(grown, (Bytes{1, 2, 3})) << "output changed by a failed decode";
        } else {
            ASSERT_LE(grown.size(), input.size() + 3);
        }
        failures += r != Result::Ok;
    }
    if (GetParam() == Method::Gzip) {
        EXPECT_GE(failures, 400 - unprotected);  // the CRC catches every change to the data
    }
}

TEST_P(DamagedPayload, GarbageIsHandled) {
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        const Bytes junk = testing::random_bytes(1 + seed * 7 % 2000, seed);
        Bytes exact(4000);
        (void)decode(GetParam(), junk, exact);
        Bytes grown;
        const Result g = decode(GetParam(), junk, grown, 4000);
        ASSERT_LE(grown.size(), 4000u);
        if (g != Result::Ok) {
            ASSERT_TRUE(grown.empty());
        }
    }
}

// A block bigger than the stream is short; a smaller one takes the start; the
// bound is enforced; bytes after the end marker are ignored.
TEST_P(DamagedPayload, OutputSizesAroundTheStream) {
    Bytes bigger(input.size() + 1);
    EXPECT_EQ(decode(GetParam(), payload, bigger), Result::ShortOutput);
    Bytes smaller(input.size() - 17);
    ASSERT_EQ(decode(GetParam(), payload, smaller), Result::Ok);
    EXPECT_TRUE(std::equal(smaller.begin(), smaller.end(), input.begin()));

    Bytes out{9};
    EXPECT_EQ(decode(GetParam(), payload, out, input.size() - 1), Result::TooLarge);
    EXPECT_EQ(out, Bytes{9});
    EXPECT_EQ(decode(GetParam(), payload, out, 0), Result::TooLarge);
    EXPECT_EQ(decode(GetParam(), payload, out, input.size()), Result::Ok);
    EXPECT_EQ(out.size(), input.size() + 1);

    const Bytes tail{0xde, 0xad, 0xbe, 0xef};
    payload.insert(payload.end(), tail.begin(), tail.end());
    Bytes grown;
    ASSERT_EQ(decode(GetParam(), payload, grown, input.size() * 2), Result::Ok);
    Bytes expected = input;
    // RLE has no end marker: what follows is more data.
    if (GetParam() == Method::Rle) expected.insert(expected.end(), tail.begin(), tail.end());
    EXPECT_EQ(grown, expected);
}

INSTANTIATE_TEST_SUITE_P(Codecs, DamagedPayload,
                         ::testing::Values(Method::Rle, Method::Huff, Method::Ahuff, Method::Gzip),
                         [](const auto& info) { return testing::method_name(info.param); });

TEST(RleStream, LoneTrailingZeroIsAnError) {
    Bytes two(2);
    EXPECT_EQ(rle_decode(Bytes{0x41, 0x00}, two), Result::Truncated);
    Bytes grown;
    EXPECT_EQ(rle_decode(Bytes{0x41, 0x00}, grown, 100), Result::Truncated);
    // Once the block is full the rest is not read.
    Bytes one(1);
    EXPECT_EQ(rle_decode(Bytes{0x41, 0x00}, one), Result::Ok);
    EXPECT_EQ(one, Bytes{0x41});
}

TEST(RleStream, ShortRunsAreAccepted) {
    Bytes out(20);
    EXPECT_EQ(rle_decode(Bytes{0x00, 0x04, 0x00, 0x09, 0x00, 0x04}, out), Result::Ok);
    EXPECT_EQ(out, Bytes(20, 0));
}

TEST(HuffStream, MalformedHeaders) {
    struct Row {
        const char* name;
        Bytes payload;
        std::size_t size;
        Result expected;
    };
    const Row rows[] = {
        {"empty payload", {}, 0, Result::Truncated},
        {"one byte", {0x00}, 0, Result::Truncated},
        {"weights cut", {0x00, 0x05, 0x01, 0x02}, 0, Result::Truncated},
        {"no terminator", {0x00, 0x00, 0x01}, 0, Result::Truncated},
        {"second run cut", {0x00, 0x00, 0x01, 0x07}, 0, Result::Truncated},
        {"header only, no bits", {0x00, 0x00, 0x01, 0x00}, 1, Result::Truncated},
        // All weights zero: only the end-of-stream symbol, which needs no bits.
        {"only end of stream", {0x00, 0x00, 0x00, 0x00}, 0, Result::Ok},
        {"only end of stream, block expected", {0x00, 0x00, 0x00, 0x00}, 1, Result::ShortOutput},
        // End above start reads no weights.
        {"reversed run", {0x05, 0x01, 0x00, 0x00}, 0, Result::Ok},
    };
    for (const auto& row : rows) {
        Bytes out(row.size);
        EXPECT_EQ(huff_decode(row.payload, out), row.expected) << row.name;
    }
}

TEST(AhuffStream, BadStreamsAreRefused) {
    Bytes out;
    // ESCAPE 1, 0x41, then ESCAPE again (now 00) followed by 0x41 once more.
    EXPECT_EQ(ahuff_decode(Bytes{0xa0, 0x88, 0x20}, out, 10), Result::Corrupt);
    EXPECT_TRUE(out.empty());
    EXPECT_EQ(ahuff_decode(ByteView{}, out, 10), Result::Truncated);
}

}  // namespace
}  // namespace cdfgate::engine::codec
