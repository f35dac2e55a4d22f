// Files for the attribute suites: new CDFs in a temporary directory and the shared
// sample files, created and opened through the gateway.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>

#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {

// The library's text for a status, as "libraryFailure" carries it.
inline std::string statusText(CDFstatus status) {
    char text[CDF_STATUSTEXT_LEN + 1] = {};
    (void)CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text, NULL_);
    return text;
}

// The arguments of "libraryFailure" for a call reported as `function` that failed
// with `status`.
inline Arguments failure(const std::string& function, CDFstatus status) {
    return {function, statusText(status)};
}

// A CDF opened or created through the gateway's "open" and "create"; closed with
// "close" on destruction.
class OpenCdf {
  public:
    OpenCdf() = default;
    OpenCdf(const OpenCdf&) = delete;
    OpenCdf& operator=(const OpenCdf&) = delete;
    ~OpenCdf() {
        try {
            close();
        } catch (const embedded::HostError&) {
            ADD_FAILURE() << "closing the file failed";
        }
    }

    bool isOpen() const { return handle_.hasArray(); }
    // The identifier as the C interface takes it.
    CDFid id() const {
        return reinterpret_cast<CDFid>(
            static_cast<std::uintptr_t>(handle_.data<std::uint64_t>()[0]));
    }
    // The identifier as the host holds it.
    const Array& handle() const { return handle_; }

    void open(const std::filesystem::path& path) {
        handle_ = embedded::call("open", {Array::text(path.string())}).at(0);
    }
    void create(const std::filesystem::path& path) {
        handle_ = embedded::call("create", {Array::text(path.string())}).at(0);
    }
    void close() {
        if (!isOpen()) return;
        Array handle = std::move(handle_);
        handle_ = Array();
        embedded::call("close", {std::move(handle)});
    }

  private:
    Array handle_;
};

// A unique path in the temporary directory, removed (with its ".cdf" file) afterwards.
class TempPath {
  public:
    TempPath() {
        static std::atomic<int> counter{0};
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string stem =
            "cdfgate_attrs_" + std::to_string(::getpid()) + "_" + std::to_string(counter++);
        if (info != nullptr) stem += std::string("_") + info->name();
        for (char& c : stem) {
            if (c == '/') c = '_';
        }
        path_ = std::filesystem::temp_directory_path() / (stem + ".cdf");
        std::filesystem::remove(path_);
    }
    TempPath(const TempPath&) = delete;
    TempPath& operator=(const TempPath&) = delete;
    ~TempPath() {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

inline std::filesystem::path samplePath(const std::string& name) {
    return std::filesystem::path(CDFGATE_SHARED_DATA) / "samples" / name;
}

// A new, empty CDF in a temporary file, open and registered.
class NewCdfTest : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_NO_THROW(cdf_.create(path_.path())); }
    void TearDown() override { EXPECT_NO_THROW(cdf_.close()); }

    Array id() const { return cdf_.handle(); }

    // Creates a zVariable of one CDF_INT4 element and no dimensions; returns its number.
    long addVariable(const std::string& name) {
        long num = -1;
        const long noDims[1] = {0};
        const long noVarys[1] = {VARY};
        EXPECT_EQ(CDFlib(SELECT_, CDF_, cdf_.id(), CREATE_, zVAR_, name.c_str(), CDF_INT4, 1L, 0L,
                         noDims, VARY, noVarys, &num, NULL_),
                  CDF_OK);
        return num;
    }

    TempPath path_;
    OpenCdf cdf_;
};

}  // namespace cdfgate::testing
