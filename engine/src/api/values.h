// Moving entry and pad values between the caller (host form, or the selected
// decoding) and the file (its data encoding).
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "api/open_cdf.h"

namespace cdfgate::engine::api {

// Copies count stored values of data_type to out, converted for the caller;
// character values read with blanks from their first zero byte on.
void copy_out(const OpenCdf& cdf, long data_type, const std::uint8_t* stored, std::size_t count,
              void* out);
// The stored form of count caller values: character values blank-filled from their
// first zero byte, numbers converted to the file's encoding.
std::vector<std::uint8_t> stored_form(const OpenCdf& cdf, long data_type, const void* in,
                                      std::size_t count);

}  // namespace cdfgate::engine::api
