// Character data between CDF bytes and host characters. The host's character unit is
// 2 bytes in the built-in host and 1 byte in Octave; both are handled.
#pragma once

#include <cstddef>
#include <span>

#include "hv/array.h"
#include "variables/datatypes.h"

namespace cdfgate::gateway {

// Character array of the given shape holding the bytes, one character per byte; a
// 2-byte unit gets the byte sign-extended (0xE9 becomes 0xFFE9). The shape must hold
// exactly bytes.size() characters.
matrix::array_ptr createCharArray(std::span<const std::size_t> dims, std::span<const char> bytes);

// The first `count` characters of a character array, each narrowed to its low byte.
// The array must hold at least `count` characters.
ByteBuffer charsToBytes(const hvArray* array, std::size_t count);

}  // namespace cdfgate::gateway
