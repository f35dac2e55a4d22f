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

// The command must fail as "libraryFailure" naming this function and status.
inline void expectLibraryFailure(const std::string& command, std::vector<embedded::Array> arguments,
                                 int results, const char* function, CDFstatus status) {
    expectHostError([&] { embedded::call(command, arguments, results); },
                    cdflibId("libraryFailure"), {std::string(function), statusText(status)});
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

// The engine-side handle behind a gateway identifier, for checks made directly
// through the CDF interface.
inline CDFid cdfIdOf(const embedded::Array& id) {
    return reinterpret_cast<CDFid>(static_cast<std::uintptr_t>(id.data<std::uint64_t>()[0]));
}

// A file opened or created through the gateway. If a test ends with it still
// registered (a failed assertion part-way), it is closed and unregistered so that
// later tests see an empty registry.
class GatewayFile {
  public:
    static GatewayFile open(const std::string& path) {
        return GatewayFile(call1("open", {embedded::Array::text(path)}));
    }
    static GatewayFile create(const std::string& path) {
        return GatewayFile(call1("create", {embedded::Array::text(path)}));
    }
    GatewayFile(GatewayFile&& other) noexcept : id_(std::move(other.id_)) {}
    GatewayFile(const GatewayFile&) = delete;
    GatewayFile& operator=(const GatewayFile&) = delete;
    ~GatewayFile() {
        if (!id_.hasArray()) return;
        const std::uint64_t handle = id_.data<std::uint64_t>()[0];
        if (gateway::openFileRegistry().isFileIdUnknown(handle)) return;
        (void)CDFlib(SELECT_, CDF_, cdfIdOf(id_), CLOSE_, CDF_, NULL_);
        gateway::openFileRegistry().unregisterFileId(handle);
    }

    const embedded::Array& id() const { return id_; }
    CDFid cdf() const { return cdfIdOf(id_); }
    void close() const { embedded::call("close", {id_}, 0); }

  private:
    explicit GatewayFile(embedded::Array id) : id_(std::move(id)) {}
    embedded::Array id_;
};

// Copies files of the shared test data into the scratch directory (so that a test
// may change them) and returns the path of the first.
inline std::string copyShared(const ScratchDirectory& scratch,
                              std::initializer_list<std::string> relatives) {
    std::string first;
    for (const std::string& relative : relatives) {
        const std::filesystem::path source = sharedData(relative);
        const std::string target = scratch.file(source.filename().string());
        std::filesystem::copy_file(source, target,
                                   std::filesystem::copy_options::overwrite_existing);
        if (first.empty()) first = target;
    }
    return first;
}

// Creates a zVariable directly through the CDF interface; returns its number.
inline long createVariable(CDFid id, const char* name, long dataType,
                           std::vector<long> dimSizes = {}) {
    std::string mutableName(name);
    const std::vector<long> dimVarys(dimSizes.size(), VARY);
    long number = -1;
    const CDFstatus status = CDFlib(SELECT_, CDF_, id, CREATE_, zVAR_, mutableName.data(), dataType,
                                    1L, static_cast<long>(dimSizes.size()), dimSizes.data(), VARY,
                                    dimVarys.data(), &number, NULL_);
    EXPECT_EQ(status, CDF_OK) << "creating variable " << name;
    return number;
}

// One long item of a zVariable read directly through the CDF interface.
inline long variableItem(CDFid id, long varNum, long op, long item) {
    long value = -12345;
    EXPECT_GE(CDFlib(SELECT_, CDF_, id, zVAR_, varNum, op, item, &value, NULL_), CDF_OK);
    return value;
}

}  // namespace cdfgate::testing
