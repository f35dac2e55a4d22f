// Message texts of every identifier the gateway raises, shared by all hosts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hv/except.h"

namespace cdfgate::host {

// The text of an identifier, with one "{}" placeholder per message argument in order.
std::optional<std::string_view> messageTemplate(std::string_view identifier);
// Every identifier that has a text, for the catalogue's own checks.
std::vector<std::string_view> catalogIdentifiers();
// The message with its arguments filled in; an unknown identifier yields the
// identifier and the arguments as they are.
std::string formatMessage(std::string_view identifier,
                          const foundation::core::msg::MessageArguments& arguments);

}  // namespace cdfgate::host
