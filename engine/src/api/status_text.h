// Names and explanatory texts of the engine's status codes.
#pragma once

#include <cstddef>
#include <string>

namespace cdfgate::engine::api {

// The constant's name for a known status code, or nullptr.
const char* status_name(long status);

// "NAME: explanation" for a known code, or a sentence naming the unknown code.
// Never longer than CDF_STATUSTEXT_LEN characters.
std::string status_text(long status);

// Copies status_text(status) into out, which holds CDF_STATUSTEXT_LEN + 1 bytes.
void copy_status_text(long status, char* out);

}  // namespace cdfgate::engine::api
