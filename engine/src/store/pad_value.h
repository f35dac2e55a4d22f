// A variable's pad value in stored form (the file's data encoding): its own when
// the descriptor holds one, else the default of its type for the version that
// wrote the file.
#pragma once

#include <cstdint>
#include <vector>

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// Files whose variables without a stored pad read 0 (and blanks): version 2 files
// and those written before 3.5.
bool uses_old_default_pads(const CdfFile& cdf);

// One value: element size x elements bytes.
std::vector<std::uint8_t> stored_pad(const CdfFile& cdf, const Variable& var);

// Fills count values at out with the value of value_bytes bytes at pad.
void fill_values(std::uint8_t* out, std::int64_t count, const std::vector<std::uint8_t>& pad);

// Turns every byte from the first zero byte to the end of each of count character
// values (value_bytes long) into a blank.
void blank_after_zero(std::uint8_t* values, std::int64_t count, std::int64_t value_bytes);

}  // namespace cdfgate::engine::store
