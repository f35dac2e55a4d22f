// New Octave arrays for the gateway's results, and their release.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "hv/array.h"
#include "mx_cast.h"
#include "octave_values.h"

namespace {

using cdfgate::host::octave::toHv;
using cdfgate::host::octave::toMx;

// Octave wants at least two extents; a shorter list is padded with ones.
std::vector<mwSize> octaveDims(std::span<const std::size_t> dims) {
    std::vector<mwSize> extents(std::max<std::size_t>(dims.size(), 2), 1);
    std::transform(dims.begin(), dims.end(), extents.begin(),
                   [](std::size_t extent) { return static_cast<mwSize>(extent); });
    return extents;
}

// Takes ownership of what Octave handed back; Octave reports its own failures by
// throwing, a null result is treated the same way.
matrix::array_ptr adopt(mxArray* array) {
    if (array == nullptr) throw std::bad_alloc();
    return matrix::array_ptr(toHv(array));
}

bool isNumeric(hvClassID classId) {
    return classId >= hvDOUBLE_CLASS && classId <= hvUINT64_CLASS;
}

// From this many elements on, a real numeric array is made as an Octave value, so
// that returning it costs no copy. Below it the detour costs more than the copy.
constexpr std::size_t kOctaveValueElements = 1 << 13;

// The global name under which such a value passes from Octave's C++ side to this
// MEX call. It exists only while one array is created.
constexpr char kStagingName[] = "__cdfgate_staged_array__";

std::size_t elementCount(const std::vector<mwSize>& extents) {
    std::size_t count = 1;
    for (const mwSize extent : extents) count *= static_cast<std::size_t>(extent);
    return count;
}

// The Octave value, fetched with mexGetVariable, which registers the array with the
// running call like every array the call creates: it is released with the others.
// Null when Octave's side declined; the caller then makes the array the usual way.
mxArray* createOctaveValue(const std::vector<mwSize>& extents, mxClassID mxClass,
                           bool initialised) {
    const std::vector<std::int64_t> sizes(extents.begin(), extents.end());
    if (!cdfgate::host::octave::stageValue(kStagingName, mxClass, sizes.data(), sizes.size(),
                                           initialised)) {
        return nullptr;
    }
    mxArray* const array = mexGetVariable("global", kStagingName);
    cdfgate::host::octave::unstageValue(kStagingName);
    return array;
}

mxArray* createArray(std::span<const std::size_t> dims, hvClassID classId, hvComplexity complexity,
                     bool initialised) {
    const std::vector<mwSize> extents = octaveDims(dims);
    const auto ndims = static_cast<mwSize>(extents.size());
    switch (classId) {
        case hvLOGICAL_CLASS:
            return mxCreateLogicalArray(ndims, extents.data());
        case hvCHAR_CLASS:
            return mxCreateCharArray(ndims, extents.data());
        case hvCELL_CLASS:
            return mxCreateCellArray(ndims, extents.data());
        default:
            break;
    }
    if (!isNumeric(classId)) {
        throw std::invalid_argument("cdflib: cannot create an array of class number " +
                                    std::to_string(static_cast<int>(classId)));
    }
    const auto mxClass = static_cast<mxClassID>(classId);
    const auto mxFlag = complexity == hvCOMPLEX ? mxCOMPLEX : mxREAL;
    if (mxFlag == mxREAL && elementCount(extents) >= kOctaveValueElements) {
        if (mxArray* const array = createOctaveValue(extents, mxClass, initialised)) return array;
    }
    return initialised ? mxCreateNumericArray(ndims, extents.data(), mxClass, mxFlag)
                       : mxCreateUninitNumericArray(ndims, extents.data(), mxClass, mxFlag);
}

}  // namespace

namespace matrix {

void destroyArray(hvArray* array) noexcept {
    mxDestroyArray(toMx(array));
}

namespace detail {

array_ptr do_create_numeric(std::span<const std::size_t> dims, hvClassID classId,
                            hvComplexity complexity) {
    return adopt(createArray(dims, classId, complexity, true));
}

array_ptr do_create_uninitnumeric(std::span<const std::size_t> dims, hvClassID classId,
                                  hvComplexity complexity) {
    return adopt(createArray(dims, classId, complexity, false));
}

array_ptr do_create_cell(std::span<const std::size_t> dims) {
    return adopt(createArray(dims, hvCELL_CLASS, hvREAL, true));
}

array_ptr do_create_char(std::span<const std::size_t> dims) {
    return adopt(createArray(dims, hvCHAR_CLASS, hvREAL, true));
}

}  // namespace detail

array_ptr create(const char* text, std::size_t length) {
    const std::size_t dims[] = {1, length};
    array_ptr array = detail::do_create_char(dims);
    if (length > 0) std::memcpy(mxGetChars(toMx(array.get())), text, length);
    return array;
}

}  // namespace matrix

void hvSetCell(hvArray* cell, std::size_t index, matrix::array_ptr element) {
    mxArray* const target = toMx(cell);
    if (!mxIsCell(target) || index >= mxGetNumberOfElements(target)) {
        throw std::out_of_range("cdflib: cell index " + std::to_string(index) + " out of range");
    }
    mxSetCell(target, static_cast<mwIndex>(index), toMx(element.release()));
}

void* hvMalloc(std::size_t size) {
    void* const memory = mxMalloc(size);
    if (memory == nullptr && size > 0) throw std::bad_alloc();
    return memory;
}

void hvFree(void* pointer) noexcept {
    mxFree(pointer);
}
