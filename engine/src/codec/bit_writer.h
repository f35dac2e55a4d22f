#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace cdfgate::engine::codec {

// Packs codes most significant bit first and appends them to a vector. The vector is
// grown ahead of the write position and trimmed by finish(); finish() pads the last
// byte with zero bits. Growth may throw std::bad_alloc; callers catch it at the
// module boundary.
class BitWriter {
  public:
    explicit BitWriter(std::vector<std::uint8_t>& out, std::size_t expected_bytes = 0)
        : out_(out), pos_(out.size()) {
        out_.resize(pos_ + expected_bytes + 8);
    }

    // Appends the low `len` bits of `code` (len <= 32), first the highest of them.
    void put(std::uint32_t code, unsigned len) {
        acc_ = (acc_ << len) | code;
        pending_ += len;
        if (pending_ >= 32) {
            pending_ -= 32;
            write32(static_cast<std::uint32_t>(acc_ >> pending_));
        }
    }

    // Appends a code of up to 64 bits.
    void put_long(std::uint64_t code, unsigned len) {
        if (len > 32) {
            put(static_cast<std::uint32_t>(code >> 32), len - 32);
            len = 32;
        }
        put(static_cast<std::uint32_t>(code & 0xffffffffu), len);
    }

    // Flushes the partial byte (zero padded) and trims the vector to the data written.
    void finish() {
        while (pending_ >= 8) {
            pending_ -= 8;
            write8(static_cast<std::uint8_t>(acc_ >> pending_));
        }
        if (pending_ > 0) {
            write8(static_cast<std::uint8_t>(acc_ << (8 - pending_)));
            pending_ = 0;
        }
        out_.resize(pos_);
    }

  private:
    void reserve(std::size_t n) {
        if (pos_ + n > out_.size()) out_.resize(out_.size() + out_.size() / 2 + n + 64);
    }
    void write32(std::uint32_t v) {
        reserve(4);
        std::uint8_t* p = out_.data() + pos_;
        p[0] = static_cast<std::uint8_t>(v >> 24);
        p[1] = static_cast<std::uint8_t>(v >> 16);
        p[2] = static_cast<std::uint8_t>(v >> 8);
        p[3] = static_cast<std::uint8_t>(v);
        pos_ += 4;
    }
    void write8(std::uint8_t v) {
        reserve(1);
        out_[pos_++] = v;
    }

    std::vector<std::uint8_t>& out_;
    std::size_t pos_;
    std::uint64_t acc_ = 0;
    unsigned pending_ = 0;  // bits in acc_ not yet written, always < 32 between calls
};

}  // namespace cdfgate::engine::codec
