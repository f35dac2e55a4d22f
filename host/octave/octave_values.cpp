// Uses Octave's C++ array classes, which mex.h cannot be included beside.
#include "octave_values.h"

#include <octave/mxarray.h>
#include <octave/oct.h>

#include <memory>

namespace cdfgate::host::octave {
namespace {

// Octave's arrays value-initialise the storage they allocate themselves; storage
// handed to them, allocated by the allocator they free with, is taken as it is.
template <typename T>
octave_value uninitialised(const dim_vector& dims) {
    const auto elements = static_cast<std::size_t>(dims.safe_numel());
    return octave_value(Array<T>(std::allocator<T>().allocate(elements), dims));
}

}  // namespace

void* newUninitialisedValue(const std::int64_t* extents, std::size_t count, bool single) {
    dim_vector dims;
    dims.resize(static_cast<int>(count));
    for (std::size_t i = 0; i < count; ++i) {
        dims(static_cast<int>(i)) = static_cast<octave_idx_type>(extents[i]);
    }
    const octave_value value = single ? uninitialised<float>(dims) : uninitialised<double>(dims);
    return new mxArray(false, value);
}

}  // namespace cdfgate::host::octave
