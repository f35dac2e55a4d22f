// "epochBreakdown" and "epoch16Breakdown": CDF_EPOCH values to 7-row and CDF_EPOCH16
// pairs to 10-row component matrices, one column per time.
#include <array>
#include <vector>

#include "errors/errors.h"
#include "time/time_arrays.h"
#include "time/time_commands.h"

namespace cdfgate::gateway {

namespace {

// 10, then the input's dimensions after the first when the first is 2, otherwise the
// number of pairs.
std::vector<std::size_t> epoch16ResultDims(const hvArray* input, std::size_t pairs) {
    const std::size_t rank = hvGetNumberOfDimensions(input);
    const std::size_t* dims = hvGetDimensions(input);
    std::vector<std::size_t> result{10};
    if (dims[0] == 2) {
        result.insert(result.end(), dims + 1, dims + rank);
    } else {
        result.push_back(pairs);
    }
    return result;
}

}  // namespace

void epochBreakdown(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    if (hvGetClassID(prhs[0]) != hvDOUBLE_CLASS) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentNotDoublePrecision("EPOCHTIME"));
    }
    const std::size_t count = hvGetNumberOfElements(prhs[0]);
    matrix::array_ptr result = time_arrays::createDoubleMatrix({7, count});
    if (count == 0) {
        plhs[0] = std::move(result);
        return;
    }
    const double* const in = hvGetTypedData<double>(prhs[0]);
    double* const out = hvGetTypedData<double>(result.get());
    for (std::size_t k = 0; k < count; ++k) {
        std::array<long, 7> p{};
        EPOCHbreakdown(in[k], &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6]);
        for (std::size_t i = 0; i < p.size(); ++i) out[7 * k + i] = static_cast<double>(p[i]);
    }
    plhs[0] = std::move(result);
}

void epoch16Breakdown(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const std::size_t count = hvGetNumberOfElements(prhs[0]);
    if (count % 2 != 0) hvErrMsgId(QUORIN::imagesci::cdflib::badEpoch16Modulus());
    if (hvGetClassID(prhs[0]) != hvDOUBLE_CLASS) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentNotDoublePrecision("EPOCH16TIME"));
    }
    const std::size_t pairs = count / 2;
    matrix::array_ptr result = time_arrays::createDoubleMatrix(epoch16ResultDims(prhs[0], pairs));
    if (pairs == 0) {
        plhs[0] = std::move(result);
        return;
    }
    const double* const in = hvGetTypedData<double>(prhs[0]);
    double* const out = hvGetTypedData<double>(result.get());
    for (std::size_t k = 0; k < pairs; ++k) {
        // The library writes normalised values back into the pair: give it a copy.
        std::array<double, 2> pair{in[2 * k], in[2 * k + 1]};
        std::array<long, 10> p{};
        EPOCH16breakdown(pair.data(), &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8],
                         &p[9]);
        for (std::size_t i = 0; i < p.size(); ++i) out[10 * k + i] = static_cast<double>(p[i]);
    }
    plhs[0] = std::move(result);
}

}  // namespace cdfgate::gateway
