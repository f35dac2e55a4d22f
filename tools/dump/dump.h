// The expected-contents dump of a CDF, produced through the C interface.
#pragma once

#include <string>

namespace cdfgate::dump {

// The whole dump text of the CDF at path (every line ends with a newline).
std::string dump_cdf(const std::string& path);

}  // namespace cdfgate::dump
