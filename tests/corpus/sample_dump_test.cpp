// Every sample of the shared corpus dumps exactly as its expected dump: the
// metadata lines (header, attributes, entries, variable descriptions) and the
// record lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "dump.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> lines_of(const std::string& text, bool records) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if ((line.rfind("  record ", 0) == 0) == records) lines.push_back(line);
    }
    return lines;
}

void expect_same_lines(const std::vector<std::string>& got, const std::vector<std::string>& want,
                       const std::string& what) {
    for (std::size_t i = 0; i < std::min(want.size(), got.size()); ++i) {
        ASSERT_EQ(got[i], want[i]) << what << " line " << i + 1;
    }
    EXPECT_EQ(got.size(), want.size()) << what;
}

std::vector<std::string> samples() {
    std::vector<std::string> names;
    const fs::path dir = fs::path(CDFGATE_SHARED_DATA) / "samples";
    if (!fs::is_directory(dir)) return {"missing-samples-directory.cdf"};
    for (const auto& entry : fs::directory_iterator(dir)) {
        if (entry.path().extension() == ".cdf") names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class SampleDump : public ::testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        const fs::path file = fs::path(CDFGATE_SHARED_DATA) / "samples" / GetParam();
        std::ifstream in(file.string() + ".expected.txt");
        ASSERT_TRUE(in) << "no expected dump for " << file;
        std::stringstream text;
        text << in.rdbuf();
        expected_ = text.str();
        dumped_ = cdfgate::dump::dump_cdf(file.string());
    }

    std::string expected_;
    std::string dumped_;
};

TEST_P(SampleDump, MetadataLinesMatchTheExpectedDump) {
    const auto want = lines_of(expected_, false);
    ASSERT_GT(want.size(), 1u);
    expect_same_lines(lines_of(dumped_, false), want, GetParam());
}

TEST_P(SampleDump, RecordLinesMatchTheExpectedDump) {
    expect_same_lines(lines_of(dumped_, true), lines_of(expected_, true), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Corpus, SampleDump, ::testing::ValuesIn(samples()),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             for (char& c : name) {
                                 if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                             }
                             return name;
                         });

}  // namespace
