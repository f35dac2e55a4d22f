// Reads a file through the gateway on the built-in host, as a user's script would:
// "open", then inquiries, records and entries, then "close".
#pragma once

#include <string>
#include <vector>

namespace cdfgate::corrupt {

struct GatewayRead {
    bool opened = false;
    std::vector<std::string> errors;  // identifiers of the errors raised, in order
};

// Only HostErrors are caught: any other exception escapes to the test.
GatewayRead read_through_gateway(const std::string& path);

}  // namespace cdfgate::corrupt
