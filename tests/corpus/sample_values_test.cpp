// Every sample of the shared corpus reads the record values of its expected dump:
// the "record" lines (values, and "virtual" where the reference library reported
// VIRTUAL_RECORD_DATA) come out identical and in the same order.
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

// The record lines, each prefixed by the variable line it belongs to.
std::vector<std::string> record_lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string variable;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("variable ", 0) == 0) variable = line;
        if (line.rfind("  record ", 0) == 0) lines.push_back(variable + " |" + line);
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

class SampleValues : public ::testing::TestWithParam<std::string> {};

TEST_P(SampleValues, RecordLinesMatchTheExpectedDump) {
    const fs::path file = fs::path(CDFGATE_SHARED_DATA) / "samples" / GetParam();
    std::ifstream expected_in(file.string() + ".expected.txt");
    ASSERT_TRUE(expected_in) << "no expected dump for " << file;
    std::stringstream expected;
    expected << expected_in.rdbuf();

    const auto want = record_lines(expected.str());
    const auto got = record_lines(cdfgate::dump::dump_cdf(file.string()));
    for (std::size_t i = 0; i < std::min(want.size(), got.size()); ++i) {
        ASSERT_EQ(got[i], want[i]) << GetParam() << " record line " << i + 1;
    }
    EXPECT_EQ(got.size(), want.size());
}

INSTANTIATE_TEST_SUITE_P(Corpus, SampleValues, ::testing::ValuesIn(samples()),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             for (char& c : name) {
                                 if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                             }
                             return name;
                         });

}  // namespace
