// Big- and little-endian loads and stores of fixed-width integers.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace cdfgate::engine::encoding {

inline std::uint32_t load_be32(const std::uint8_t* p) {
    return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) |
           std::uint32_t{p[3]};
}

inline std::uint64_t load_be64(const std::uint8_t* p) {
    return (std::uint64_t{load_be32(p)} << 32) | load_be32(p + 4);
}

inline void store_be32(std::uint8_t* p, std::uint32_t v) {
    p[0] = static_cast<std::uint8_t>(v >> 24);
    p[1] = static_cast<std::uint8_t>(v >> 16);
    p[2] = static_cast<std::uint8_t>(v >> 8);
    p[3] = static_cast<std::uint8_t>(v);
}

inline void store_be64(std::uint8_t* p, std::uint64_t v) {
    store_be32(p, static_cast<std::uint32_t>(v >> 32));
    store_be32(p + 4, static_cast<std::uint32_t>(v));
}

// Reverses the byte order of count elements of width bytes each, in place.
inline void swap_elements(std::uint8_t* data, std::size_t count, std::size_t width) {
    if (width < 2) return;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint8_t* e = data + i * width;
        for (std::size_t a = 0, b = width - 1; a < b; ++a, --b) {
            const std::uint8_t t = e[a];
            e[a] = e[b];
            e[b] = t;
        }
    }
}

inline constexpr bool kHostIsLittleEndian = std::endian::native == std::endian::little;

}  // namespace cdfgate::engine::encoding
