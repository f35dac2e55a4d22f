#include "encoding/encodings.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "cdf.h"
#include "encoding/byte_order.h"
#include "encoding/data_types.h"
#include "encoding/host_order.h"

namespace cdfgate::engine::encoding {

bool is_storable_encoding(long code) {
    return (code >= 1 && code <= 7) || code == 9 || (code >= 11 && code <= 16);
}

EncodingInfo encoding_info(long code) {
    switch (code) {
        case NETWORK_ENCODING:
        case SUN_ENCODING:
        case SGi_ENCODING:
        case IBMRS_ENCODING:
        case PPC_ENCODING:
        case HP_ENCODING:
        case NeXT_ENCODING:
        case ARM_BIG_ENCODING:
            return {true, FloatForm::ieee};
        case VAX_ENCODING:
        case ALPHAVMSd_ENCODING:
        case 20:
            return {false, FloatForm::vax_d};
        case ALPHAVMSg_ENCODING:
        case 21:
            return {false, FloatForm::vax_g};
        default:
            return {false, FloatForm::ieee};
    }
}

long host_encoding() {
    return kHostIsLittleEndian ? IBMPC_ENCODING : NETWORK_ENCODING;
}

namespace {

// VAX values are 16-bit little-endian words, most significant word first.
void store_vax32(std::uint8_t* p, std::uint32_t v) {
    p[0] = static_cast<std::uint8_t>(v >> 16);
    p[1] = static_cast<std::uint8_t>(v >> 24);
    p[2] = static_cast<std::uint8_t>(v);
    p[3] = static_cast<std::uint8_t>(v >> 8);
}

void store_vax64(std::uint8_t* p, std::uint64_t v) {
    store_vax32(p, static_cast<std::uint32_t>(v >> 32));
    store_vax32(p + 4, static_cast<std::uint32_t>(v));
}

// IEEE to VAX: out-of-range magnitudes clamp to the largest finite value, tiny
// non-zero values become the smallest one; -0.0 becomes the reserved operand.
template <int kExpBits, int kFracBits, int kBias>
std::uint64_t ieee_to_vax(double x, bool negative_zero_reserved) {
    constexpr std::uint64_t kExpMax = (1ULL << kExpBits) - 1;
    constexpr std::uint64_t kFracMax = (1ULL << kFracBits) - 1;
    constexpr int kSignShift = kExpBits + kFracBits;
    const bool negative = std::signbit(x);
    const std::uint64_t sign = negative ? (1ULL << kSignShift) : 0;
    if (x == 0.0) return (negative && negative_zero_reserved) ? sign : 0;
    if (std::isnan(x) || std::isinf(x)) return sign | (kExpMax << kFracBits) | kFracMax;
    int exp2 = 0;
    const double m = std::frexp(std::fabs(x), &exp2);  // m in [0.5, 1)
    long e = exp2 + kBias;                             // value = 0.1f * 2^(e - bias)
    if (e > static_cast<long>(kExpMax)) return sign | (kExpMax << kFracBits) | kFracMax;
    if (e < 1) return sign | (1ULL << kFracBits);
    const double scaled = (m * 2.0 - 1.0) * static_cast<double>(1ULL << kFracBits);
    std::uint64_t f = static_cast<std::uint64_t>(std::nearbyint(scaled));
    if (f > kFracMax) {
        f = 0;
        if (++e > static_cast<long>(kExpMax)) return sign | (kExpMax << kFracBits) | kFracMax;
    }
    return sign | (static_cast<std::uint64_t>(e) << kFracBits) | f;
}

std::uint64_t ieee_to_vax_d(double x) {
    // D carries 55 fraction bits: take IEEE's 52 and shift left by 3.
    const std::uint64_t g = ieee_to_vax<8, 52, 128>(x, true);
    const std::uint64_t sign = g & (1ULL << 60);
    const std::uint64_t rest = g & ((1ULL << 60) - 1);
    return (sign << 3) | (rest << 3);
}

template <typename F>
void for_each_float(std::uint8_t* data, std::size_t count, long data_type, F&& convert) {
    const std::size_t size = element_size(data_type);
    const std::size_t parts = data_type == CDF_EPOCH16 ? 2 : 1;
    for (std::size_t i = 0; i < count * parts; ++i)
        convert(data + i * (size / parts), size / parts);
}

bool is_float_type(long t) {
    return t == CDF_REAL4 || t == CDF_FLOAT || t == CDF_REAL8 || t == CDF_DOUBLE ||
           t == CDF_EPOCH || t == CDF_EPOCH16;
}

}  // namespace

void decode_values(std::uint8_t* data, std::size_t count, long data_type, long file_encoding) {
    file_to_host(data, count, data_type, file_encoding);
}

void encode_values(std::uint8_t* data, std::size_t count, long data_type, long file_encoding) {
    const EncodingInfo info = encoding_info(file_encoding);
    if (info.floats != FloatForm::ieee && is_float_type(data_type)) {
        for_each_float(data, count, data_type, [&](std::uint8_t* p, std::size_t width) {
            if (width == 4) {
                float v;
                std::memcpy(&v, p, 4);
                store_vax32(p, static_cast<std::uint32_t>(ieee_to_vax<8, 23, 128>(v, true)));
            } else {
                double v;
                std::memcpy(&v, p, 8);
                store_vax64(p, info.floats == FloatForm::vax_g ? ieee_to_vax<11, 52, 1024>(v, true)
                                                               : ieee_to_vax_d(v));
            }
        });
        return;
    }
    if (info.big_endian == !kHostIsLittleEndian) return;
    swap_elements(data, count * (element_size(data_type) / swap_unit(data_type)),
                  swap_unit(data_type));
}

}  // namespace cdfgate::engine::encoding
