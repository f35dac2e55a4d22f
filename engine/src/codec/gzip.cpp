#include "codec/gzip.h"

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <new>

namespace cdfgate::engine::codec {

namespace {

constexpr std::size_t kHeaderSize = 10;
constexpr std::size_t kTrailerSize = 8;

std::uint8_t extra_flags(int level) {
    if (level == 1) return 0x04;
    if (level == 9) return 0x02;
    return 0x00;
}

void put_le32(std::uint8_t* p, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) p[i] = static_cast<std::uint8_t>(v >> (8 * i));
}

// Inflates a member that is larger than `out`: fills `out`, then runs the rest through
// a small buffer so that the CRC and length are still checked.
Result inflate_with_excess(ByteView in, MutableBytes out) {
    constexpr std::size_t kChunk = std::size_t{1} << 30;  // zlib counts in 32 bits
    z_stream s{};
    if (inflateInit2(&s, 16 + MAX_WBITS) != Z_OK) return Result::OutOfMemory;
    std::array<std::uint8_t, 1 << 14> sink{};
    const std::uint8_t* in_next = in.data();
    std::size_t in_left = in.size();
    std::uint8_t* out_next = out.data();
    std::size_t out_left = out.size();
    Result result = Result::Corrupt;
    for (;;) {
        if (s.avail_in == 0 && in_left > 0) {
            s.next_in = const_cast<Bytef*>(in_next);
            s.avail_in = static_cast<uInt>(std::min(in_left, kChunk));
            in_next += s.avail_in;
            in_left -= s.avail_in;
        }
        if (s.avail_out == 0) {
            if (out_left > 0) {
                s.next_out = out_next;
                s.avail_out = static_cast<uInt>(std::min(out_left, kChunk));
                out_next += s.avail_out;
                out_left -= s.avail_out;
            } else {
                s.next_out = sink.data();
                s.avail_out = static_cast<uInt>(sink.size());
            }
        }
        const int rc = inflate(&s, Z_NO_FLUSH);
        if (rc == Z_STREAM_END) {
            result = Result::Ok;
            break;
        }
        if (rc == Z_BUF_ERROR && s.avail_in == 0 && in_left == 0) break;  // input ran out
        if (rc != Z_OK && rc != Z_BUF_ERROR) break;
    }
    inflateEnd(&s);
    return result;
}

}  // namespace

void GzipCompressor::Free::operator()(libdeflate_compressor* c) const noexcept {
    libdeflate_free_compressor(c);
}

void GzipDecompressor::Free::operator()(libdeflate_decompressor* d) const noexcept {
    libdeflate_free_decompressor(d);
}

GzipCompressor::GzipCompressor(int level) noexcept : level_(level) {
    if (level >= kGzipMinLevel && level <= kGzipMaxLevel) {
        state_.reset(libdeflate_alloc_compressor(level));
    }
}

Result GzipCompressor::compress(ByteView in, std::vector<std::uint8_t>& out) noexcept {
    if (level_ < kGzipMinLevel || level_ > kGzipMaxLevel) return Result::BadParameter;
    if (!state_) return Result::OutOfMemory;
    const std::size_t start = out.size();
    try {
        const std::size_t bound = libdeflate_deflate_compress_bound(state_.get(), in.size());
        out.resize(start + kHeaderSize + bound + kTrailerSize);
    } catch (const std::bad_alloc&) {
        return Result::OutOfMemory;
    }
    std::uint8_t* const p = out.data() + start;
    const std::array<std::uint8_t, kHeaderSize> header{
        0x1f, 0x8b, 0x08, 0, 0, 0, 0, 0, extra_flags(level_), 0x03};
    std::copy(header.begin(), header.end(), p);
    const std::size_t body = libdeflate_deflate_compress(
        state_.get(), in.data(), in.size(), p + kHeaderSize, out.size() - start - kHeaderSize);
    if (body == 0) {
        out.resize(start);
        return Result::Failed;
    }
    std::uint8_t* const trailer = p + kHeaderSize + body;
    put_le32(trailer, libdeflate_crc32(0, in.data(), in.size()));
    put_le32(trailer + 4, static_cast<std::uint32_t>(in.size()));
    out.resize(start + kHeaderSize + body + kTrailerSize);
    return Result::Ok;
}

GzipDecompressor::GzipDecompressor() noexcept : state_(libdeflate_alloc_decompressor()) {}

Result GzipDecompressor::decompress(ByteView in, MutableBytes out) noexcept {
    if (!state_) return Result::OutOfMemory;
    std::size_t used_in = 0;
    std::size_t produced = 0;
    const libdeflate_result r = libdeflate_gzip_decompress_ex(
        state_.get(), in.data(), in.size(), out.data(), out.size(), &used_in, &produced);
    switch (r) {
        case LIBDEFLATE_SUCCESS:
            return produced == out.size() ? Result::Ok : Result::ShortOutput;
        case LIBDEFLATE_INSUFFICIENT_SPACE:
            return inflate_with_excess(in, out);
        default:
            return Result::Corrupt;
    }
}

Result GzipDecompressor::decompress(ByteView in, std::vector<std::uint8_t>& out,
                                    std::size_t max_size) noexcept {
    if (!state_) return Result::OutOfMemory;
    // The length field at the end is the usual size when nothing follows the member.
    std::size_t guess = 4096;
    if (in.size() >= kHeaderSize + kTrailerSize) {
        const std::uint8_t* t = in.data() + in.size() - 4;
        guess = std::max<std::size_t>(guess, std::size_t{t[0]} | std::size_t{t[1]} << 8 |
                                                 std::size_t{t[2]} << 16 | std::size_t{t[3]} << 24);
    }
    const std::size_t start = out.size();
    std::size_t cap = std::min(guess, max_size);
    try {
        for (;;) {
            out.resize(start + cap);
            std::size_t used_in = 0;
            std::size_t produced = 0;
            const libdeflate_result r = libdeflate_gzip_decompress_ex(
                state_.get(), in.data(), in.size(), out.data() + start, cap, &used_in, &produced);
            if (r == LIBDEFLATE_SUCCESS) {
                out.resize(start + produced);
                return Result::Ok;
            }
            if (r != LIBDEFLATE_INSUFFICIENT_SPACE) {
                out.resize(start);
                return Result::Corrupt;
            }
            if (cap == max_size) {
                out.resize(start);
                return Result::TooLarge;
            }
            cap = max_size - cap > cap ? cap * 2 : max_size;
        }
    } catch (const std::bad_alloc&) {
        out.resize(start);
        return Result::OutOfMemory;
    }
}

Result gzip_compress(ByteView in, int level, std::vector<std::uint8_t>& out) noexcept {
    GzipCompressor c(level);
    return c.compress(in, out);
}

Result gzip_decompress(ByteView in, MutableBytes out) noexcept {
    GzipDecompressor d;
    return d.decompress(in, out);
}

Result gzip_decompress(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept {
    GzipDecompressor d;
    return d.decompress(in, out, max_size);
}

}  // namespace cdfgate::engine::codec
