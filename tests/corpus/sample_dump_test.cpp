// Every sample of the shared corpus dumps exactly as its expected dump: the
// metadata lines (header, attributes, entries, variable descriptions) and the
// record lines, each under the variable it belongs to ("virtual" where the
// reference library reported VIRTUAL_RECORD_DATA).
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

// The metadata lines, or the record lines prefixed by their variable line.
std::vector<std::string> lines_of(const std::string& text, bool records) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    std::string variable;
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("variable ", 0) == 0) variable = line;
        const bool record = line.rfind("  record ", 0) == 0;
        if (record == records) lines.push_back(records ? variable + " |" + line : line);
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

TEST_P(SampleDump, LinesMatchTheExpectedDump) {
    const fs::path file = fs::path(CDFGATE_SHARED_DATA) / "samples" / GetParam();
    std::ifstream in(file.string() + ".expected.txt");
    ASSERT_TRUE(in) << "no expected dump for " << file;
    std::stringstream expected;
    expected << in.rdbuf();
    const std::string dumped = cdfgate::dump::dump_cdf(file.string());
    ASSERT_GT(lines_of(expected.str(), false).size(), 1u);
    for (const bool records : {false, true}) {
        const auto want = lines_of(expected.str(), records);
        const auto got = lines_of(dumped, records);
        const char* what = records ? " record line " : " metadata line ";
        for (std::size_t i = 0; i < std::min(want.size(), got.size()); ++i) {
            ASSERT_EQ(got[i], want[i]) << GetParam() << what << i + 1;
        }
        EXPECT_EQ(got.size(), want.size()) << GetParam() << what;
    }
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
