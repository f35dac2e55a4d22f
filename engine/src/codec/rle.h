#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "codec/bytes.h"
#include "codec/result.h"

// Run-length coding of zero bytes (CDF compression type 1): a non-zero byte stands for
// itself, a run of n zeros (1 <= n <= 256) is the pair 00, n-1.
namespace cdfgate::engine::codec {

// Appends the encoded form of `in` to `out`.
Result rle_encode(ByteView in, std::vector<std::uint8_t>& out) noexcept;

// Decodes exactly out.size() bytes; bytes the stream holds beyond that are ignored.
// A stream that ends early gives ShortOutput.
Result rle_decode(ByteView in, MutableBytes out) noexcept;

// Decodes the whole stream and appends it to `out`; more than max_size bytes gives
// TooLarge and leaves `out` as it was.
Result rle_decode(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept;

// Number of bytes the stream decodes to, or Corrupt; stops with TooLarge past `limit`.
Result rle_decoded_size(ByteView in, std::size_t limit, std::size_t& size) noexcept;

}  // namespace cdfgate::engine::codec
