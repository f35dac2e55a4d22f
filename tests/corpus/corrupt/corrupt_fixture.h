// Shared fixture of the damaged-file suites: loads samples, writes damaged copies to
// a scratch folder and reads them every way the library offers.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cdf_layout.h"

namespace cdfgate::corrupt {

// What a damaged copy must produce beyond "no crash, no overrun, named statuses".
enum class Expect {
    Anything,       // the damage may be harmless
    Error,          // the open fails, or more calls fail than on the intact file
                    // (validation on; needs the intact bytes)
    RefusedAtOpen,  // the open itself fails (validation on)
};

std::filesystem::path shared_data(const std::string& relative);
Bytes file_bytes(const std::filesystem::path& path);
// The .cdf files of a folder, sorted, each prefixed with `prefix`.
std::vector<std::string> cdfs_in(const std::filesystem::path& dir, const std::string& prefix = "");
// The .cdf files of a shared data folder (samples, format, compression) as "folder/name".
inline std::vector<std::string> shared_cdfs(const std::string& folder) {
    return cdfs_in(shared_data(folder), folder + "/");
}
// A name usable as a test name.
std::string test_name(const std::string& relative);

class CorruptFiles : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    // The sample's bytes; fails the test when it is missing.
    Bytes sample(const std::string& relative) const;

    // Reads the damaged bytes through the C interface with validation on and off and
    // through the gateway; checks every outcome and what `expect` asks for. Reads
    // that fail on the intact file as well (absent entries, records past the end)
    // do not count as noticing the damage: `intact` gives the baseline.
    void expect_handled(const Bytes& bytes, const std::string& what, Expect expect,
                        bool through_gateway = true, const Bytes* intact = nullptr);

    // Writes the bytes to a new file of the scratch folder; returns its path.
    std::string write_copy(const Bytes& bytes);

    std::filesystem::path dir_;
    int written_ = 0;
};

}  // namespace cdfgate::corrupt
