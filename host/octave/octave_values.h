// Large real numeric results made as Octave's own arrays. An array from mxCreate*
// is copied element by element into an Octave value when the MEX function returns;
// an Octave value is handed back as it is. This header stays free of Octave's C++
// headers, which cannot be included beside mex.h; the class names are the C ones
// that both sides share.
#pragma once

#include <octave/mxtypes.h>

#include <cstddef>
#include <cstdint>

namespace cdfgate::host::octave {

// Puts a new real array of the numeric class and extents under the global name
// `name`, with its elements zeroed or left unset. False when this cannot be done
// (not a numeric class, no interpreter, the name is already in use, Octave
// refused): the caller then makes the array the ordinary way.
bool stageValue(const char* name, mxClassID mxClass, const std::int64_t* extents, std::size_t count,
                bool initialised) noexcept;

// Removes the global name again.
void unstageValue(const char* name) noexcept;

}  // namespace cdfgate::host::octave
