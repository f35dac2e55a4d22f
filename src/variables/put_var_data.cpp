// "putVarData": one value of a zVariable at a record and indices in the host's order.
#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/index_vectors.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {

void putVarData(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long recNum = getInt64Scalar(prhs[2], "RECNUM");
    std::vector<long> indices = getIndexVector(prhs[3], "INDICES");
    const hvArray* value = prhs[4];
    const VariableInfo info = inquireVariable(id, varNum);
    reverseForMajority(indices, readMajority(id));
    if (indices.size() != info.numDims()) {
        hvErrMsgId(QUORIN::imagesci::cdflib::badDimensionExtent(info.name,
                                                                static_cast<long>(info.numDims())));
    }
    long expected = 1;
    if (info.datatype == CDF_EPOCH16) expected = 2;
    if (isCharacterDatatype(info.datatype)) expected = info.numElements;
    if (static_cast<long>(hvGetNumberOfElements(value)) != expected) {
        hvErrMsgId(QUORIN::imagesci::cdflib::wrongNumberOfPutVarDataElements(info.name, expected));
    }
    checkValueClass(value, info.datatype);

    // All n characters of a text value are written, as for a whole record.
    WriteSource source(value, info.datatype, static_cast<std::size_t>(expected));
    long none = 0;
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, zVAR_RECNUMBER_, recNum, zVAR_DIMINDICES_,
               listArgument(indices, none), PUT_, zVAR_DATA_, source.data(), NULL_),
        "CDFputzVarData");
}

}  // namespace cdfgate::gateway
