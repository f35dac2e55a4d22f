// Payloads inside the sample CDF files written by the reference library: variable blocks
// (CVVR) and whole-file images (CCR).
#include <gtest/gtest.h>

#include <bit>
#include <cstring>

#include "codec/dispatch.h"
#include "codec_test_data.h"

namespace cdfgate::engine::codec {
namespace {

using testing::be;
using testing::Bytes;

void put_le(Bytes& b, std::uint64_t v, int width) {
    for (int i = 0; i < width; ++i) b.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
}

// Records 0..n-1 of the sample variables as stored (little-endian data, row major).
Bytes r8_block(int n) {
    Bytes b;
    for (int r = 0; r < n; ++r) {
        const double v[4] = {double(r), 0.0, r * 0.25, r % 5 == 0 ? 0.0 : 1000 + r / 8.0};
        for (const double x : v) put_le(b, std::bit_cast<std::uint64_t>(x), 8);
    }
    return b;
}

Bytes i2_block(int n) {
    Bytes b;
    for (int r = 0; r < n; ++r) {
        for (int i = 0; i < 8; ++i) put_le(b, (r % 4 == 0 || i < 4) ? 0 : 10 * r + i, 2);
    }
    return b;
}

Bytes blk_block(int n) {
    Bytes b;
    for (int r = 0; r < n; ++r) put_le(b, r % 10 == 0 ? r : 0, 2);
    return b;
}

struct CvvrRow {
    const char* file;
    Method method;
    std::size_t offset;
    Bytes (*block)(int);
    int records;
};

class SampleCvvr : public ::testing::TestWithParam<CvvrRow> {};

TEST_P(SampleCvvr, DecodesToTheRecordsAndReencodesIdentically) {
    const auto& row = GetParam();
    const Bytes file = testing::read_shared(std::string("compression/") + row.file);
    ASSERT_EQ(be(file, row.offset + 8, 4), 13u) << "not a CVVR";
    const std::size_t csize = be(file, row.offset + 16, 8);
    ASSERT_LE(row.offset + 24 + csize, file.size());
    const ByteView payload(file.data() + row.offset + 24, csize);
    const Bytes expected = row.block(row.records);

    Bytes decoded(expected.size());
    ASSERT_EQ(decode(row.method, payload, decoded), Result::Ok);
    EXPECT_EQ(decoded, expected);

    if (row.method != Method::Gzip) {  // our deflate differs from the reference's zlib
        Bytes encoded;
        ASSERT_EQ(encode(row.method, 0, expected, encoded), Result::Ok);
        EXPECT_TRUE(std::equal(encoded.begin(), encoded.end(), payload.begin(), payload.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Files, SampleCvvr,
    ::testing::Values(CvvrRow{"var_rle.cdf", Method::Rle, 0xa81, r8_block, 100},
                      CvvrRow{"var_rle.cdf", Method::Rle, 0x1021, i2_block, 100},
                      CvvrRow{"var_rle.cdf", Method::Rle, 0x9ae, blk_block, 40},
                      CvvrRow{"var_huff.cdf", Method::Huff, 0xa9f, r8_block, 100},
                      CvvrRow{"var_huff.cdf", Method::Huff, 0xf73, i2_block, 100},
                      CvvrRow{"var_huff.cdf", Method::Huff, 0x9ae, blk_block, 40},
                      CvvrRow{"var_ahuff.cdf", Method::Ahuff, 0xa8a, r8_block, 100},
                      CvvrRow{"var_ahuff.cdf", Method::Ahuff, 0xede, i2_block, 100},
                      CvvrRow{"var_ahuff.cdf", Method::Ahuff, 0x9ae, blk_block, 40},
                      CvvrRow{"var_gzip1.cdf", Method::Gzip, 0xaae, r8_block, 100},
                      CvvrRow{"var_gzip6.cdf", Method::Gzip, 0xddb, i2_block, 100},
                      CvvrRow{"var_gzip9.cdf", Method::Gzip, 0xaac, r8_block, 100},
                      CvvrRow{"var_gzip6_reserve50.cdf", Method::Gzip, 0xaba, r8_block, 100}),
    [](const auto& info) { return "row" + std::to_string(info.index); });

struct CcrRow {
    const char* file;
    Method method;
    bool checksum;
};

class SampleCcr : public ::testing::TestWithParam<CcrRow> {};

TEST_P(SampleCcr, ImageIsThePlainFile) {
    const auto& row = GetParam();
    const Bytes file = testing::read_shared(std::string("compression/") + row.file);
    const Bytes plain = testing::read_shared("compression/plain.cdf");
    ASSERT_EQ(be(file, 8 + 8, 4), 10u) << "not a CCR";
    const std::size_t record_size = be(file, 8, 8);
    const std::size_t usize = be(file, 8 + 20, 8);
    ASSERT_LE(8 + record_size, file.size());
    const ByteView payload(file.data() + 8 + 32, record_size - 32);

    Bytes image(plain.begin() + 8, plain.end());
    if (row.checksum) image[0x2b - 8] = 0x0f;  // CDR flags carry the checksum bits
    ASSERT_EQ(usize, image.size());

    Bytes decoded;
    ASSERT_EQ(decode(row.method, payload, decoded, usize * 2), Result::Ok);
    EXPECT_EQ(decoded, image);

    if (row.method != Method::Gzip) {
        Bytes encoded;
        ASSERT_EQ(encode(row.method, 0, image, encoded), Result::Ok);
        EXPECT_TRUE(std::equal(encoded.begin(), encoded.end(), payload.begin(), payload.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(Files, SampleCcr,
                         ::testing::Values(CcrRow{"file_rle.cdf", Method::Rle, false},
                                           CcrRow{"file_huff.cdf", Method::Huff, false},
                                           CcrRow{"file_ahuff.cdf", Method::Ahuff, false},
                                           CcrRow{"file_gzip1.cdf", Method::Gzip, false},
                                           CcrRow{"file_gzip6.cdf", Method::Gzip, false},
                                           CcrRow{"file_gzip9.cdf", Method::Gzip, false},
                                           CcrRow{"file_gzip6_md5.cdf", Method::Gzip, true}),
                         [](const auto& info) {
                             std::string name = info.param.file;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace cdfgate::engine::codec
