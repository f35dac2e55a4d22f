// The small CDF every gateway fuzz input starts from: a few variables of different
// types and shapes with records, one global and one variable attribute with entries.
#pragma once

#include <string>

namespace cdfgate::fuzz {

// Writes the file at path (replacing none: the path must not exist) through the C
// interface. Returns false when any step fails.
bool write_template_file(const std::string& path);

}  // namespace cdfgate::fuzz
