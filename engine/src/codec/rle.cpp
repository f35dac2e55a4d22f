#include "codec/rle.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace cdfgate::engine::codec {

namespace {

constexpr std::size_t kMaxRun = 256;
constexpr std::size_t kSegment = std::size_t{1} << 16;

// Encodes in[i, ...) until at least `seg_end` is consumed, writing at dst. Output never
// exceeds twice the input consumed, which is the room the caller guarantees.
std::uint8_t* encode_segment(const std::uint8_t* in, std::size_t n, std::size_t& i,
                             std::size_t seg_end, std::uint8_t* dst) {
    while (i < seg_end) {
        if (in[i] != 0) {
            const void* z = std::memchr(in + i, 0, seg_end - i);
            const std::size_t stop =
                z ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(z) - in) : seg_end;
            std::memcpy(dst, in + i, stop - i);
            dst += stop - i;
            i = stop;
            continue;
        }
        const std::size_t run_end = std::min(n, i + kMaxRun);
        std::size_t j = i + 1;
        while (j < run_end && in[j] == 0) ++j;
        dst[0] = 0;
        dst[1] = static_cast<std::uint8_t>(j - i - 1);
        dst += 2;
        i = j;
    }
    return dst;
}

}  // namespace

Result rle_encode(ByteView in, std::vector<std::uint8_t>& out) noexcept {
    const std::size_t start = out.size();
    try {
        std::size_t pos = start;
        std::size_t i = 0;
        const std::size_t n = in.size();
        while (i < n) {
            const std::size_t seg_end = std::min(n, i + kSegment);
            const std::size_t room = 2 * (seg_end - i);
            if (out.size() - pos < room) out.resize(std::max(pos + room, out.size() * 3 / 2));
            std::uint8_t* const base = out.data();
            pos = static_cast<std::size_t>(encode_segment(in.data(), n, i, seg_end, base + pos) -
                                           base);
        }
        out.resize(pos);
        return Result::Ok;
    } catch (const std::bad_alloc&) {
        out.resize(start);
        return Result::OutOfMemory;
    }
}

Result rle_decode(ByteView in, MutableBytes out) noexcept {
    const std::uint8_t* ip = in.data();
    const std::uint8_t* const iend = ip + in.size();
    std::uint8_t* op = out.data();
    std::uint8_t* const oend = op + out.size();
    while (op < oend) {
        if (ip == iend) return Result::ShortOutput;
        const std::size_t avail = static_cast<std::size_t>(iend - ip);
        const std::size_t room = static_cast<std::size_t>(oend - op);
        const void* z = std::memchr(ip, 0, std::min(avail, room));
        const std::size_t lit =
            z ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(z) - ip)
              : std::min(avail, room);
        std::memcpy(op, ip, lit);
        op += lit;
        ip += lit;
        if (!z) continue;
        if (iend - ip < 2) return Result::Truncated;
        const std::size_t run = std::min<std::size_t>(std::size_t{ip[1]} + 1, room - lit);
        std::memset(op, 0, run);
        op += run;
        ip += 2;
    }
    return Result::Ok;
}

Result rle_decoded_size(ByteView in, std::size_t limit, std::size_t& size) noexcept {
    std::size_t total = 0;
    const std::uint8_t* ip = in.data();
    const std::uint8_t* const iend = ip + in.size();
    while (ip < iend) {
        const void* z = std::memchr(ip, 0, static_cast<std::size_t>(iend - ip));
        if (!z) {
            total += static_cast<std::size_t>(iend - ip);
            break;
        }
        const auto* zp = static_cast<const std::uint8_t*>(z);
        total += static_cast<std::size_t>(zp - ip);
        if (iend - zp < 2) return Result::Truncated;
        total += std::size_t{zp[1]} + 1;
        ip = zp + 2;
        if (total > limit) return Result::TooLarge;
    }
    if (total > limit) return Result::TooLarge;
    size = total;
    return Result::Ok;
}

Result rle_decode(ByteView in, std::vector<std::uint8_t>& out, std::size_t max_size) noexcept {
    std::size_t size = 0;
    if (const Result r = rle_decoded_size(in, max_size, size); r != Result::Ok) return r;
    const std::size_t start = out.size();
    try {
        out.resize(start + size);
    } catch (const std::bad_alloc&) {
        return Result::OutOfMemory;
    }
    const Result r = rle_decode(in, MutableBytes(out.data() + start, size));
    if (r != Result::Ok) out.resize(start);
    return r;
}

}  // namespace cdfgate::engine::codec
