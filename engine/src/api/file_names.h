// File names as the C interface takes them: a trailing ".cdf" in any case is the
// extension; created files get ".cdf"; opening tries ".cdf", ".CDF", then the
// name as given.
#pragma once

#include <string>

#include "io/status.h"

namespace cdfgate::engine::api {

// The name without its extension.
std::string base_name(const std::string& name);
// The path a new CDF gets; BAD_CDF_NAME when empty or too long, CDF_CREATE_ERROR
// when a part of it is longer than the system allows.
Status path_to_create(const std::string& name, std::string& path);
// The existing file a name refers to; NO_SUCH_CDF when none.
Status path_to_open(const std::string& name, std::string& path);

}  // namespace cdfgate::engine::api
