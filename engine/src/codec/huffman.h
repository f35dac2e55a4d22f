#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "codec/bytes.h"
#include "codec/result.h"

// Static Huffman coding (CDF compression type 2): a header of scaled byte weights, then
// the codes of the bytes and of the end-of-stream symbol, packed most significant bit
// first.
namespace cdfgate::engine::codec {

// Appends the encoded form of `in` to `out`.
Result huff_encode(ByteView in, std::vector<std::uint8_t>& out) noexcept;

// Decodes exactly out.size() bytes; symbols beyond that are not read. A stream whose
// end-of-stream symbol comes early gives ShortOutput.
Result huff_decode(ByteView in, MutableBytes out) noexcept;

// Decodes the whole stream and appends it to `out`; more than max_size bytes gives
// TooLarge and leaves `out` as it was.
Result huff_decode(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept;

}  // namespace cdfgate::engine::codec
