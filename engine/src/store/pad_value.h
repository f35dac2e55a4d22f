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

}  // namespace cdfgate::engine::store
