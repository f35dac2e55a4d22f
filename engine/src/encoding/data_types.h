// Facts about the CDF data types: element sizes and default pad values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace cdfgate::engine::encoding {

// Bytes of one element, or 0 for an unknown type.
std::size_t element_size(long data_type);
bool is_known_type(long data_type);
bool is_char_type(long data_type);
// Types a version 2 file cannot hold (INT8, EPOCH16, TIME_TT2000).
bool is_v3_only_type(long data_type);
// Width of the units that change with byte order (EPOCH16: 8), 1 for bytes.
std::size_t swap_unit(long data_type);

// The default pad value of numElems elements, in host byte order.
std::vector<std::uint8_t> default_pad(long data_type, long num_elems, bool v2_file);

}  // namespace cdfgate::engine::encoding
