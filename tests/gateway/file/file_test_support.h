// Fixtures of the file-command suites: scratch directories, files opened through the
// gateway, and identifiers the gateway knows but the CDF interface never issued.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

#include "cdf.h"
#include "cdfgate/embedded.h"
#include "gateway/open_file_registry.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {

// A directory of its own under the system's temporary directory, removed with all its
// contents when the object goes.
class ScratchDirectory {
  public:
    ScratchDirectory() {
        static std::atomic<int> counter{0};
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        const std::string test =
            info ? std::string(info->test_suite_name()) + "_" + info->name() : std::string("suite");
        path_ = std::filesystem::temp_directory_path() /
                ("cdfgate_gwfile_" + std::to_string(::getpid()) + "_" + std::to_string(counter++) +
                 "_" + sanitized(test));
        std::filesystem::create_directories(path_);
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

  private:
    static std::string sanitized(std::string text) {
        for (char& c : text) {
            if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
        }
        return text;
    }
    std::filesystem::path path_;
};

// The path of a file of the shared test data.
inline std::string sharedData(const std::string& relative) {
    const std::filesystem::path path = std::filesystem::path(CDFGATE_SHARED_DATA) / relative;
    EXPECT_TRUE(std::filesystem::exists(path)) << "missing shared data file " << path;
    return path.string();
}

// A handle registered with the gateway that the CDF interface never issued: every
// call that reaches the interface with it fails there, so a refusal raised before
// the interface is distinguishable from one raised by it.
class UnissuedHandle {
  public:
    static constexpr std::uint64_t kValue = 0x5eed0000;
    UnissuedHandle() { gateway::openFileRegistry().registerFileId(kValue); }
    ~UnissuedHandle() { gateway::openFileRegistry().unregisterFileId(kValue); }
    UnissuedHandle(const UnissuedHandle&) = delete;
    UnissuedHandle& operator=(const UnissuedHandle&) = delete;
    embedded::Array id() const { return embedded::Array::uint64(kValue); }
};

// The CDF interface's text for a status, as "libraryFailure" carries it.
inline std::string statusText(CDFstatus status) {
    std::array<char, CDF_STATUSTEXT_LEN + 1> text{};
    CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text.data(), NULL_);
    return std::string(text.data());
}

inline embedded::Array number(double value) {
    return embedded::Array::scalar(value);
}

// Calls a command that returns one result.
inline embedded::Array call1(const std::string& command, std::vector<embedded::Array> arguments) {
    std::vector<embedded::Array> results = embedded::call(command, std::move(arguments), 1);
    EXPECT_EQ(results.size(), 1u) << command;
    return results.empty() ? embedded::Array() : std::move(results[0]);
}

}  // namespace cdfgate::testing
