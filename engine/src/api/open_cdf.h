// One CDF opened through the C interface: the stored file and the per-CDF
// selection state of CDFlib.
#pragma once

#include <string>

namespace cdfgate::engine::api {

struct OpenCdf {
    std::string name;  // path as given, without the ".cdf" extension
};

}  // namespace cdfgate::engine::api
