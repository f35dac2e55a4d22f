// "createVar": a new zVariable, its dimensions and variances given in the host's order.

#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"
#include "variables/index_vectors.h"
#include "variables/majority.h"
#include "variables/variable_commands.h"
#include "variables/variances.h"

namespace cdfgate::gateway {

void createVar(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    std::string name = getStringArg(prhs[1]);
    const long datatype = getInt64Scalar(prhs[2], "DATATYPE");
    const long numElements = getInt64Scalar(prhs[3], "NUMELEMENTS");
    std::vector<long> dims = getIndexVector(prhs[4], "DIMS");
    const std::vector<long> recordVariances = parseVariance(prhs[5]);
    if (recordVariances.empty()) {
        // Only the first entry is used, so there must be one.
        hvErrMsgId(QUORIN::imagesci::cdflib::mismatchedVarianceSize(0, 1));
    }
    std::vector<long> dimVariances = parseVariance(prhs[6]);
    if (dimVariances.size() != dims.size()) {
        hvErrMsgId(QUORIN::imagesci::cdflib::mismatchedVarianceSize(
            static_cast<long>(dimVariances.size()), static_cast<long>(dims.size())));
    }
    const long majority = readMajority(id);
    reverseForMajority(dims, majority);
    reverseForMajority(dimVariances, majority);
    // The library reads its lists even for no dimensions; give it valid storage.
    dims.push_back(0);
    dimVariances.push_back(NOVARY);
    long varNum = -1;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, CREATE_, zVAR_, name.data(), datatype,
                               numElements, static_cast<long>(dims.size() - 1), dims.data(),
                               recordVariances.front(), dimVariances.data(), &varNum, NULL_),
                        "CDFcreatezVar");
    plhs[0] = createDoubleScalar(static_cast<double>(varNum));
}

}  // namespace cdfgate::gateway
