// Field widths of the two record layouts and bounded readers and writers over them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "encoding/byte_order.h"

namespace cdfgate::engine::format {

inline constexpr std::uint32_t kMagicV3 = 0xCDF30001;
inline constexpr std::uint32_t kMagicV2 = 0xCDF26002;
inline constexpr std::uint32_t kMagicV25 = 0x0000FFFF;
inline constexpr std::uint32_t kMagicUncompressed = 0x0000FFFF;
inline constexpr std::uint32_t kMagicCompressed = 0xCCCC0001;

// Record type codes.
enum RecordType : std::int32_t {
    kCdr = 1,
    kGdr = 2,
    kRvdr = 3,
    kAdr = 4,
    kAgrEdr = 5,
    kVxr = 6,
    kVvr = 7,
    kZvdr = 8,
    kAzEdr = 9,
    kCcr = 10,
    kCpr = 11,
    kSpr = 12,
    kCvvr = 13,
    kUir = -1,
};

struct Layout {
    bool v3 = true;

    constexpr std::size_t offset_size() const { return v3 ? 8 : 4; }
    constexpr std::size_t name_size() const { return v3 ? 256 : 64; }
    // RecordSize and RecordType.
    constexpr std::size_t header_size() const { return offset_size() + 4; }
};

// Reads big-endian fields from one record; any read past the end sets failed().
class ByteReader {
  public:
    ByteReader(std::span<const std::uint8_t> bytes, Layout layout)
        : bytes_(bytes), layout_(layout) {}

    std::int32_t i32() {
        if (!need(4)) return 0;
        const auto v = static_cast<std::int32_t>(encoding::load_be32(bytes_.data() + pos_));
        pos_ += 4;
        return v;
    }
    // An offset or record size: 8 bytes in v3, 4 in v2 (sign-extended).
    std::int64_t offset() {
        if (layout_.v3) {
            if (!need(8)) return 0;
            const auto v = static_cast<std::int64_t>(encoding::load_be64(bytes_.data() + pos_));
            pos_ += 8;
            return v;
        }
        return i32();
    }
    std::span<const std::uint8_t> bytes(std::size_t n) {
        if (!need(n)) return {};
        const auto s = bytes_.subspan(pos_, n);
        pos_ += n;
        return s;
    }
    // A fixed name field: the text up to the first NUL.
    std::string name() {
        const auto field = bytes(layout_.name_size());
        std::size_t n = 0;
        while (n < field.size() && field[n] != 0) ++n;
        return std::string(field.begin(), field.begin() + static_cast<std::ptrdiff_t>(n));
    }
    void skip(std::size_t n) { (void)bytes(n); }
    void seek(std::size_t pos) {
        if (pos > bytes_.size())
            failed_ = true;
        else
            pos_ = pos;
    }
    std::size_t position() const { return pos_; }
    std::size_t remaining() const { return bytes_.size() - pos_; }
    bool failed() const { return failed_; }

  private:
    bool need(std::size_t n) {
        if (failed_ || n > bytes_.size() - pos_) {
            failed_ = true;
            return false;
        }
        return true;
    }

    std::span<const std::uint8_t> bytes_;
    Layout layout_;
    std::size_t pos_ = 0;
    bool failed_ = false;
};

class ByteWriter {
  public:
    ByteWriter(std::vector<std::uint8_t>& out, Layout layout) : out_(out), layout_(layout) {}

    void i32(std::int32_t v) {
        const std::size_t at = grow(4);
        encoding::store_be32(out_.data() + at, static_cast<std::uint32_t>(v));
    }
    void offset(std::int64_t v) {
        if (layout_.v3) {
            const std::size_t at = grow(8);
            encoding::store_be64(out_.data() + at, static_cast<std::uint64_t>(v));
        } else {
            i32(static_cast<std::int32_t>(v));
        }
    }
    void bytes(std::span<const std::uint8_t> b) { out_.insert(out_.end(), b.begin(), b.end()); }
    void zeros(std::size_t n) { out_.insert(out_.end(), n, 0); }
    void name(const std::string& text) {
        const std::size_t n = std::min(text.size(), layout_.name_size());
        out_.insert(out_.end(), text.begin(), text.begin() + static_cast<std::ptrdiff_t>(n));
        zeros(layout_.name_size() - n);
    }

  private:
    std::size_t grow(std::size_t n) {
        const std::size_t at = out_.size();
        out_.resize(at + n);
        return at;
    }

    std::vector<std::uint8_t>& out_;
    Layout layout_;
};

}  // namespace cdfgate::engine::format
