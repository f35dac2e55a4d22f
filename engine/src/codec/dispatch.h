#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "codec/bytes.h"
#include "codec/result.h"

// One entry point per direction for the four CDF compression methods, keyed by the
// compression type stored in a CPR.
namespace cdfgate::engine::codec {

enum class Method : int { Rle = 1, Huff = 2, Ahuff = 3, Gzip = 5 };

// The method of a CPR compression type, or nothing (no compression, retired or unknown).
std::optional<Method> method_of_type(int type) noexcept;

// Whether `parameter` is valid for the method: 0 for RLE, HUFF and AHUFF, the level
// 1..9 for GZIP.
bool valid_parameter(Method method, int parameter) noexcept;

// Appends the compressed form of `in`; `parameter` is the GZIP level (ignored otherwise).
Result encode(Method method, int parameter, ByteView in, std::vector<std::uint8_t>& out) noexcept;

// Decodes exactly out.size() bytes (see the per-method headers for excess and shortfall).
Result decode(Method method, ByteView in, MutableBytes out) noexcept;

// Decodes the whole stream, appending at most max_size bytes.
Result decode(Method method, ByteView in, std::vector<std::uint8_t>& out,
              std::size_t max_size) noexcept;

}  // namespace cdfgate::engine::codec
