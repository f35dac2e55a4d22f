// An hvArray of this host is an Octave mxArray: the adapter only reinterprets
// pointers, it never copies an array.
#pragma once

#include <mex.h>

#include "hv/array.h"

namespace cdfgate::host::octave {

inline mxArray* toMx(hvArray* array) {
    return reinterpret_cast<mxArray*>(array);
}
inline const mxArray* toMx(const hvArray* array) {
    return reinterpret_cast<const mxArray*>(array);
}
inline hvArray* toHv(mxArray* array) {
    return reinterpret_cast<hvArray*>(array);
}
inline const hvArray* toHv(const mxArray* array) {
    return reinterpret_cast<const hvArray*>(array);
}

}  // namespace cdfgate::host::octave
