#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "codec/bytes.h"
#include "codec/result.h"

// Adaptive Huffman coding (CDF compression type 3): encoder and decoder grow and
// reorder the same tree after every byte; unseen bytes follow an escape code as 8 plain
// bits. Bits are packed most significant first.
namespace cdfgate::engine::codec {

// Appends the encoded form of `in` to `out`.
Result ahuff_encode(ByteView in, std::vector<std::uint8_t>& out) noexcept;

// Decodes exactly out.size() bytes; symbols beyond that are not read. A stream whose
// end-of-stream symbol comes early gives ShortOutput.
Result ahuff_decode(ByteView in, MutableBytes out) noexcept;

// Decodes the whole stream and appends it to `out`; more than max_size bytes gives
// TooLarge and leaves `out` as it was.
Result ahuff_decode(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept;

}  // namespace cdfgate::engine::codec
