// A zVariable as a whole: close it, delete it or a range of its records, and read,
// change or look up its name.
#include <string>

#include "errors/check_status.h"
#include "file/cdf_item_calls.h"
#include "file/file_commands.h"
#include "file/text_buffer.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {

void closeVar(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    // The variable number is reported under the file identifier's name.
    const long varNum = getInt64Scalar(prhs[1], "CDFID");
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, zVAR_, varNum, CLOSE_, zVAR_, NULL_),
                        "CDFclosezVar");
}

void deleteVar(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, zVAR_, varNum, DELETE_, zVAR_, NULL_),
                        "CDFdeletezVar");
}

void deleteVarRecords(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long startRec = getInt64Scalar(prhs[2], "STARTREC");
    const long endRec = getInt64Scalar(prhs[3], "ENDREC");
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, DELETE_, zVAR_RECORDS_, startRec, endRec, NULL_),
        "CDFdeletezVarRecords");
}

void getVarName(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    TextBuffer<CDF_VAR_NAME_LEN256> name{};
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, GET_, zVAR_NAME_, name.data(), NULL_),
        "CDFgetzVarName");
    plhs[0] = createString(textOf(name));
}

void getVarNum(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    std::string name = getStringArg(prhs[1]);
    // A negative result is a status; it is reported under the close's name.
    const long varNum = CDFgetVarNum(id, name.data());
    errors::checkStatus(varNum, "CDFclosezVar");
    plhs[0] = createDoubleScalar(static_cast<double>(varNum));
}

void renameVar(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    std::string name = getStringArg(prhs[2]);
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, PUT_, zVAR_NAME_, name.data(), NULL_),
        "CDFrenamezVar");
}

}  // namespace cdfgate::gateway
