// Sessions on whole-file compressed CDFs: reading leaves no copy on disk and the
// file untouched; changes are compressed back; a failure keeps the original.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

#include "codec/dispatch.h"
#include "codec/md5.h"
#include "compression_fixture.h"
#include "file_index.h"

namespace {

using cdfgate::test::CompressionTest;
using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;

// Files the process holds open inside dir.
int open_files_in(const std::filesystem::path& dir) {
    int n = 0;
    for (const auto& fd : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code ec;
        const auto target = std::filesystem::read_symlink(fd.path(), ec);
        if (!ec && target.string().rfind(dir.string(), 0) == 0) ++n;
    }
    return n;
}

TEST_F(CompressionTest, ReadingACompressedFileWritesNoScratchCopy) {
    const std::filesystem::path tmp = dir_ / "tmp";
    std::filesystem::create_directories(tmp);
    const char* old = std::getenv("TMPDIR");
    const std::string saved = old ? old : "";
    ::setenv("TMPDIR", tmp.c_str(), 1);
    std::filesystem::copy_file(shared_data("compression/file_gzip6_md5.cdf"), path("f.cdf"));
    const auto before = file_bytes(path("f.cdf"));

    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("f").c_str(), &id, NULL_), CDF_OK);
    EXPECT_EQ(open_files_in(tmp), 0);
    EXPECT_TRUE(std::filesystem::is_empty(tmp));
    expect_sample_values();
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    if (old) {
        ::setenv("TMPDIR", saved.c_str(), 1);
    } else {
        ::unsetenv("TMPDIR");
    }
    EXPECT_EQ(file_bytes(path("f.cdf")), before);
}

}  // namespace

namespace {

struct WholeSample {
    const char* file;
    long type;
    long parm;
};

class WholeFileRebuild : public CompressionTest,
                         public ::testing::WithParamInterface<WholeSample> {};

TEST_P(WholeFileRebuild, SameCallsGiveTheReferenceFile) {
    const WholeSample& s = GetParam();
    SampleOptions o;
    o.file_type = s.type;
    o.file_parm = s.parm;
    ASSERT_EQ(write_sample("w", o), CDF_OK);
    const auto ours = file_bytes(path("w.cdf"));
    const auto theirs = file_bytes(shared_data(std::string("compression/") + s.file));
    ASSERT_EQ(ours.size(), theirs.size());
    EXPECT_TRUE(ours == theirs);
}

INSTANTIATE_TEST_SUITE_P(Deterministic, WholeFileRebuild,
                         ::testing::Values(WholeSample{"file_rle.cdf", RLE_COMPRESSION, 0},
                                           WholeSample{"file_huff.cdf", HUFF_COMPRESSION, 0},
                                           WholeSample{"file_ahuff.cdf", AHUFF_COMPRESSION, 0}),
                         [](const auto& info) {
                             const std::string name = info.param.file;
                             return name.substr(5, name.size() - 9);
                         });

// The GZIP payload differs from the reference's; the image inside it does not.
TEST_F(CompressionTest, ChecksummedGzipFileHoldsTheReferenceImageAndItsDigest) {
    SampleOptions o;
    o.file_type = GZIP_COMPRESSION;
    o.file_parm = 6;
    o.md5 = true;
    ASSERT_EQ(write_sample("m", o), CDF_OK);
    const auto ours = file_bytes(path("m.cdf"));
    const auto plain = file_bytes(shared_data("compression/plain.cdf"));
    ASSERT_GT(ours.size(), 8u + 32 + 28 + 16);
    EXPECT_EQ(cdfgate::test::be(ours, 4, 4), static_cast<std::int32_t>(0xCCCC0001));
    const std::int64_t ccr_size = cdfgate::test::be(ours, 8, 8);
    EXPECT_EQ(cdfgate::test::be(ours, 20, 8), 8 + ccr_size);  // the CPR follows
    EXPECT_EQ(cdfgate::test::be(ours, 28, 8), static_cast<std::int64_t>(plain.size()) - 8);
    ASSERT_EQ(static_cast<std::int64_t>(ours.size()), 8 + ccr_size + 28 + 16);
    const std::span<const std::uint8_t> body(ours.data(), ours.size() - 16);
    const auto digest = cdfgate::engine::codec::md5_of(body);
    EXPECT_TRUE(std::equal(digest.begin(), digest.end(), ours.end() - 16));

    std::vector<std::uint8_t> image(plain.size() - 8);
    ASSERT_EQ(cdfgate::engine::codec::decode(
                  cdfgate::engine::codec::Method::Gzip,
                  std::span<const std::uint8_t>(ours.data() + 40,
                                                static_cast<std::size_t>(ccr_size - 32)),
                  image),
              cdfgate::engine::codec::Result::Ok);
    auto expected = std::vector<std::uint8_t>(plain.begin() + 8, plain.end());
    expected[0x2b - 8] = 0x0f;  // the CDR's checksum bits
    EXPECT_TRUE(image == expected);

    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("m").c_str(), &id, NULL_), CDF_OK);
    expect_sample_values();
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST_F(CompressionTest, ChangedCompressedFileIsCompressedBackWithANewDigest) {
    std::filesystem::copy_file(shared_data("compression/file_gzip6_md5.cdf"), path("c.cdf"));
    CDFid id = nullptr;
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("c").c_str(), &id, NULL_), CDF_OK);
    long attr = -1;
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "added", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("c").c_str(), &id, NULL_), CDF_OK);
    long type = -9, parms[CDF_MAX_PARMS] = {}, pct = -9, attrs = -9;
    ASSERT_EQ(CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, CDF_NUMATTRS_, &attrs, NULL_),
              CDF_OK);
    EXPECT_EQ(type, GZIP_COMPRESSION);
    EXPECT_EQ(parms[0], 6);
    EXPECT_EQ(attrs, 2);
    expect_sample_values();
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    // No file beside it is left behind.
    int files = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(dir_)) ++files;
    EXPECT_EQ(files, 1);
}

// Damage outside the compressed stream is found by the digest; damage inside it
// by the decoder; an empty CCR is refused by name.
TEST_F(CompressionTest, DamagedCompressedFilesGiveTheirStatuses) {
    const auto original = file_bytes(shared_data("compression/file_gzip6_md5.cdf"));
    struct Row {
        const char* what;
        std::size_t at;
        std::uint8_t value;
        CDFstatus status;
    };
    const std::size_t payload = 40 + 200;
    const Row rows[] = {
        {"CCR rfuA", 36, 0x01, CHECKSUM_ERROR},
        {"digest", original.size() - 1, static_cast<std::uint8_t>(original.back() ^ 0xFF),
         CHECKSUM_ERROR},
        {"deflate data", payload, static_cast<std::uint8_t>(original[payload] ^ 0x55),
         ZLIB_UNCOMPRESS_ERROR},
    };
    for (const Row& row : rows) {
        auto bytes = original;
        bytes[row.at] = row.value;
        const std::string name = path("d");
        {
            std::ofstream out(name + ".cdf", std::ios::binary | std::ios::trunc);
            out.write(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<std::streamsize>(bytes.size()));
        }
        CDFid id = nullptr;
        EXPECT_EQ(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), row.status) << row.what;
    }
    // uSize 0: what a session that died before closing leaves behind.
    auto bytes = original;
    for (std::size_t i = 28; i < 36; ++i) bytes[i] = 0;
    {
        std::ofstream out(path("e.cdf"), std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
    }
    CDFid id = nullptr;
    EXPECT_EQ(CDFlib(OPEN_, CDF_, path("e").c_str(), &id, NULL_), EMPTY_COMPRESSED_CDF);
}

}  // namespace
