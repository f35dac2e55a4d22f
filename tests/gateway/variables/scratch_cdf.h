// Files of the variable and attribute suites: a new CDF of a chosen majority, or a
// private copy of a shared data file, opened through the gateway in the temporary
// directory, closed with "close" and removed when the test ends.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {

// Calls a command expecting one result.
inline Array callOne(std::string_view command, std::vector<Array> arguments) {
    std::vector<Array> results = embedded::call(command, std::move(arguments), 1);
    if (results.size() != 1) throw std::runtime_error("expected one result");
    return std::move(results[0]);
}

// The engine's text for a status, as "libraryFailure" carries it.
inline std::string statusText(CDFstatus status) {
    std::array<char, CDF_STATUSTEXT_LEN + 1> text{};
    (void)CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text.data(), NULL_);
    return text.data();
}

// The arguments of "libraryFailure" for `function` failing with `status`.
inline Arguments failure(const std::string& function, CDFstatus status) {
    return {function, statusText(status)};
}

class ScratchCdf {
  public:
    explicit ScratchCdf(long majority) {
        id_ = callOne("create", {Array::text(path_.string())});
        if (CDFlib(SELECT_, CDF_, handle(), PUT_, CDF_MAJORITY_, majority, NULL_) < CDF_OK) {
            throw std::runtime_error("setting the majority failed");
        }
    }
    // A copy of the file at `relative` under the shared data.
    explicit ScratchCdf(const std::string& relative) {
        std::filesystem::copy_file(std::filesystem::path(CDFGATE_SHARED_DATA) / relative, path_);
        id_ = callOne("open", {Array::text(path_.string())});
    }
    ~ScratchCdf() {
        try {
            embedded::call("close", {id_}, 0);
        } catch (const embedded::HostError& error) {
            ADD_FAILURE() << "closing " << path_ << " failed: " << error.identifier();
        }
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    ScratchCdf(const ScratchCdf&) = delete;
    ScratchCdf& operator=(const ScratchCdf&) = delete;

    // The identifier as the host holds it, and as the C interface takes it.
    const Array& id() const { return id_; }
    CDFid handle() const {
        return reinterpret_cast<CDFid>(static_cast<std::uintptr_t>(id_.data<std::uint64_t>()[0]));
    }

    // "createVar" through the gateway, every dimension varying; returns the variable number.
    double createVar(const std::string& name, long datatype, long numElements,
                     std::vector<double> dims = {}, bool recordVariance = true) const {
        Array dimVariances = Array::empty(hvLOGICAL_CLASS);
        if (!dims.empty()) {
            dimVariances = Array::zeros(hvLOGICAL_CLASS, {1, dims.size()});
            for (bool& flag : dimVariances.data<bool>()) flag = true;
        }
        return callOne("createVar",
                       {id_, Array::text(name), Array::scalar(static_cast<double>(datatype)),
                        Array::scalar(static_cast<double>(numElements)),
                        dims.empty() ? Array::empty() : Array::of<double>(dims),
                        Array::logical({recordVariance}), dimVariances})
            .scalarValue();
    }

  private:
    static std::filesystem::path uniquePath() {
        static std::atomic<int> counter{0};
        return std::filesystem::temp_directory_path() /
               ("cdfgate_gwdata_" + std::to_string(::getpid()) + "_" + std::to_string(counter++) +
                ".cdf");
    }

    const std::filesystem::path path_ = uniquePath();
    Array id_;
};

// A new row-major file with the variables "v0" and "v1", global attribute "G" (number 0)
// and variable attribute "V" (number 1).
class AttributeFileTest : public ::testing::Test {
  protected:
    AttributeFileTest() {
        cdf_.createVar("v0", CDF_INT4, 1);
        cdf_.createVar("v1", CDF_INT4, 1);
        callOne("createAttr", {id(), Array::text("G"), Array::scalar(GLOBAL_SCOPE)});
        callOne("createAttr", {id(), Array::text("V"), Array::scalar(VARIABLE_SCOPE)});
    }
    const Array& id() const { return cdf_.id(); }

    ScratchCdf cdf_{ROW_MAJOR};
};

}  // namespace cdfgate::testing
