// "getVarRecordData": one whole record of a zVariable, shaped by the majority rule.
#include "errors/check_status.h"
#include "gateway/arguments.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {

void getVarRecordData(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long recNum = getInt64Scalar(prhs[2], "RECNUM");
    const VariableInfo info = inquireVariable(id, varNum);
    checkDatatype(info.datatype);
    const std::vector<std::size_t> dims =
        recordDimensions(info.datatype, info.numElements, info.dimSizes, readMajority(id));
    plhs[0] = readValues(info.datatype, dims, [&](void* buffer) {
        errors::checkStatus(CDFgetVarRecordData(id, 1, varNum, recNum, buffer),
                            "CDFgetzVarRecordData");
    });
}

}  // namespace cdfgate::gateway
