// The one check of every status the CDF interface returns.
#pragma once

#include <string>

#include "cdf.h"

namespace cdfgate::errors {

// Returns for CDF_OK and informational statuses; raises "libraryFailure" with the
// function name and the status text for every negative status, warnings included.
void checkStatus(CDFstatus status, const std::string& functionName);

}  // namespace cdfgate::errors
