// "getVarData": one value of a zVariable at a record and, for a variable with
// dimensions, indices in the host's order.
#include <array>

#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/index_vectors.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {

void getVarData(int, OutputSlot* plhs, int nrhs, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long recNum = getInt64Scalar(prhs[2], "RECNUM");
    const VariableInfo info = inquireVariable(id, varNum);
    std::vector<long> indices;
    if (nrhs > 3) {
        indices = getIndexVector(prhs[3], "INDICES");
        if (indices.size() != info.numDims()) {
            hvErrMsgId(
                QUORIN::imagesci::cdflib::badDimSpec(static_cast<long>(info.numDims()), info.name));
        }
    } else if (info.numDims() != 0) {
        hvErrMsgId(QUORIN::imagesci::cdflib::cannotOmitDimSpec());
    }
    reverseForMajority(indices, readMajority(id));

    checkDatatype(info.datatype);
    std::array<std::size_t, 2> dims{1, 1};
    if (info.datatype == CDF_EPOCH16) dims[0] = 2;
    if (isCharacterDatatype(info.datatype)) dims[0] = static_cast<std::size_t>(info.numElements);
    long none = 0;
    plhs[0] = readValues(info.datatype, dims, [&](void* buffer) {
        errors::checkStatus(
            CDFlib(SELECT_, CDF_, id, zVAR_, varNum, zVAR_RECNUMBER_, recNum, zVAR_DIMINDICES_,
                   listArgument(indices, none), GET_, zVAR_DATA_, buffer, NULL_),
            "CDFgetzVarData");
    });
}

}  // namespace cdfgate::gateway
