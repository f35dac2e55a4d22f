#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "codec/bytes.h"
#include "codec/result.h"

struct libdeflate_compressor;
struct libdeflate_decompressor;

// GZIP (CDF compression type 5): each payload is one gzip member (RFC 1952) with the
// header 1F 8B 08 00, time 0, XFL by level, OS 3. Decoding accepts any valid member
// and ignores data after it.
namespace cdfgate::engine::codec {

constexpr int kGzipMinLevel = 1;
constexpr int kGzipMaxLevel = 9;

// Keeps the deflate state of one level between calls (a compressor is costly to set up).
class GzipCompressor {
  public:
    explicit GzipCompressor(int level) noexcept;

    int level() const { return level_; }

    // Appends one gzip member holding `in` to `out`. BadParameter for a level outside
    // 1..9, OutOfMemory if the compressor could not be set up.
    Result compress(ByteView in, std::vector<std::uint8_t>& out) noexcept;

  private:
    struct Free {
        void operator()(libdeflate_compressor* c) const noexcept;
    };
    std::unique_ptr<libdeflate_compressor, Free> state_;
    int level_;
};

class GzipDecompressor {
  public:
    GzipDecompressor() noexcept;

    // Decodes exactly out.size() bytes. A member that holds more is still checked in
    // full (CRC and length) and its excess ignored; one that holds less is ShortOutput.
    Result decompress(ByteView in, MutableBytes out) noexcept;

    // Decodes the first member and appends it to `out`; more than max_size bytes gives
    // TooLarge and leaves `out` as it was.
    Result decompress(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept;

  private:
    struct Free {
        void operator()(libdeflate_decompressor* d) const noexcept;
    };
    std::unique_ptr<libdeflate_decompressor, Free> state_;
};

// One-shot forms of the above.
Result gzip_compress(ByteView in, int level, std::vector<std::uint8_t>& out) noexcept;
Result gzip_decompress(ByteView in, MutableBytes out) noexcept;
Result gzip_decompress(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept;

}  // namespace cdfgate::engine::codec
