#include "variables/variable_inquiry.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "errors/check_status.h"

namespace cdfgate::gateway {

VariableInfo inquireVariable(CDFid id, long varNum) {
    std::array<char, CDF_VAR_NAME_LEN256 + 1> name{};
    VariableInfo info;
    long numDims = 0;
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, GET_, zVAR_NAME_, name.data(), zVAR_DATATYPE_,
               &info.datatype, zVAR_NUMELEMS_, &info.numElements, zVAR_NUMDIMS_, &numDims,
               zVAR_DIMSIZES_, info.dimSizes.data(), zVAR_RECVARY_, &info.recordVariance,
               zVAR_DIMVARYS_, info.dimVariances.data(), NULL_),
        "CDFinquirezVar");
    name.back() = '\0';
    info.name = name.data();
    const auto count = static_cast<std::size_t>(std::clamp<long>(numDims, 0, CDF_MAX_DIMS));
    info.dimSizes.resize(count);
    info.dimVariances.resize(count);
    return info;
}

}  // namespace cdfgate::gateway
