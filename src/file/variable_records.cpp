// Record bookkeeping of a zVariable: allocation, counts, blocking factor, reserve
// percentage, initial records and sparse-records mode. The reserve percentage is
// selected and confirmed; the rest is put and got.
#include "constants/constant_table.h"
#include "errors/check_status.h"
#include "file/cdf_item_calls.h"
#include "file/file_commands.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

// id, "VARNUM", then `op` `item` into the first output as a double.
void returnVarNumber(OutputSlot* plhs, const hvArray* const* prhs, long op, long item,
                     const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    plhs[0] =
        createDoubleScalar(static_cast<double>(readVarItem(id, varNum, op, item, functionName)));
}

// id, "VARNUM", one value under `argumentName`, written as `op` `item`.
void setVarNumber(const hvArray* const* prhs, const char* argumentName, long op, long item,
                  const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long value = getInt64Scalar(prhs[2], argumentName);
    writeVarItem(id, varNum, op, item, value, functionName);
}

}  // namespace

void getVarAllocRecords(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                        const CommandEntry*) {
    returnVarNumber(plhs, prhs, GET_, zVAR_NUMallocRECS_, "CDFgetzVarAllocRecords");
}

void getVarBlockingFactor(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                          const CommandEntry*) {
    returnVarNumber(plhs, prhs, GET_, zVAR_BLOCKINGFACTOR_, "CDFgetzVarBlockingFactor");
}

void getVarReservePercent(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                          const CommandEntry*) {
    returnVarNumber(plhs, prhs, CONFIRM_, zVAR_RESERVEPERCENT_, "CDFgetzVarReservePercent");
}

void getVarMaxAllocRecNum(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                          const CommandEntry*) {
    returnVarNumber(plhs, prhs, GET_, zVAR_MAXallocREC_, "CDFgetzVarMaxAllocRecNum");
}

void getVarMaxWrittenRecNum(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                            const CommandEntry*) {
    returnVarNumber(plhs, prhs, GET_, zVAR_MAXREC_, "CDFgetzVarMaxWrittenRecNum");
}

void getVarNumRecsWritten(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                          const CommandEntry*) {
    returnVarNumber(plhs, prhs, GET_, zVAR_NUMRECS_, "CDFgetzVarNumRecsWritten");
}

void getVarSparseRecords(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                         const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long mode = readVarItem(id, varNum, GET_, zVAR_SPARSERECORDS_, "CDFgetzVarSparseRecords");
    plhs[0] = createString(
        constants::lookupModeName(constants::sparseRecordsNames(), mode, "SPARSE RECORDS TYPE"));
}

void setVarAllocBlockRecords(int, OutputSlot*, int, const hvArray* const* prhs,
                             const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long first = getInt64Scalar(prhs[2], "RECSTART");
    const long last = getInt64Scalar(prhs[3], "RECSTOP");
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, zVAR_, varNum, PUT_, zVAR_ALLOCATEBLOCK_, first, last, NULL_),
        "CDFsetzVarAllocBlockRecords");
}

void setVarBlockingFactor(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setVarNumber(prhs, "BLOCKINGFACTOR", PUT_, zVAR_BLOCKINGFACTOR_, "CDFsetzVarBlockingFactor");
}

void setVarInitialRecs(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setVarNumber(prhs, "NUMRECS", PUT_, zVAR_INITIALRECS_, "CDFsetzVarInitialRecs");
}

void setVarReservePercent(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setVarNumber(prhs, "PERCENT", SELECT_, zVAR_RESERVEPERCENT_, "CDFsetzVarReservePercent");
}

void setVarSparseRecords(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setVarNumber(prhs, "STYPE", PUT_, zVAR_SPARSERECORDS_, "CDFsetzVarSparseRecords");
}

}  // namespace cdfgate::gateway
