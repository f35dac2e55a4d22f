// putAttrEntry, the one handler behind "putAttrEntry" and "putAttrgEntry": the
// attribute's scope, never the command name, decides between a gEntry and a zEntry.
#include <memory>

#include "attributes/attribute_commands.h"
#include "attributes/attribute_scope.h"
#include "errors/check_status.h"
#include "errors/errors.h"
#include "gateway/arguments.h"
#include "variables/character_data.h"
#include "variables/datatypes.h"

namespace cdfgate::gateway {
namespace {

struct HostStringDeleter {
    void operator()(char* text) const noexcept { hvFree(text); }
};

// The bytes handed to the library, with whatever owns them for the call.
struct EntryData {
    void* bytes = nullptr;
    long numElements = 0;
    std::unique_ptr<char, HostStringDeleter> text;
    ByteBuffer narrowed;
};

EntryData prepareData(const hvArray* value, long dataType) {
    EntryData data;
    const std::size_t count = hvGetNumberOfElements(value);
    data.numElements = static_cast<long>(count);
    if (dataType == CDF_CHAR) {
        data.text.reset(hvArrayToString(value));
        data.bytes = data.text.get();
    } else if (dataType == CDF_UCHAR) {
        // Low 8 bits of each character unit; wider characters are cut without notice.
        data.narrowed = charsToBytes(value, count);
        data.bytes = data.narrowed.data();
    } else {
        // An EPOCH16 value is two doubles; an odd last double is left out.
        if (dataType == CDF_EPOCH16) data.numElements /= 2;
        data.bytes = hvGetData(value);
    }
    return data;
}

}  // namespace

void putAttrEntry(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    const long entryNum = getInt64Scalar(prhs[2], "ENTRYNUM");
    const long dataType = getInt64Scalar(prhs[3], "DATATYPE");
    const hvArray* const value = prhs[4];
    checkDatatype(dataType);
    // The class is checked before the attribute is looked at, so a mismatch is
    // reported even for an attribute that does not exist.
    if (hvGetClassID(value) != datatypeClass(dataType)) {
        hvErrMsgId(QUORIN::imagesci::cdflib::badPutAttrEntryDatatype(datatypeName(dataType),
                                                                     hvGetClassName(value)));
    }
    EntryData data = prepareData(value, dataType);
    const long scope = attributeScope(id, attrNum);
    if (scope == GLOBAL_SCOPE) {
        errors::checkStatus(CDFputAttrEntry(id, kGlobalEntries, attrNum, entryNum, dataType,
                                            data.numElements, data.bytes),
                            "CDFputAttrgEntry");
    } else if (scope == VARIABLE_SCOPE) {
        errors::checkStatus(CDFputAttrEntry(id, kZEntries, attrNum, entryNum, dataType,
                                            data.numElements, data.bytes),
                            "CDFputAttrzEntry");
    } else {
        hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(scope, "SCOPE"));
    }
}

}  // namespace cdfgate::gateway
