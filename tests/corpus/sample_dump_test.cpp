// Every sample of the shared corpus dumps with the same metadata lines as the
// expected dump (attribute, entry and variable description lines; record value
// lines belong to the data layer and are compared where it is present).
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

std::vector<std::string> metadata_lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("  record ", 0) == 0) continue;
        lines.push_back(line);
    }
    return lines;
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

class SampleDump : public ::testing::TestWithParam<std::string> {};

TEST_P(SampleDump, MetadataLinesMatchTheExpectedDump) {
    const fs::path file = fs::path(CDFGATE_SHARED_DATA) / "samples" / GetParam();
    std::ifstream expected_in(file.string() + ".expected.txt");
    ASSERT_TRUE(expected_in) << "no expected dump for " << file;
    std::stringstream expected;
    expected << expected_in.rdbuf();

    const auto want = metadata_lines(expected.str());
    const auto got = metadata_lines(cdfgate::dump::dump_cdf(file.string()));
    ASSERT_GT(want.size(), 1u);
    for (std::size_t i = 0; i < std::min(want.size(), got.size()); ++i) {
        ASSERT_EQ(got[i], want[i]) << GetParam() << " line " << i + 1;
    }
    EXPECT_EQ(got.size(), want.size());
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
