// Context handed to the item handlers of one CDFlib call.
#pragma once

#include "api/call_args.h"
#include "api/library_state.h"
#include "cdf.h"

namespace cdfgate::engine::api {

// Returned by a handler group that does not know the (operation, item) pair.
inline constexpr CDFstatus kNotHandled = -999999;

struct Call {
    CallArgs args;
    LibraryState& lib;
};

// Handler groups, tried in turn by the dispatcher. Each reads the item's arguments
// from call.args and returns a status, or kNotHandled without reading anything.
CDFstatus handleLibraryItem(long op, long item, Call& call);

}  // namespace cdfgate::engine::api
