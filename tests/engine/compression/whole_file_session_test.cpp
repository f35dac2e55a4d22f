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

using namespace cdfgate::test;

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

    ASSERT_EQ(open_cdf(path("f")), CDF_OK);
    EXPECT_EQ(open_files_in(tmp), 0);
    EXPECT_TRUE(std::filesystem::is_empty(tmp));
    expect_sample_values();
    ASSERT_EQ(close_cdf(), CDF_OK);
    if (old) {
        ::setenv("TMPDIR", saved.c_str(), 1);
    } else {
        ::unsetenv("TMPDIR");
    }
    EXPECT_EQ(file_bytes(path("f.cdf")), before);
}

// The GZIP payload differs from the reference's; the image inside it does not.
TEST_F(CompressionTest, ChecksummedGzipFileHoldsTheReferenceImageAndItsDigest) {
    ASSERT_EQ(write_sample("m", {.file_type = GZIP_COMPRESSION, .file_parm = 6, .md5 = true}),
              CDF_OK);
    const auto ours = file_bytes(path("m.cdf"));
    const auto plain = file_bytes(shared_data("compression/plain.cdf"));
    ASSERT_GT(ours.size(), 8u + 32 + 28 + 16);
    EXPECT_EQ(be(ours, 4, 4), static_cast<std::int32_t>(0xCCCC0001));
    const std::int64_t ccr_size = be(ours, 8, 8);
    EXPECT_EQ(be(ours, 20, 8), 8 + ccr_size);  // the CPR follows
    EXPECT_EQ(be(ours, 28, 8), static_cast<std::int64_t>(plain.size()) - 8);
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

    ASSERT_EQ(open_cdf(path("m")), CDF_OK);
    expect_sample_values();
    ASSERT_EQ(close_cdf(), CDF_OK);
}

TEST_F(CompressionTest, ChangedCompressedFileIsCompressedBackWithANewDigest) {
    std::filesystem::copy_file(shared_data("compression/file_gzip6_md5.cdf"), path("c.cdf"));
    ASSERT_EQ(open_cdf(path("c")), CDF_OK);
    long attr = -1;
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "added", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
    ASSERT_EQ(close_cdf(), CDF_OK);
    ASSERT_EQ(open_cdf(path("c")), CDF_OK);
    const Compression c = get_compression(CDF_COMPRESSION_);
    EXPECT_EQ(c.type, GZIP_COMPRESSION);
    EXPECT_EQ(c.parm, 6);
    long attrs = -9;
    ASSERT_EQ(CDFlib(GET_, CDF_NUMATTRS_, &attrs, NULL_), CDF_OK);
    EXPECT_EQ(attrs, 2);
    expect_sample_values();
    ASSERT_EQ(close_cdf(), CDF_OK);
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
        write_file(path("d.cdf"), bytes);
        EXPECT_EQ(open_cdf(path("d")), row.status) << row.what;
    }
    // uSize 0: what a session that died before closing leaves behind.
    auto bytes = original;
    for (std::size_t i = 28; i < 36; ++i) bytes[i] = 0;
    write_file(path("e.cdf"), bytes);
    EXPECT_EQ(open_cdf(path("e")), EMPTY_COMPRESSED_CDF);
}

}  // namespace
