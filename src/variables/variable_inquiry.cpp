#include "variables/variable_inquiry.h"

#include <algorithm>
#include <array>

#include "errors/check_status.h"

namespace cdfgate::gateway {

VariableInfo inquireVariable(CDFid id, long varNum) {
    std::array<char, CDF_VAR_NAME_LEN256 + 1> name{};
    std::array<long, CDF_MAX_DIMS> dimSizes{};
    std::array<long, CDF_MAX_DIMS> dimVariances{};
    VariableInfo info;
    long numDims = 0;
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, GET_, zVAR_NAME_, name.data(), zVAR_DATATYPE_,
               &info.datatype, zVAR_NUMELEMS_, &info.numElements, zVAR_NUMDIMS_, &numDims,
               zVAR_DIMSIZES_, dimSizes.data(), zVAR_RECVARY_, &info.recordVariance, zVAR_DIMVARYS_,
               dimVariances.data(), NULL_),
        "CDFinquirezVar");
    name.back() = '\0';
    info.name = name.data();
    const auto count = static_cast<std::size_t>(std::clamp<long>(numDims, 0, CDF_MAX_DIMS));
    info.dimSizes.assign(dimSizes.begin(), dimSizes.begin() + static_cast<std::ptrdiff_t>(count));
    info.dimVariances.assign(dimVariances.begin(),
                             dimVariances.begin() + static_cast<std::ptrdiff_t>(count));
    return info;
}

}  // namespace cdfgate::gateway
