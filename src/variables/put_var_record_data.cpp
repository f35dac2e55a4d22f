// "putVarRecordData": one whole record of a zVariable, elements in memory order.
#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {

void putVarRecordData(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long recNum = getInt64Scalar(prhs[2], "RECNUM");
    const hvArray* value = prhs[3];
    const VariableInfo info = inquireVariable(id, varNum);

    std::vector<long> factors(info.dimSizes.begin(), info.dimSizes.end());
    if (info.datatype == CDF_EPOCH16) factors.push_back(2);
    if (isCharacterDatatype(info.datatype)) factors.push_back(info.numElements);
    const long expected = expectedCount(factors);
    if (static_cast<long>(hvGetNumberOfElements(value)) != expected) {
        hvErrMsgId(
            QUORIN::imagesci::cdflib::wrongNumberOfPutVarRecordDataElements(info.name, expected));
    }
    checkValueClass(value, info.datatype);

    WriteSource source(value, info.datatype, static_cast<std::size_t>(expected));
    errors::checkStatus(CDFputVarRecordData(id, 1, varNum, recNum, source.data()),
                        "CDFputzVarRecordData");
}

}  // namespace cdfgate::gateway
