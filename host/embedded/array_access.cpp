#include "array_storage.h"

hvClassID hvGetClassID(const hvArray* array) {
    return array->classId;
}

const char* hvGetClassName(const hvArray* array) {
    switch (array->classId) {
        case hvCELL_CLASS:
            return "cell";
        case hvSTRUCT_CLASS:
            return "struct";
        case hvLOGICAL_CLASS:
            return "logical";
        case hvCHAR_CLASS:
            return "char";
        case hvVOID_CLASS:
            return "void";
        case hvDOUBLE_CLASS:
            return "double";
        case hvSINGLE_CLASS:
            return "single";
        case hvINT8_CLASS:
            return "int8";
        case hvUINT8_CLASS:
            return "uint8";
        case hvINT16_CLASS:
            return "int16";
        case hvUINT16_CLASS:
            return "uint16";
        case hvINT32_CLASS:
            return "int32";
        case hvUINT32_CLASS:
            return "uint32";
        case hvINT64_CLASS:
            return "int64";
        case hvUINT64_CLASS:
            return "uint64";
        case hvFUNCTION_CLASS:
            return "function_handle";
        default:
            return "unknown";
    }
}

std::size_t hvGetNumberOfElements(const hvArray* array) {
    return array->count;
}

std::size_t hvGetNumberOfDimensions(const hvArray* array) {
    return array->dims.size();
}

const std::size_t* hvGetDimensions(const hvArray* array) {
    return array->dims.data();
}

std::size_t hvGetElementSize(const hvArray* array) {
    return cdfgate::embedded::detail::elementSize(array->classId);
}

// Cell arrays have no element storage to hand out.
void* hvGetData(const hvArray* array) {
    return array->bytes.get();
}

hvLogical* hvGetLogicals(const hvArray* array) {
    static_assert(sizeof(hvLogical) == 1);
    if (array->classId != hvLOGICAL_CLASS) return nullptr;
    return reinterpret_cast<hvLogical*>(array->bytes.get());
}

bool hvIsComplex(const hvArray*) {
    return false;
}
