#include "variables/variances.h"

#include <array>

#include "cdf.h"
#include "errors/errors.h"
#include "gateway/arguments.h"

namespace cdfgate::gateway {
namespace {

[[noreturn]] void refuseVariance(long value) {
    hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(value, "VARIANCE"));
}

}  // namespace

std::vector<long> parseVariance(const hvArray* array) {
    const std::size_t count = hvGetNumberOfElements(array);
    std::vector<long> variances(count);
    switch (hvGetClassID(array)) {
        case hvLOGICAL_CLASS: {
            const hvLogical* flags = hvGetLogicals(array);
            for (std::size_t i = 0; i < count; ++i) variances[i] = flags[i] ? VARY : NOVARY;
            return variances;
        }
        case hvDOUBLE_CLASS: {
            const double* values = hvGetTypedData<const double>(array);
            for (std::size_t i = 0; i < count; ++i) {
                const long value = toInt64(values[i]);
                if (value != VARY && value != NOVARY) refuseVariance(value);
                variances[i] = value;
            }
            return variances;
        }
        default:
            hvErrMsgId(QUORIN::imagesci::cdflib::badVarianceDatatype());
    }
}

matrix::array_ptr variancesToLogical(std::span<const long> variances) {
    const std::array<std::size_t, 2> dims = variances.empty()
                                                ? std::array<std::size_t, 2>{0, 0}
                                                : std::array<std::size_t, 2>{1, variances.size()};
    matrix::array_ptr array = matrix::detail::do_create_numeric(dims, hvLOGICAL_CLASS, hvREAL);
    hvLogical* flags = hvGetLogicals(array.get());
    for (std::size_t i = 0; i < variances.size(); ++i) {
        if (variances[i] != VARY && variances[i] != NOVARY) refuseVariance(variances[i]);
        flags[i] = variances[i] == VARY;
    }
    return array;
}

}  // namespace cdfgate::gateway
