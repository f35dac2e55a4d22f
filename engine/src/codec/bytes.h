#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace cdfgate::engine::codec {

using ByteView = std::span<const std::uint8_t>;
using MutableBytes = std::span<std::uint8_t>;

}  // namespace cdfgate::engine::codec
