// deleteAttrgEntry, deleteAttrEntry.
#include "attributes/attribute_commands.h"
#include "attributes/attribute_scope.h"
#include "errors/check_status.h"
#include "gateway/arguments.h"

namespace cdfgate::gateway {
namespace {

void deleteEntry(const hvArray* const* prhs, const char* attrNumName, int entryKind,
                 const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], attrNumName);
    const long entryNum = getInt64Scalar(prhs[2], "ENTRYNUM");
    errors::checkStatus(CDFdeleteAttrEntry(id, entryKind, attrNum, entryNum), functionName);
}

}  // namespace

void deleteAttrgEntry(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    deleteEntry(prhs, "ATTRNUM", kGlobalEntries, "CDFdeleteAttrgEntry");
}

void deleteAttrEntry(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    // This command alone names its attribute number "ATTNUM".
    deleteEntry(prhs, "ATTNUM", kZEntries, "CDFdeleteAttrzEntry");
}

}  // namespace cdfgate::gateway
