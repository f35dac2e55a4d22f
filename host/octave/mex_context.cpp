// Kept apart from the files that include Octave's C++ headers, which declare an
// mxArray of their own that conflicts with mex.h.
#include "mex_context.h"

#include <mex.h>

#include <string_view>

namespace cdfgate::host::octave {

// Octave names the running MEX function, or "unknown" when none runs.
bool insideMexCall() {
    return std::string_view(mexFunctionName()) != "unknown";
}

}  // namespace cdfgate::host::octave
