// Real floating-point arrays made as Octave values with their storage left
// uninitialised, for results that the engine fills completely.
#pragma once

#include <cstddef>
#include <cstdint>

namespace cdfgate::host::octave {

// A new mxArray wrapping a double (single when `single`) Octave value of these
// extents. It belongs to no MEX call: the caller destroys it with mxDestroyArray.
// Returned untyped because this file's mxArray (Octave's class) and mex.h's differ.
// Plain C++17, so that clang can compile the Octave headers it needs.
void* newUninitialisedValue(const std::int64_t* extents, std::size_t count, bool single);

}  // namespace cdfgate::host::octave
