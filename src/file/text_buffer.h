// Fixed-size character buffers that the CDF interface fills with NUL-terminated text.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace cdfgate::gateway {

// Room for `Length` characters and the NUL; starts all NUL.
template <std::size_t Length>
using TextBuffer = std::array<char, Length + 1>;

// The text up to the first NUL, never past the buffer's end.
template <std::size_t Size>
std::string_view textOf(const std::array<char, Size>& buffer) {
    const std::string_view all(buffer.data(), buffer.size());
    return all.substr(0, all.find('\0'));
}

}  // namespace cdfgate::gateway
