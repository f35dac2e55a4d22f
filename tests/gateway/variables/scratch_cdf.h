// A CDF of a chosen majority in a temporary directory, registered with the gateway
// as "create" would, closed and removed when the test ends.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cdf.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {

class ScratchCdf {
  public:
    explicit ScratchCdf(long majority);
    ~ScratchCdf();
    ScratchCdf(const ScratchCdf&) = delete;
    ScratchCdf& operator=(const ScratchCdf&) = delete;

    Array id() const;
    CDFid handle() const { return handle_; }

    // "createVar" through the gateway; returns the variable number.
    double createVar(const std::string& name, long datatype, long numElements,
                     std::vector<double> dims = {}, bool recordVariance = true);

  private:
    std::filesystem::path base_;
    CDFid handle_ = nullptr;
};

// The engine's text for a status, as "libraryFailure" carries it.
std::string statusText(CDFstatus status);

// The arguments of "libraryFailure" for `function` failing with `status`.
inline Arguments failure(const std::string& function, CDFstatus status) {
    return {function, statusText(status)};
}

// Calls a command expecting one result.
Array callOne(std::string_view command, std::vector<Array> arguments);

}  // namespace cdfgate::testing
