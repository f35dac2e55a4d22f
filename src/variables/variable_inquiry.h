// The one inquiry of a zVariable's definition made first by every variable-data command.
#pragma once

#include <string>
#include <vector>

#include "cdf.h"

namespace cdfgate::gateway {

struct VariableInfo {
    std::string name;  // up to CDF_VAR_NAME_LEN256 characters
    long datatype = 0;
    long numElements = 0;        // characters per value for the character types, else 1
    std::vector<long> dimSizes;  // library order; its size is the number of dimensions
    long recordVariance = 0;
    std::vector<long> dimVariances;  // library order

    std::size_t numDims() const noexcept { return dimSizes.size(); }
};

// Selects the file and the variable and reads its definition ("CDFinquirezVar").
VariableInfo inquireVariable(CDFid id, long varNum);

}  // namespace cdfgate::gateway
