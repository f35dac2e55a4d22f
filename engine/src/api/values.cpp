#include "api/values.h"

#include <algorithm>
#include <cstring>

#include "encoding/data_types.h"
#include "encoding/encodings.h"

namespace cdfgate::engine::api {

void copy_out(const OpenCdf& cdf, long data_type, const std::uint8_t* stored, std::size_t count,
              void* out) {
    const std::size_t bytes = encoding::element_size(data_type) * count;
    std::vector<std::uint8_t> buffer(stored, stored + bytes);
    if (encoding::is_char_type(data_type)) {
        // Files from other writers may hold zero bytes: they read as blanks.
        const auto zero = std::find(buffer.begin(), buffer.end(), std::uint8_t{0});
        std::fill(zero, buffer.end(), std::uint8_t{' '});
    }
    encoding::decode_values(buffer.data(), count, data_type, cdf.file->encoding());
    if (cdf.decoding != HOST_DECODING) {
        encoding::encode_values(buffer.data(), count, data_type, cdf.decoding);
    }
    if (bytes > 0) std::memcpy(out, buffer.data(), bytes);
}

std::vector<std::uint8_t> stored_form(const OpenCdf& cdf, long data_type, const void* in,
                                      std::size_t count) {
    const std::size_t bytes = encoding::element_size(data_type) * count;
    const auto* src = static_cast<const std::uint8_t*>(in);
    std::vector<std::uint8_t> out(src, src + bytes);
    if (encoding::is_char_type(data_type)) {
        const auto zero = std::find(out.begin(), out.end(), std::uint8_t{0});
        std::fill(zero, out.end(), std::uint8_t{' '});
        return out;
    }
    encoding::encode_values(out.data(), count, data_type, cdf.file->encoding());
    return out;
}

}  // namespace cdfgate::engine::api
