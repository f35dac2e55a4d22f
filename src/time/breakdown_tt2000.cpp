// "breakdownTT2000": int64 TT2000 values to a 9-by-N double matrix of components,
// refusing the two values just above the fill and pad codes.
#include <array>
#include <cstdint>

#include "errors/errors.h"
#include "time/time_arrays.h"
#include "time/time_commands.h"

namespace cdfgate::gateway {

namespace {

constexpr std::int64_t kRefusedLow = -9223372036854775807LL + 1;  // INT64_MIN + 2
constexpr std::int64_t kRefusedHigh = ILLEGAL_TT2000_VALUE;       // INT64_MIN + 3

}  // namespace

void breakdownTT2000(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    if (hvGetClassID(prhs[0]) != hvINT64_CLASS) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentNotInt64Scalar("TT2000TIME"));
    }
    const std::size_t count = hvGetNumberOfElements(prhs[0]);
    matrix::array_ptr result = time_arrays::createDoubleMatrix({9, count});
    if (count == 0) {
        plhs[0] = std::move(result);
        return;
    }
    const auto* const in = hvGetTypedData<std::int64_t>(prhs[0]);
    double* const out = hvGetTypedData<double>(result.get());
    for (std::size_t k = 0; k < count; ++k) {
        if (in[k] == kRefusedLow || in[k] == kRefusedHigh) {
            hvErrMsgId(QUORIN::imagesci::cdflib::outOfRangeTT2000Value());
        }
        double* p = out + 9 * k;
        ::breakdownTT2000(in[k], &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8]);
    }
    plhs[0] = std::move(result);
}

}  // namespace cdfgate::gateway
