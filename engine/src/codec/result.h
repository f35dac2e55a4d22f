#pragma once

#include <cstdint>
#include <string_view>

namespace cdfgate::engine::codec {

// Outcome of every codec call. The store maps these onto CDF status codes.
enum class [[nodiscard]] Result : std::uint8_t{
    Ok,
    Corrupt,       // malformed stream (bad code, bad header, checksum mismatch)
    Truncated,     // input ended before the end of the stream
    ShortOutput,   // stream ended before the expected number of bytes was produced
    TooLarge,      // output would exceed the caller's bound
    BadParameter,  // e.g. a gzip level outside 1..9
    OutOfMemory,
    Failed,  // the underlying compressor reported a failure
};

// Stable name of a result, for messages and test output.
std::string_view result_name(Result r) noexcept;

}  // namespace cdfgate::engine::codec
