// Attribute counts and the entry counts and maxima of one attribute.
#include "attributes/attribute_commands.h"
#include "attributes/attribute_scope.h"
#include "errors/check_status.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

void fileCount(OutputSlot* plhs, const hvArray* const* prhs, long item, const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    long count = 0;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, GET_, item, &count, NULL_), functionName);
    plhs[0] = createDoubleScalar(static_cast<double>(count));
}

void maxEntry(OutputSlot* plhs, const hvArray* const* prhs, int entryKind,
              const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    long maximum = 0;
    errors::checkStatus(CDFgetAttrMaxEntry(id, entryKind, attrNum, &maximum), functionName);
    plhs[0] = createDoubleScalar(static_cast<double>(maximum));
}

void entryCount(OutputSlot* plhs, const hvArray* const* prhs, int entryKind,
                const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    long count = 0;
    errors::checkStatus(CDFgetNumAttrEntries(id, entryKind, attrNum, &count), functionName);
    plhs[0] = createDoubleScalar(static_cast<double>(count));
}

}  // namespace

void getNumgAttributes(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                       const CommandEntry*) {
    fileCount(plhs, prhs, CDF_NUMgATTRS_, "CDFgetNumgAttributes");
}

void getNumvAttributes(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                       const CommandEntry*) {
    fileCount(plhs, prhs, CDF_NUMvATTRS_, "CDFgetNumvAttributes");
}

void getAttrMaxgEntry(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    maxEntry(plhs, prhs, kGlobalEntries, "CDFgetAttrMaxgEntry");
}

void getAttrMaxEntry(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    maxEntry(plhs, prhs, kZEntries, "CDFgetAttrMaxzEntry");
}

void getNumAttrgEntries(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                        const CommandEntry*) {
    entryCount(plhs, prhs, kGlobalEntries, "CDFgetNumAttrgEntries");
}

void getNumAttrEntries(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                       const CommandEntry*) {
    entryCount(plhs, prhs, kZEntries, "CDFgetNumAttrzEntries");
}

}  // namespace cdfgate::gateway
