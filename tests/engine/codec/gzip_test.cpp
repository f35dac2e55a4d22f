// The gzip member we write, and the members and non-members we must accept or refuse.
#include <gtest/gtest.h>
#include <zlib.h>

#include "codec/gzip.h"
#include "codec_test_data.h"

namespace cdfgate::engine::codec {
namespace {

using testing::Bytes;

std::uint32_t le32(const Bytes& b, std::size_t at) {
    return std::uint32_t{b[at]} | std::uint32_t{b[at + 1]} << 8 | std::uint32_t{b[at + 2]} << 16 |
           std::uint32_t{b[at + 3]} << 24;
}

Bytes zlib_deflate(const Bytes& in, int window_bits) {
    z_stream s{};
    EXPECT_EQ(deflateInit2(&s, 6, Z_DEFLATED, window_bits, 8, Z_DEFAULT_STRATEGY), Z_OK);
    Bytes out(deflateBound(&s, in.size()) + 64);
    s.next_in = const_cast<Bytef*>(in.data());
    s.avail_in = static_cast<uInt>(in.size());
    s.next_out = out.data();
    s.avail_out = static_cast<uInt>(out.size());
    EXPECT_EQ(deflate(&s, Z_FINISH), Z_STREAM_END);
    out.resize(s.total_out);
    deflateEnd(&s);
    return out;
}

TEST(GzipMember, HeaderAndTrailerFollowTheReferenceLayout) {
    const Bytes input = testing::read_shared("compression/large_input.bin");
    const std::uint32_t crc =
        static_cast<std::uint32_t>(crc32(0, input.data(), static_cast<uInt>(input.size())));
    const struct {
        int level;
        std::uint8_t xfl;
    } rows[] = {{1, 0x04}, {2, 0x00}, {6, 0x00}, {8, 0x00}, {9, 0x02}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.level);
        Bytes out;
        ASSERT_EQ(gzip_compress(input, row.level, out), Result::Ok);
        ASSERT_GT(out.size(), 18u);
        EXPECT_EQ(Bytes(out.begin(), out.begin() + 10),
                  (Bytes{0x1f, 0x8b, 0x08, 0x00, 0, 0, 0, 0, row.xfl, 0x03}));
        EXPECT_EQ(le32(out, out.size() - 8), crc);
        EXPECT_EQ(le32(out, out.size() - 4), input.size());
        EXPECT_LT(out.size(), input.size() / 2);
    }
}

TEST(GzipMember, LevelsOutsideOneToNineAreRefused) {
    for (const int level : {-1, 0, 10}) {
        Bytes out{1};
        EXPECT_EQ(gzip_compress(Bytes{1, 2, 3}, level, out), Result::BadParameter) << level;
        EXPECT_EQ(out, Bytes{1});
    }
}

TEST(GzipMember, OptionalHeaderFieldsAreAccepted) {
    const Bytes input{1, 2, 3, 4, 0, 0, 0, 5};
    const Bytes plain = zlib_deflate(input, 16 + 15);
    // Same member with a file name, a time stamp and operating system 255.
    Bytes named{0x1f, 0x8b, 0x08, 0x08, 0x12, 0x34, 0x56, 0x78, 0x00, 0xff};
    for (const char c : std::string("block.bin")) named.push_back(static_cast<std::uint8_t>(c));
    named.push_back(0);
    named.insert(named.end(), plain.begin() + 10, plain.end());
    Bytes out(input.size());
    ASSERT_EQ(gzip_decompress(named, out), Result::Ok);
    EXPECT_EQ(out, input);
}

TEST(GzipMember, OtherWrappersAndDamageAreRefused) {
    const Bytes input = testing::read_shared("compression/large_input.bin");
    Bytes good;
    ASSERT_EQ(gzip_compress(input, 6, good), Result::Ok);

    Bytes bad_crc = good;
    bad_crc.at(bad_crc.size() - 6) ^= 1;
    Bytes bad_length = good;
    bad_length.at(bad_length.size() - 2) ^= 1;
    Bytes bad_magic = good;
    bad_magic.at(1) = 0x8c;

    const struct {
        const char* name;
        Bytes payload;
    } rows[] = {
        {"zlib wrapper", zlib_deflate(input, 15)},
        {"raw deflate", zlib_deflate(input, -15)},
        {"wrong crc", bad_crc},
        {"wrong length", bad_length},
        {"wrong magic", bad_magic},
        {"empty", {}},
    };
    for (const auto& row : rows) {
        Bytes exact(input.size());
        EXPECT_EQ(gzip_decompress(row.payload, exact), Result::Corrupt) << row.name;
        Bytes smaller(100);  // the excess path checks the whole member too
        EXPECT_EQ(gzip_decompress(row.payload, smaller), Result::Corrupt) << row.name;
        Bytes grown;
        EXPECT_EQ(gzip_decompress(row.payload, grown, input.size() * 2), Result::Corrupt)
            << row.name;
        EXPECT_TRUE(grown.empty());
    }
}

TEST(GzipMember, LengthFieldDoesNotDriveAllocation) {
    const Bytes input(100000, 7);
    Bytes member;
    ASSERT_EQ(gzip_compress(input, 6, member), Result::Ok);
    // A member followed by junk whose last four bytes claim 4 GiB.
    member.insert(member.end(), {0, 0, 0, 0, 0xff, 0xff, 0xff, 0xff});
    Bytes out;
    ASSERT_EQ(gzip_decompress(member, out, input.size()), Result::Ok);
    EXPECT_EQ(out, input);
    EXPECT_LE(out.capacity(), 2 * input.size());
}

TEST(GzipMember, ReusedCompressorAndDecompressorStayCorrect) {
    GzipCompressor c(6);
    GzipDecompressor d;
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        Bytes input = testing::random_bytes(1000 + seed * 997, seed);
        for (std::size_t i = 0; i < input.size(); i += 3) input[i] = 0;
        Bytes member;
        ASSERT_EQ(c.compress(input, member), Result::Ok);
        Bytes out(input.size());
        ASSERT_EQ(d.decompress(member, out), Result::Ok);
        ASSERT_EQ(out, input);
    }
}

}  // namespace
}  // namespace cdfgate::engine::codec
