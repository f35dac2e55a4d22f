// The small CDF every gateway fuzz input starts from: a few variables of different
// types and shapes with records, one global and one variable attribute with entries.
#pragma once

#include <string>

namespace cdfgate::fuzz {

// Writes the file at path (which must not exist) through the C interface, row- or
// column-major. Returns false when any step fails.
bool write_template_file(const std::string& path, bool row_major);

}  // namespace cdfgate::fuzz
