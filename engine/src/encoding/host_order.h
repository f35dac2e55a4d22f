// Whole arrays of values moved between a file's data encoding and the host's form,
// in place: one dispatch per call, then a plain loop (byte swaps or VAX float
// conversion) that the compiler can vectorise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace cdfgate::engine::encoding {

// True when values of data_type are stored in the file exactly as the host holds them.
bool host_form_matches(long data_type, long file_encoding);

// count values of data_type (each of its elements: pass values x elements) from the
// file's encoding to host form.
void file_to_host(std::uint8_t* data, std::size_t count, long data_type, long file_encoding);
// The reverse, for writing.
void host_to_file(std::uint8_t* data, std::size_t count, long data_type, long file_encoding);

// Reverses the bytes of each of count units of width 2, 4 or 8.
void swap_bytes(std::uint8_t* data, std::size_t count, std::size_t width);

}  // namespace cdfgate::engine::encoding
