// The two functions the gateway exports to its host.
#pragma once

#include "hv/array.h"

#define CDFGATE_EXPORT __attribute__((visibility("default")))

// Runs one command: prhs[0] names it, prhs[1..nrhs-1] are its arguments, and its
// results are moved into plhs.
CDFGATE_EXPORT void cdflib(int nlhs,
                           std::unique_ptr<hvArray, matrix::detail::hvDestroy_deleter>* plhs,
                           int nrhs, const hvArray* const* prhs);
// Closes every file the gateway still has open; the host calls it once before unloading.
CDFGATE_EXPORT void QNTerminate();
