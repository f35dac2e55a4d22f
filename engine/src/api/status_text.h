// Names and explanatory texts of the engine's status codes.
#pragma once

#include <cstddef>
#include <string>

namespace cdfgate::engine::api {

// The constant's name for a known status code, or nullptr.
const char* statusName(long status);

// "NAME: explanation" for a known code, or a sentence naming the unknown code.
// Never longer than CDF_STATUSTEXT_LEN characters.
std::string statusText(long status);

// Copies statusText(status) into out, which holds CDF_STATUSTEXT_LEN + 1 bytes.
void copyStatusText(long status, char* out);

}  // namespace cdfgate::engine::api
