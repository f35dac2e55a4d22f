// "hyperPutVarData": a run of records, each a box of the dimensions, with strides;
// elements taken in the host array's memory order.
#include <string>

#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/index_vectors.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {
namespace {

// "[ 3 4 ]": the counts as the message prints them.
std::string countsText(const std::vector<long>& counts) {
    std::string text = "[";
    for (const long count : counts) text += " " + std::to_string(count);
    return text + " ]";
}

}  // namespace

void hyperPutVarData(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long recStart = getInt64Scalar(prhs[2], "RECSTART");
    const long recCount = getInt64Scalar(prhs[3], "RECCOUNT");
    const long recStride = getInt64Scalar(prhs[4], "RECSTRIDE");
    std::vector<long> dimStart = getIndexVector(prhs[5], "DIMSTART");
    std::vector<long> dimCount = getIndexVector(prhs[6], "DIMCOUNT");
    std::vector<long> dimStride = getIndexVector(prhs[7], "DIMSTRIDE");
    const hvArray* value = prhs[8];
    const VariableInfo info = inquireVariable(id, varNum);
    const long majority = readMajority(id);
    reverseForMajority(dimStart, majority);
    reverseForMajority(dimCount, majority);
    reverseForMajority(dimStride, majority);
    // The library reads one entry per dimension from each list: refuse shorter ones.
    if (dimStart.size() != info.numDims() || dimCount.size() != info.numDims() ||
        dimStride.size() != dimCount.size()) {
        hvErrMsgId(
            QUORIN::imagesci::cdflib::badDimSpec(static_cast<long>(info.numDims()), info.name));
    }

    std::vector<long> factors = dimCount;
    factors.push_back(recCount);
    if (info.datatype == CDF_EPOCH16) factors.push_back(2);
    if (isCharacterDatatype(info.datatype)) factors.push_back(info.numElements);
    const long expected = expectedCount(factors);
    if (static_cast<long>(hvGetNumberOfElements(value)) != expected) {
        hvErrMsgId(QUORIN::imagesci::cdflib::wrongNumberOfHyperPutVarDataElements(
            countsText(dimCount), recCount, info.name, expected));
    }
    checkValueClass(value, info.datatype);

    WriteSource source(value, info.datatype, static_cast<std::size_t>(expected));
    long none = 0;
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, zVAR_RECNUMBER_, recStart, zVAR_RECCOUNT_,
               recCount, zVAR_RECINTERVAL_, recStride, zVAR_DIMINDICES_,
               listArgument(dimStart, none), zVAR_DIMCOUNTS_, listArgument(dimCount, none),
               zVAR_DIMINTERVALS_, listArgument(dimStride, none), PUT_, zVAR_HYPERDATA_,
               source.data(), NULL_),
        "CDFhyperPutzVarData");
}

}  // namespace cdfgate::gateway
