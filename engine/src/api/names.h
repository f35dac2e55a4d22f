// Rules for variable and attribute names: printable ASCII, at most the name field's
// length (longer names are cut with a warning), compared case-sensitively with
// trailing blanks ignored.
#pragma once

#include <cstddef>
#include <string>

#include "io/status.h"

namespace cdfgate::engine::api {

// Checks name and cuts it to max_length. Returns bad_name for an empty or illegal
// name, truncated (a warning) when cut, else CDF_OK.
Status prepare_name(const char* name, std::size_t max_length, long bad_name, long truncated,
                    std::string& out);

bool same_name(const std::string& a, const std::string& b);

// Copies a stored name and its terminating NUL into a caller's buffer.
void copy_name(const std::string& name, char* out);

}  // namespace cdfgate::engine::api
