// "computeEpoch" and "computeEpoch16": groups of 7 or 10 components, truncated to
// integers, to CDF_EPOCH values (1-by-N) or CDF_EPOCH16 pairs (2-by-N).
#include <vector>

#include "errors/errors.h"
#include "gateway/arguments.h"
#include "time/time_arrays.h"
#include "time/time_commands.h"

namespace cdfgate::gateway {

void computeEpoch(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    constexpr long kGroup = 7;
    time_arrays::checkComponentArray(prhs[0], kGroup);
    const std::size_t count = hvGetNumberOfElements(prhs[0]) / kGroup;
    matrix::array_ptr result = time_arrays::createDoubleMatrix({1, count});
    const std::vector<long> c = getInt64Vector(prhs[0], "TIMEVAL");
    double* const out = count ? hvGetTypedData<double>(result.get()) : nullptr;
    for (std::size_t k = 0; k < count; ++k) {
        const long* g = c.data() + k * kGroup;
        out[k] = computeEPOCH(g[0], g[1], g[2], g[3], g[4], g[5], g[6]);
        if (out[k] == ILLEGAL_EPOCH_VALUE) {
            hvErrMsgId(QUORIN::imagesci::cdflib::illegalEpochValue());
        }
    }
    plhs[0] = std::move(result);
}

void computeEpoch16(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    constexpr long kGroup = 10;
    time_arrays::checkComponentArray(prhs[0], kGroup);
    const std::size_t count = hvGetNumberOfElements(prhs[0]) / kGroup;
    matrix::array_ptr result = time_arrays::createDoubleMatrix({2, count});
    const std::vector<long> c = getInt64Vector(prhs[0], "TIMEVAL");
    double* const out = count ? hvGetTypedData<double>(result.get()) : nullptr;
    for (std::size_t k = 0; k < count; ++k) {
        const long* g = c.data() + k * kGroup;
        const double status =
            computeEPOCH16(g[0], g[1], g[2], g[3], g[4], g[5], g[6], g[7], g[8], g[9], out + 2 * k);
        if (status == ILLEGAL_EPOCH_VALUE) {
            hvErrMsgId(QUORIN::imagesci::cdflib::illegalEpochValue());
        }
    }
    plhs[0] = std::move(result);
}

}  // namespace cdfgate::gateway
