// The compression samples: each reports the compression and holds the values the
// samples' README gives, and the same calls rebuild it (byte for byte where the
// method is deterministic, block for block for GZIP, whose payloads come from
// another deflate than the reference's).
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "compression_fixture.h"
#include "file_index.h"

namespace {

using namespace cdfgate::test;

struct Sample {
    const char* file;
    SampleOptions calls;
    long pct[4];  // per variable, or of the whole file in pct[0]
    CDFstatus closes;
};

const Sample kSamples[] = {
    {"var_rle.cdf", {.var_type = RLE_COMPRESSION}, {40, 49, 100, 15}, DID_NOT_COMPRESS},
    {"var_huff.cdf", {.var_type = HUFF_COMPRESSION}, {34, 56, 39, 35}, CDF_OK},
    {"var_ahuff.cdf", {.var_type = AHUFF_COMPRESSION}, {30, 50, 38, 21}, CDF_OK},
    // At level 1 the 40-byte last block of blk does not shrink with our deflate.
    {"var_gzip1.cdf",
     {.var_type = GZIP_COMPRESSION, .var_parm = 1},
     {21, 40, 14, 48},
     DID_NOT_COMPRESS},
    {"var_gzip6.cdf", {.var_type = GZIP_COMPRESSION, .var_parm = 6}, {20, 38, 14, 46}, CDF_OK},
    {"var_gzip9.cdf", {.var_type = GZIP_COMPRESSION, .var_parm = 9}, {20, 38, 14, 46}, CDF_OK},
    {"var_gzip6_reserve50.cdf",
     {.var_type = GZIP_COMPRESSION, .var_parm = 6, .reserve = 50},
     {50, 50, 50, 53},
     CDF_OK},
    // (8 + CCR + CPR) over the expanded size, rounded half up: file_rle is 83.5.
    {"file_rle.cdf", {.file_type = RLE_COMPRESSION}, {84}, CDF_OK},
    {"file_huff.cdf", {.file_type = HUFF_COMPRESSION}, {49}, CDF_OK},
    {"file_ahuff.cdf", {.file_type = AHUFF_COMPRESSION}, {46}, CDF_OK},
    {"file_gzip1.cdf", {.file_type = GZIP_COMPRESSION, .file_parm = 1}, {9}, CDF_OK},
    {"file_gzip6.cdf", {.file_type = GZIP_COMPRESSION, .file_parm = 6}, {8}, CDF_OK},
    {"file_gzip9.cdf", {.file_type = GZIP_COMPRESSION, .file_parm = 9}, {8}, CDF_OK},
    {"file_gzip6_md5.cdf",
     {.file_type = GZIP_COMPRESSION, .file_parm = 6, .md5 = true},
     {8},
     CDF_OK},
};

void PrintTo(const Sample& s, std::ostream* out) {
    *out << s.file;
}

class Samples : public CompressionTest, public ::testing::WithParamInterface<Sample> {};

TEST_P(Samples, ReportTheirCompressionAndRebuildFromTheSameCalls) {
    const Sample& s = GetParam();
    const SampleOptions& o = s.calls;
    const std::string reference = shared_data(std::string("compression/") + s.file).string();
    ASSERT_EQ(open_cdf(reference), CDF_OK);
    const bool whole = o.file_type != NO_COMPRESSION;
    if (whole) {
        const Compression c = get_compression(CDF_COMPRESSION_);
        EXPECT_EQ(c.type, o.file_type);
        EXPECT_EQ(c.parm, o.file_parm);
        EXPECT_EQ(c.pct, s.pct[0]);
    }
    for (long v = 0; v < 4; ++v) {
        const Compression c = var_compression(v);
        EXPECT_EQ(c.type, o.var_type) << v;
        EXPECT_EQ(c.parm, whole ? -9 : o.var_parm) << v;  // no parameter written back
        EXPECT_EQ(c.pct, whole ? 100 : s.pct[v]) << v;
    }
    expect_sample_values();
    ASSERT_EQ(close_cdf(), CDF_OK);

    const bool gzip = (whole ? o.file_type : o.var_type) == GZIP_COMPRESSION;
    if (whole && gzip) return;  // the image inside is checked with its digest
    ASSERT_EQ(write_sample("out", o), s.closes);
    const auto ours = file_bytes(path("out.cdf"));
    const auto theirs = file_bytes(reference);
    if (!gzip) {
        expect_same_bytes(ours, theirs);
        return;
    }
    // Blocks as the reference's; each holds its payload plus the reserve room.
    const std::int64_t record_size[] = {32, 16, 16, 2};
    for (int v = 0; v < 4; ++v) {
        const auto a = stored_blocks(ours, v);
        const auto b = stored_blocks(theirs, v);
        ASSERT_EQ(a.size(), b.size()) << v;
        for (std::size_t i = 0; i < a.size(); ++i) {
            EXPECT_EQ(a[i].first, b[i].first);
            EXPECT_EQ(a[i].last, b[i].last);
            if (a[i].type == 7) {
                EXPECT_TRUE(o.var_parm == 1 && v == 3) << v;
                continue;
            }
            EXPECT_EQ(a[i].type, b[i].type);
            const std::int64_t raw = (a[i].last - a[i].first + 1) * record_size[v];
            EXPECT_EQ(a[i].size - 24, std::max(a[i].c_size, (raw * o.reserve + 50) / 100)) << v;
        }
    }
    ASSERT_EQ(open_cdf(path("out")), CDF_OK);
    expect_sample_values();
    if (o.reserve != 0) {
        for (long v = 0; v < 3; ++v) EXPECT_EQ(var_compression(v).pct, o.reserve) << v;
        long kept = -9;  // the reserve percentage is not kept in the file
        EXPECT_EQ(CDFlib(SELECT_, zVAR_, 0L, CONFIRM_, zVAR_RESERVEPERCENT_, &kept, NULL_), CDF_OK);
        EXPECT_EQ(kept, 0);
    }
    ASSERT_EQ(close_cdf(), CDF_OK);
}

INSTANTIATE_TEST_SUITE_P(Reference, Samples, ::testing::ValuesIn(kSamples), [](const auto& info) {
    const std::string name = info.param.file;
    return name.substr(0, name.size() - 4);
});

// Slack per percentage for a 3200-byte block compressing to c bytes: none up to
// c, half up to 100 where a VVR results, and above 100 a share of c.
TEST_F(CompressionTest, ReservePercentagesAbove100ScaleThePayload) {
    struct Row {
        long percent;
        std::int32_t type;
    };
    for (const Row row : {Row{1, 13}, Row{100, 7}, Row{150, 13}, Row{300, 13}}) {
        const std::string name = "p" + std::to_string(row.percent);
        CDFid id = nullptr;
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        const long v = zvar("v", CDF_REAL8, 1, {4});
        long parms[] = {6};
        ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, parms, SELECT_,
                         zVAR_RESERVEPERCENT_, row.percent, NULL_),
                  CDF_OK);
        for (long r = 0; r < 100; ++r) ASSERT_EQ(put_record(v, r, r8_record(r).data()), CDF_OK);
        ASSERT_EQ(close_cdf(), row.type == 7 ? DID_NOT_COMPRESS : CDF_OK);
        const auto blocks = stored_blocks(file_bytes(path(name + ".cdf")), 0);
        ASSERT_EQ(blocks.size(), 1u);
        EXPECT_EQ(blocks[0].type, row.type);
        if (row.type == 7) continue;
        const std::int64_t c = blocks[0].c_size;
        const std::int64_t room =
            row.percent <= 100 ? std::max<std::int64_t>(c, 32) : (c * row.percent + 50) / 100;
        EXPECT_EQ(blocks[0].size, 24 + room) << row.percent;
    }
}

}  // namespace
