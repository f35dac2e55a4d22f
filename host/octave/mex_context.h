// Whether Octave is inside a call of a MEX function right now.
#pragma once

namespace cdfgate::host::octave {

// False while Octave clears cdflib or exits: the shutdown hook then runs with no
// MEX call, and there is nobody to receive an error.
bool insideMexCall();

}  // namespace cdfgate::host::octave
