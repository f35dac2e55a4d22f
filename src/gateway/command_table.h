// The fixed table of the 93 commands, in lookup order.
#pragma once

#include <span>
#include <string>

#include "gateway/command.h"

namespace cdfgate::gateway {

std::span<const CommandEntry> commandTable();

// The row whose name equals `name` exactly, with `nargs` within its limits; raises
// "invalidOperation" or "wrongNumberOfInputs" otherwise.
const CommandEntry& lookupCommand(const std::string& name, int nargs);

}  // namespace cdfgate::gateway
