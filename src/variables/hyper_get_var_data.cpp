// "hyperGetVarData": a run of records, each cut to a box of the dimensions, with
// strides; the record count is always the last host dimension.
#include <algorithm>

#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/bare_message_error.h"
#include "variables/index_vectors.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {

void hyperGetVarData(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long recStart = getInt64Scalar(prhs[2], "RECSTART");
    const long recCount = getInt64Scalar(prhs[3], "RECCOUNT");
    const long recStride = getInt64Scalar(prhs[4], "RECSTRIDE");
    std::vector<long> dimStart = getIndexVector(prhs[5], "DIMSTART");
    std::vector<long> dimCount = getIndexVector(prhs[6], "DIMCOUNT");
    std::vector<long> dimStride = getIndexVector(prhs[7], "DIMSTRIDe");
    const VariableInfo info = inquireVariable(id, varNum);
    if (dimStart.size() != info.numDims() || dimCount.size() != info.numDims() ||
        dimStride.size() != dimCount.size()) {
        hvErrMsgId(
            QUORIN::imagesci::cdflib::badDimSpec(static_cast<long>(info.numDims()), info.name));
    }
    const long majority = readMajority(id);
    reverseForMajority(dimStart, majority);
    reverseForMajority(dimCount, majority);
    reverseForMajority(dimStride, majority);

    // Counts below one are the library's to refuse; they shape an empty array here.
    std::vector<long> extents(dimCount.size());
    for (std::size_t d = 0; d < dimCount.size(); ++d) {
        if (dimCount[d] > info.dimSizes[d]) hvErrMsgId(dimSizeTooLarge());
        extents[d] = std::max(dimCount[d], 0L);
    }
    checkDatatype(info.datatype);
    const std::vector<std::size_t> dims = hyperslabDimensions(
        info.datatype, info.numElements, extents, std::max(recCount, 0L), majority);

    long none = 0;
    plhs[0] = readValues(info.datatype, dims, [&](void* buffer) {
        errors::checkStatus(
            CDFlib(SELECT_, CDF_, id, zVAR_, varNum, zVAR_RECNUMBER_, recStart, zVAR_RECCOUNT_,
                   recCount, zVAR_RECINTERVAL_, recStride, zVAR_DIMINDICES_,
                   listArgument(dimStart, none), zVAR_DIMCOUNTS_, listArgument(dimCount, none),
                   zVAR_DIMINTERVALS_, listArgument(dimStride, none), GET_, zVAR_HYPERDATA_, buffer,
                   NULL_),
            "CDFhyperGetzVarData");
    });
}

}  // namespace cdfgate::gateway
