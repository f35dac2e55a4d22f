// Feeds arbitrary payloads to one decoder. The first two bytes choose the expected
// block size; the rest is the payload. Anything decoded must survive a round trip.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "codec/dispatch.h"

namespace codec = cdfgate::engine::codec;

namespace {

#if defined(CDFGATE_FUZZ_METHOD_rle)
constexpr codec::Method kMethod = codec::Method::Rle;
#elif defined(CDFGATE_FUZZ_METHOD_huff)
constexpr codec::Method kMethod = codec::Method::Huff;
#elif defined(CDFGATE_FUZZ_METHOD_ahuff)
constexpr codec::Method kMethod = codec::Method::Ahuff;
#else
constexpr codec::Method kMethod = codec::Method::Gzip;
#endif

constexpr std::size_t kMaxOutput = 1 << 20;

void check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t expected = std::size_t{data[0]} << 8 | data[1];
    const codec::ByteView payload(data + 2, size - 2);

    std::vector<std::uint8_t> exact(expected);
    const codec::Result a = codec::decode(kMethod, payload, exact);

    std::vector<std::uint8_t> grown;
    const codec::Result b = codec::decode(kMethod, payload, grown, kMaxOutput);
    check(grown.size() <= kMaxOutput);
    if (b != codec::Result::Ok) {
        check(grown.empty());
        return 0;
    }
    // Both forms agree on the common prefix.
    if (a == codec::Result::Ok) {
        check(grown.size() >= expected);
        for (std::size_t i = 0; i < expected; ++i) check(grown[i] == exact[i]);
    }

    std::vector<std::uint8_t> again;
    check(codec::encode(kMethod, 6, grown, again) == codec::Result::Ok);
    std::vector<std::uint8_t> back(grown.size());
    check(codec::decode(kMethod, again, back) == codec::Result::Ok);
    check(back == grown);
    return 0;
}
