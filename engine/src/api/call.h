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

    // The current CDF, or nullptr.
    OpenCdf* cdf() { return lib.current_cdf(); }
};

// Handler groups, tried in turn by the dispatcher. Each reads the item's arguments
// from call.args and returns a status, or kNotHandled without reading anything.
CDFstatus handle_library_item(long op, long item, Call& call);
CDFstatus handle_file_item(long op, long item, Call& call);
CDFstatus handle_variable_item(long op, long item, Call& call);
CDFstatus handle_variable_data_item(long op, long item, Call& call);
CDFstatus handle_attribute_item(long op, long item, Call& call);
CDFstatus handle_entry_item(long op, long item, Call& call);

inline CDFstatus put_long(Call& call, long value) {
    *call.args.next<long>() = value;
    return CDF_OK;
}

// READ_ONLY_MODE while the CDF is in read-only mode.
inline CDFstatus check_writable(const OpenCdf& cdf) {
    return cdf.read_only ? READ_ONLY_MODE : CDF_OK;
}

}  // namespace cdfgate::engine::api
