// "computeTT2000": groups of nine components, kept as doubles, to a 1-by-N int64 row
// of TT2000 values. Every group is range-checked before the first conversion.
#include <span>
#include <vector>

#include "errors/errors.h"
#include "gateway/arguments.h"
#include "time/time_arrays.h"
#include "time/time_commands.h"
#include "time/tt2000_range.h"

namespace cdfgate::gateway {

void computeTT2000(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    constexpr long kGroup = 9;
    time_arrays::checkComponentArray(prhs[0], kGroup);
    const std::size_t count = hvGetNumberOfElements(prhs[0]) / kGroup;
    matrix::array_ptr result = time_arrays::createInt64Matrix({1, count});
    const std::vector<double> c = getDoubleVector(prhs[0], "TIMEVAL");
    if (count == 0) {
        plhs[0] = std::move(result);
        return;
    }
    for (std::size_t k = 0; k < count; ++k) {
        if (!isWithinTt2000Range(std::span<const double, 9>(c.data() + k * kGroup, kGroup))) {
            hvErrMsgId(QUORIN::imagesci::cdflib::outOfRangeTT2000Value());
        }
    }
    auto* const out = hvGetTypedData<std::int64_t>(result.get());
    for (std::size_t k = 0; k < count; ++k) {
        const double* g = c.data() + k * kGroup;
        out[k] = ::computeTT2000(g[0], g[1], g[2], g[3], g[4], g[5], g[6], g[7], g[8]);
        if (out[k] == ILLEGAL_TT2000_VALUE) {
            hvErrMsgId(QUORIN::imagesci::cdflib::illegalTT2000Value());
        }
    }
    plhs[0] = std::move(result);
}

}  // namespace cdfgate::gateway
