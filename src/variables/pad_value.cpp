// "getVarPadValue" and "setVarPadValue": the one value a zVariable reads as where
// nothing was written. A pad value is a single value, so no majority is read.
#include <array>
#include <memory>

#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/value_transfer.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"

namespace cdfgate::gateway {
namespace {

long padValueCount(const VariableInfo& info) {
    if (info.datatype == CDF_EPOCH16) return 2;
    if (isCharacterDatatype(info.datatype)) return info.numElements;
    return 1;
}

struct HostTextDeleter {
    void operator()(char* text) const noexcept { hvFree(text); }
};

}  // namespace

void getVarPadValue(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const VariableInfo info = inquireVariable(id, varNum);
    checkDatatype(info.datatype);
    const std::array<std::size_t, 2> dims{static_cast<std::size_t>(padValueCount(info)), 1};
    plhs[0] = readValues(info.datatype, dims, [&](void* buffer) {
        errors::checkStatus(
            CDFlib(SELECT_, CDF_, id, zVAR_, varNum, GET_, zVAR_PADVALUE_, buffer, NULL_),
            "CDFgetzVarPadValue");
    });
}

void setVarPadValue(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const hvArray* value = prhs[2];
    const VariableInfo info = inquireVariable(id, varNum);
    checkDatatype(info.datatype);
    // Class before count here, the reverse of the data writers.
    checkValueClass(value, info.datatype);
    const long expected = padValueCount(info);
    if (static_cast<long>(hvGetNumberOfElements(value)) != expected) {
        hvErrMsgId(QUORIN::imagesci::cdflib::wrongNumberOfPadValueElements(info.name, expected));
    }
    std::unique_ptr<char, HostTextDeleter> text;
    void* buffer = nullptr;
    if (isCharacterDatatype(info.datatype)) {
        text.reset(hvArrayToString(value));
        buffer = text.get();
    } else {
        buffer = hvGetData(value);
    }
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, PUT_, zVAR_PADVALUE_, buffer, NULL_),
        "CDFsetzVarPadValue");
}

}  // namespace cdfgate::gateway
