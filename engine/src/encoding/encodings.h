// The data encodings a file may declare and how their values are laid out.
#pragma once

#include <cstddef>
#include <cstdint>

#include "io/status.h"

namespace cdfgate::engine::encoding {

enum class FloatForm { ieee, vax_d, vax_g };

struct EncodingInfo {
    bool big_endian = false;
    FloatForm floats = FloatForm::ieee;
};

// Encodings a file may hold (1..7, 9, 11..16). HOST_ENCODING is not one of them.
bool is_storable_encoding(long code);
EncodingInfo encoding_info(long code);
// The code stored in new files of this machine (IBMPC on little-endian hosts).
long host_encoding();

// Converts count values of data_type from the file's encoding to host form, in place.
void decode_values(std::uint8_t* data, std::size_t count, long data_type, long file_encoding);
// Converts count values of data_type from host form to the file's encoding, in place.
void encode_values(std::uint8_t* data, std::size_t count, long data_type, long file_encoding);

}  // namespace cdfgate::engine::encoding
