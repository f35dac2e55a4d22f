// Text forms of CDF values in the dump format: integers in decimal, floating
// values with 17 significant digits, strings quoted with escapes.
#pragma once

#include <cstddef>
#include <string>

namespace cdfgate::dump {

// Appends count values of data_type (host form, num_elems bytes per string for
// the character types) separated by blanks.
void append_values(std::string& out, long data_type, long num_elems, const void* data,
                   std::size_t count);
std::string quoted(const char* bytes, std::size_t length);
std::string type_name(long data_type);
std::size_t element_bytes(long data_type);

}  // namespace cdfgate::dump
