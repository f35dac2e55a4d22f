#include "scratch_cdf.h"

#include <unistd.h>
#include <array>
#include <atomic>
#include <cstdint>

#include "gateway/open_file_registry.h"

namespace cdfgate::testing {
namespace {

std::filesystem::path uniqueBase() {
    static std::atomic<int> counter{0};
    return std::filesystem::temp_directory_path() /
           ("cdfgate_gwvars_" + std::to_string(::getpid()) + "_" + std::to_string(counter++));
}

std::uint64_t handleBits(CDFid handle) {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(handle));
}

}  // namespace

ScratchCdf::ScratchCdf(long majority) : base_(uniqueBase()) {
    std::string name = base_.string();
    const CDFstatus created = CDFcreateCDF(name.data(), &handle_);
    if (created < CDF_OK)
        throw std::runtime_error("CDFcreateCDF failed: " + std::to_string(created));
    const CDFstatus set = CDFlib(SELECT_, CDF_, handle_, PUT_, CDF_MAJORITY_, majority, NULL_);
    if (set < CDF_OK) throw std::runtime_error("setting the majority failed");
    gateway::openFileRegistry().registerFileId(handleBits(handle_));
}

ScratchCdf::~ScratchCdf() {
    gateway::openFileRegistry().unregisterFileId(handleBits(handle_));
    (void)CDFlib(SELECT_, CDF_, handle_, CLOSE_, CDF_, NULL_);
    std::error_code ignored;
    std::filesystem::remove(base_.string() + ".cdf", ignored);
}

Array ScratchCdf::id() const {
    return Array::uint64(handleBits(handle_));
}

double ScratchCdf::createVar(const std::string& name, long datatype, long numElements,
                             std::vector<double> dims, bool recordVariance) {
    const Array dimArray = dims.empty() ? Array::empty() : Array::of<double>(dims);
    Array dimVariances = Array::empty(hvLOGICAL_CLASS);
    if (!dims.empty()) {
        dimVariances = Array::zeros(hvLOGICAL_CLASS, {1, dims.size()});
        for (bool& flag : dimVariances.data<bool>()) flag = true;
    }
    return callOne("createVar",
                   {id(), Array::text(name), Array::scalar(static_cast<double>(datatype)),
                    Array::scalar(static_cast<double>(numElements)), dimArray,
                    Array::logical({recordVariance}), dimVariances})
        .scalarValue();
}

std::string statusText(CDFstatus status) {
    std::array<char, CDF_STATUSTEXT_LEN + 1> text{};
    (void)CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text.data(), NULL_);
    return text.data();
}

Array callOne(std::string_view command, std::vector<Array> arguments) {
    std::vector<Array> results = embedded::call(command, std::move(arguments), 1);
    if (results.size() != 1) throw std::runtime_error("expected one result");
    return std::move(results[0]);
}

}  // namespace cdfgate::testing
