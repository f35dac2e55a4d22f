// Uses Octave's C++ classes, which mex.h cannot be included beside.
#include "octave_values.h"

#include <octave/interpreter.h>
#include <octave/oct.h>

#include <memory>

namespace cdfgate::host::octave {
namespace {

// Octave's arrays value-initialise the storage they allocate themselves; storage
// handed to them, from the allocator they release it with, is taken as it is.
template <typename Element>
Array<Element> newArray(const dim_vector& dims, bool initialised) {
    if (initialised) return Array<Element>(dims, Element());
    const auto count = static_cast<std::size_t>(dims.safe_numel());
    return Array<Element>(std::allocator<Element>().allocate(count), dims);
}

template <typename Result, typename Element>
octave_value newValue(const dim_vector& dims, bool initialised) {
    return octave_value(Result(newArray<Element>(dims, initialised)));
}

octave_value newValue(mxClassID mxClass, const dim_vector& dims, bool initialised) {
    switch (mxClass) {
        case mxDOUBLE_CLASS:
            return newValue<NDArray, double>(dims, initialised);
        case mxSINGLE_CLASS:
            return newValue<FloatNDArray, float>(dims, initialised);
        case mxINT8_CLASS:
            return newValue<int8NDArray, octave_int8>(dims, initialised);
        case mxUINT8_CLASS:
            return newValue<uint8NDArray, octave_uint8>(dims, initialised);
        case mxINT16_CLASS:
            return newValue<int16NDArray, octave_int16>(dims, initialised);
        case mxUINT16_CLASS:
            return newValue<uint16NDArray, octave_uint16>(dims, initialised);
        case mxINT32_CLASS:
            return newValue<int32NDArray, octave_int32>(dims, initialised);
        case mxUINT32_CLASS:
            return newValue<uint32NDArray, octave_uint32>(dims, initialised);
        case mxINT64_CLASS:
            return newValue<int64NDArray, octave_int64>(dims, initialised);
        case mxUINT64_CLASS:
            return newValue<uint64NDArray, octave_uint64>(dims, initialised);
        default:
            return octave_value();
    }
}

}  // namespace

bool stageValue(const char* name, mxClassID mxClass, const std::int64_t* extents, std::size_t count,
                bool initialised) noexcept {
    ::octave::interpreter* const interpreter = ::octave::interpreter::the_interpreter();
    if (interpreter == nullptr) return false;
    try {
        if (interpreter->global_varval(name).is_defined()) return false;
        dim_vector dims;
        dims.resize(static_cast<int>(count));
        for (std::size_t i = 0; i < count; ++i) {
            dims(static_cast<int>(i)) = static_cast<octave_idx_type>(extents[i]);
        }
        const octave_value value = newValue(mxClass, dims, initialised);
        if (value.is_undefined()) return false;
        interpreter->global_assign(name, value);
        return true;
    } catch (...) {
        // Out of memory or refused by Octave: the ordinary way reports it.
        return false;
    }
}

void unstageValue(const char* name) noexcept {
    ::octave::interpreter* const interpreter = ::octave::interpreter::the_interpreter();
    if (interpreter == nullptr) return;
    try {
        interpreter->clear_global_variable(name);
    } catch (...) {
        // Nothing to undo: the name was never set.
    }
}

}  // namespace cdfgate::host::octave
