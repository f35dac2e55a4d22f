// Questions about an existing Octave array: class, shape, storage.
#include <cstddef>
#include <type_traits>

#include "hv/array.h"
#include "mx_cast.h"

namespace {

using cdfgate::host::octave::toMx;

// hvClassID copies Octave's own class numbering, so a class converts by value.
constexpr bool sameClass(hvClassID hv, mxClassID mx) {
    return static_cast<int>(hv) == mx;
}
static_assert(sameClass(hvUNKNOWN_CLASS, mxUNKNOWN_CLASS));
static_assert(sameClass(hvCELL_CLASS, mxCELL_CLASS));
static_assert(sameClass(hvSTRUCT_CLASS, mxSTRUCT_CLASS));
static_assert(sameClass(hvLOGICAL_CLASS, mxLOGICAL_CLASS));
static_assert(sameClass(hvCHAR_CLASS, mxCHAR_CLASS));
static_assert(sameClass(hvVOID_CLASS, mxVOID_CLASS));
static_assert(sameClass(hvDOUBLE_CLASS, mxDOUBLE_CLASS));
static_assert(sameClass(hvSINGLE_CLASS, mxSINGLE_CLASS));
static_assert(sameClass(hvINT8_CLASS, mxINT8_CLASS));
static_assert(sameClass(hvUINT8_CLASS, mxUINT8_CLASS));
static_assert(sameClass(hvINT16_CLASS, mxINT16_CLASS));
static_assert(sameClass(hvUINT16_CLASS, mxUINT16_CLASS));
static_assert(sameClass(hvINT32_CLASS, mxINT32_CLASS));
static_assert(sameClass(hvUINT32_CLASS, mxUINT32_CLASS));
static_assert(sameClass(hvINT64_CLASS, mxINT64_CLASS));
static_assert(sameClass(hvUINT64_CLASS, mxUINT64_CLASS));
static_assert(sameClass(hvFUNCTION_CLASS, mxFUNCTION_CLASS));

// Octave's extents are signed 64-bit; the gateway reads them as size_t in place.
static_assert(sizeof(mwSize) == sizeof(std::size_t) && std::is_integral_v<mwSize>);
// Octave's logicals are single bytes holding 0 or 1, which is what a bool holds.
static_assert(sizeof(mxLogical) == sizeof(hvLogical));

}  // namespace

hvClassID hvGetClassID(const hvArray* array) {
    return static_cast<hvClassID>(mxGetClassID(toMx(array)));
}

const char* hvGetClassName(const hvArray* array) {
    return mxGetClassName(toMx(array));
}

std::size_t hvGetNumberOfElements(const hvArray* array) {
    return mxGetNumberOfElements(toMx(array));
}

std::size_t hvGetNumberOfDimensions(const hvArray* array) {
    return static_cast<std::size_t>(mxGetNumberOfDimensions(toMx(array)));
}

const std::size_t* hvGetDimensions(const hvArray* array) {
    return reinterpret_cast<const std::size_t*>(mxGetDimensions(toMx(array)));
}

// Octave characters are bytes, so a character array reports 1.
std::size_t hvGetElementSize(const hvArray* array) {
    return mxGetElementSize(toMx(array));
}

void* hvGetData(const hvArray* array) {
    return mxGetData(toMx(array));
}

hvLogical* hvGetLogicals(const hvArray* array) {
    return reinterpret_cast<hvLogical*>(mxGetLogicals(toMx(array)));
}

bool hvIsComplex(const hvArray* array) {
    return mxIsComplex(toMx(array));
}

const hvArray* hvGetCell(const hvArray* cell, std::size_t index) {
    if (!mxIsCell(toMx(cell)) || index >= mxGetNumberOfElements(toMx(cell))) return nullptr;
    return cdfgate::host::octave::toHv(mxGetCell(toMx(cell), static_cast<mwIndex>(index)));
}
