// Replays the inputs that once broke the engine (tests/corpus/regressions/*.cdf,
// saved from fuzz_engine_open findings) the way the fuzz target reads them, and
// through the gateway. Each file is one test, named after it.
#include <algorithm>

#include "corrupt_fixture.h"

namespace cdfgate::corrupt {
namespace {

const std::filesystem::path kRegressions =
    std::filesystem::path(CDFGATE_SOURCE_DIR) / "tests" / "corpus" / "regressions";

std::vector<std::string> regression_files() {
    std::vector<std::string> out;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(kRegressions, ec)) {
        if (entry.path().extension() == ".cdf") out.push_back(entry.path().filename().string());
    }
    std::sort(out.begin(), out.end());
    return out;
}

class RegressionFiles : public CorruptFiles, public ::testing::WithParamInterface<std::string> {};

TEST_P(RegressionFiles, GiveStatusesAndErrors) {
    const Bytes bytes = file_bytes(kRegressions / GetParam());
    ASSERT_FALSE(bytes.empty()) << GetParam();
    expect_handled(bytes, GetParam(), Expect::Anything);
}

// The folder may be empty: nothing has been found yet.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RegressionFiles);
INSTANTIATE_TEST_SUITE_P(Found, RegressionFiles, ::testing::ValuesIn(regression_files()),
                         [](const auto& info) { return test_name(info.param); });

}  // namespace
}  // namespace cdfgate::corrupt
