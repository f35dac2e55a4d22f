#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "codec/bytes.h"

namespace cdfgate::engine::codec {

// Reads a stream most significant bit first. Bits past the end of the input read as
// zero; overrun() tells whether any such bit has been consumed, so decoders check it
// once per symbol instead of once per bit.
class BitReader {
  public:
    explicit BitReader(ByteView in)
        : data_(in.data()), size_(in.size()), total_bits_(in.size() * 8) {}

    // The next 64 bits of the stream, left aligned; only the first 57 are guaranteed
    // to be exact (the rest may be zero), callers never rely on more.
    std::uint64_t peek() const {
        const std::size_t byte = pos_ >> 3;
        std::uint64_t word;
        if (byte + 8 <= size_) {
            std::memcpy(&word, data_ + byte, 8);
            if constexpr (std::endian::native == std::endian::little) word = byteswap64(word);
        } else {
            word = 0;
            for (std::size_t i = 0; i < 8; ++i) {
                const std::uint64_t b = byte + i < size_ ? data_[byte + i] : 0;
                word |= b << (56 - 8 * i);
            }
        }
        return word << (pos_ & 7);
    }

    std::uint32_t read_bit() {
        const std::size_t byte = pos_ >> 3;
        const unsigned b = byte < size_ ? data_[byte] : 0;
        const unsigned bit = (b >> (7 - (pos_ & 7))) & 1u;
        ++pos_;
        return bit;
    }

    void skip(std::size_t bits) { pos_ += bits; }
    std::size_t position() const { return pos_; }
    void seek(std::size_t bit_pos) { pos_ = bit_pos; }
    bool overrun() const { return pos_ > total_bits_; }
    // Bits left before the end of the input (0 once past it).
    std::size_t exact_bits_ahead() const { return pos_ < total_bits_ ? total_bits_ - pos_ : 0; }

  private:
    static std::uint64_t byteswap64(std::uint64_t v) { return __builtin_bswap64(v); }

    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t total_bits_;
    std::size_t pos_ = 0;
};

}  // namespace cdfgate::engine::codec
