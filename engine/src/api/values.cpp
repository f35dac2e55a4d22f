#include "api/values.h"

#include <algorithm>
#include <cstring>

#include "encoding/data_types.h"
#include "encoding/encodings.h"

namespace cdfgate::engine::api {
namespace {

// -0.0 becomes +0.0 (the negative-to-positive zero mode); values in host form.
void positive_zeros(std::vector<std::uint8_t>& values, long data_type) {
    const bool single = data_type == CDF_REAL4 || data_type == CDF_FLOAT;
    const bool dual = data_type == CDF_REAL8 || data_type == CDF_DOUBLE || data_type == CDF_EPOCH ||
                      data_type == CDF_EPOCH16;
    if (single) {
        for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
            float v;
            std::memcpy(&v, values.data() + i, 4);
            if (v == 0.0f) std::memset(values.data() + i, 0, 4);
        }
    } else if (dual) {
        for (std::size_t i = 0; i + 8 <= values.size(); i += 8) {
            double v;
            std::memcpy(&v, values.data() + i, 8);
            if (v == 0.0) std::memset(values.data() + i, 0, 8);
        }
    }
}

}  // namespace

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
    if (cdf.neg_to_pos_fp0 == NEGtoPOSfp0on) positive_zeros(out, data_type);
    encoding::encode_values(out.data(), count, data_type, cdf.file->encoding());
    return out;
}

}  // namespace cdfgate::engine::api
