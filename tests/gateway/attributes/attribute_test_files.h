// Files for the attribute suites: new CDFs in a temporary directory and the shared
// sample files, opened through the C interface and registered with the gateway the
// way "create" and "open" do.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>

#include "cdf.h"
#include "gateway/open_file_registry.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {

inline std::uint64_t handleBits(CDFid id) {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(id));
}

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

// An open CDF registered with the gateway; closed and unregistered on destruction.
class OpenCdf {
  public:
    OpenCdf() = default;
    OpenCdf(const OpenCdf&) = delete;
    OpenCdf& operator=(const OpenCdf&) = delete;
    ~OpenCdf() { close(); }

    bool isOpen() const { return id_ != nullptr; }
    CDFid id() const { return id_; }
    // The identifier as the host holds it.
    Array handle() const { return Array::uint64(handleBits(id_)); }

    // Opens a file with zMode 2, as "open" does; returns the first failing status.
    CDFstatus open(const std::filesystem::path& path) {
        CDFid id = nullptr;
        const CDFstatus opened = CDFlib(OPEN_, CDF_, path.string().c_str(), &id, NULL_);
        if (opened < CDF_OK) return opened;
        const CDFstatus zMode = CDFlib(SELECT_, CDF_, id, SELECT_, CDF_zMODE_, zMODEon2, NULL_);
        if (zMode < CDF_OK) {
            (void)CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
            return zMode;
        }
        adopt(id);
        return CDF_OK;
    }

    CDFstatus create(const std::filesystem::path& path) {
        CDFid id = nullptr;
        std::string name = path.string();
        const CDFstatus created = CDFcreateCDF(name.data(), &id);
        if (created < CDF_OK) return created;
        adopt(id);
        return CDF_OK;
    }

    CDFstatus close() {
        if (id_ == nullptr) return CDF_OK;
        gateway::openFileRegistry().unregisterFileId(handleBits(id_));
        const CDFstatus status = CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_);
        id_ = nullptr;
        return status;
    }

  private:
    void adopt(CDFid id) {
        id_ = id;
        gateway::openFileRegistry().registerFileId(handleBits(id));
    }

    CDFid id_ = nullptr;
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
    void SetUp() override { ASSERT_EQ(cdf_.create(path_.path()), CDF_OK); }
    void TearDown() override { EXPECT_GE(cdf_.close(), CDF_OK); }

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
