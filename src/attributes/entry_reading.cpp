// getAttrgEntry, getAttrEntry, inquireAttrgEntry, inquireAttrEntry.
#include "attributes/attribute_commands.h"
#include "attributes/attribute_scope.h"
#include "errors/check_status.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"
#include "variables/datatypes.h"

namespace cdfgate::gateway {
namespace {

struct EntryAddress {
    CDFid id;
    long attrNum;
    long entryNum;
};

struct EntryShape {
    long dataType = 0;
    long numElements = 0;
};

EntryAddress entryAddress(const hvArray* const* prhs) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    const long entryNum = getInt64Scalar(prhs[2], "ENTRYNUM");
    return {id, attrNum, entryNum};
}

EntryShape inquireEntry(const EntryAddress& at, int entryKind, const char* functionName) {
    EntryShape shape;
    errors::checkStatus(CDFinquireAttrEntry(at.id, entryKind, at.attrNum, at.entryNum,
                                            &shape.dataType, &shape.numElements),
                        functionName);
    return shape;
}

void readEntry(OutputSlot* plhs, const hvArray* const* prhs, int entryKind, const char* inquireName,
               const char* getName) {
    const EntryAddress at = entryAddress(prhs);
    const EntryShape shape = inquireEntry(at, entryKind, inquireName);
    ByteBuffer buffer;
    // The count comes from the file; a negative one never sizes a buffer.
    resizeBuffer(buffer, shape.dataType,
                 shape.numElements > 0 ? static_cast<std::size_t>(shape.numElements) : 0);
    errors::checkStatus(CDFgetAttrEntry(at.id, entryKind, at.attrNum, at.entryNum, buffer.data()),
                        getName);
    plhs[0] = bufferToArray(buffer, shape.dataType);
}

void describeEntry(int nlhs, OutputSlot* plhs, const hvArray* const* prhs, int entryKind,
                   const char* inquireName) {
    const EntryAddress at = entryAddress(prhs);
    const EntryShape shape = inquireEntry(at, entryKind, inquireName);
    matrix::array_ptr name = datatypeNameLower(shape.dataType);
    placeOutput(nlhs, plhs, 0, std::move(name));
    placeOutput(nlhs, plhs, 1, createDoubleScalar(static_cast<double>(shape.numElements)));
}

}  // namespace

void getAttrgEntry(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    readEntry(plhs, prhs, kGlobalEntries, "CDFinquireAttrgEntry", "CDFgetAttrgEntry");
}

void getAttrEntry(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    readEntry(plhs, prhs, kZEntries, "CDFinquireAttrzEntry", "CDFgetAttrzEntry");
}

void inquireAttrgEntry(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs,
                       const CommandEntry*) {
    describeEntry(nlhs, plhs, prhs, kGlobalEntries, "CDFinquireAttrgEntry");
}

void inquireAttrEntry(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs,
                      const CommandEntry*) {
    describeEntry(nlhs, plhs, prhs, kZEntries, "CDFinquireAttrzEntry");
}

}  // namespace cdfgate::gateway
