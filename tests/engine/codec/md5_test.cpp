#include "codec/md5.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>

#include "codec_test_data.h"

namespace cdfgate::engine::codec {
namespace {

using testing::Bytes;

std::string hex(const Md5Digest& d) {
    std::string s;
    char buf[3];
    for (const auto b : d) {
        std::snprintf(buf, sizeof buf, "%02x", b);
        s += buf;
    }
    return s;
}

ByteView text(const std::string& s) {
    return ByteView(reinterpret_cast<const std::uint8_t*>(s.data()), s.size());
}

TEST(Md5, KnownDigests) {
    const struct {
        std::string input;
        const char* digest;
    } rows[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
    };
    for (const auto& row : rows) EXPECT_EQ(hex(md5_of(text(row.input))), row.digest) << row.input;
}

// The compression README lists the digest of every sample file.
TEST(Md5, SampleFilesMatchTheirListedDigests) {
    const Bytes readme = testing::read_shared("compression/README.md");
    std::istringstream lines(std::string(readme.begin(), readme.end()));
    std::string line;
    int checked = 0;
    while (std::getline(lines, line)) {
        if (line.size() < 35 || line[32] != ' ' || line[33] != ' ') continue;
        const std::string digest = line.substr(0, 32);
        const std::string name = line.substr(34);
        if (digest.find_first_not_of("0123456789abcdef") != std::string::npos) continue;
        EXPECT_EQ(hex(md5_of(testing::read_shared("compression/" + name))), digest) << name;
        ++checked;
    }
    EXPECT_GE(checked, 20);
}

TEST(Md5, RangesGiveTheSameDigestAsOneBuffer) {
    const Bytes data = testing::random_bytes(100000, 5);
    Md5 m;
    std::size_t at = 0;
    for (std::size_t step = 1; at < data.size(); step = step * 3 + 1) {
        const std::size_t n = std::min(step, data.size() - at);
        m.update(ByteView(data.data() + at, n));
        at += n;
    }
    const Md5Digest incremental = m.finish();
    EXPECT_EQ(incremental, md5_of(data));
    // finish() starts afresh.
    EXPECT_EQ(hex(m.finish()), "d41d8cd98f00b204e9800998ecf8427e");
}

}  // namespace
}  // namespace cdfgate::engine::codec
