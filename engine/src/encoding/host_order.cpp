#include "encoding/host_order.h"

#include <bit>
#include <cstring>

#include "cdf.h"
#include "encoding/data_types.h"
#include "encoding/encodings.h"
#include "encoding/vax_float.h"

namespace cdfgate::engine::encoding {
namespace {

template <typename U>
U reversed(U v) {
    if constexpr (sizeof(U) == 2) return static_cast<U>(__builtin_bswap16(v));
    if constexpr (sizeof(U) == 4) return __builtin_bswap32(v);
    if constexpr (sizeof(U) == 8) return __builtin_bswap64(v);
}

template <typename U>
void swap_one(std::uint8_t* at) {
    U v;
    std::memcpy(&v, at, sizeof(U));
    v = reversed(v);
    std::memcpy(at, &v, sizeof(U));
}

// Whole blocks of a fixed count first: loops of a known trip count vectorise
// even under the compiler's cheapest cost model.
template <typename U>
void swap_all(std::uint8_t* data, std::size_t count) {
    constexpr std::size_t kBlock = 64 / sizeof(U);
    std::size_t i = 0;
    for (; i + kBlock <= count; i += kBlock) {
        std::uint8_t* const block = data + i * sizeof(U);
        for (std::size_t j = 0; j < kBlock; ++j) swap_one<U>(block + j * sizeof(U));
    }
    for (; i < count; ++i) swap_one<U>(data + i * sizeof(U));
}

bool is_float(long t) {
    return t == CDF_REAL4 || t == CDF_FLOAT || t == CDF_REAL8 || t == CDF_DOUBLE ||
           t == CDF_EPOCH || t == CDF_EPOCH16;
}

constexpr bool kHostBig = std::endian::native == std::endian::big;

}  // namespace

void swap_bytes(std::uint8_t* data, std::size_t count, std::size_t width) {
    switch (width) {
        case 2:
            return swap_all<std::uint16_t>(data, count);
        case 4:
            return swap_all<std::uint32_t>(data, count);
        case 8:
            return swap_all<std::uint64_t>(data, count);
        default:
            return;
    }
}

bool host_form_matches(long data_type, long file_encoding) {
    const std::size_t unit = swap_unit(data_type);
    if (unit <= 1) return true;
    const EncodingInfo info = encoding_info(file_encoding);
    if (info.floats != FloatForm::ieee && is_float(data_type)) return false;
    return info.big_endian == kHostBig;
}

void file_to_host(std::uint8_t* data, std::size_t count, long data_type, long file_encoding) {
    if (host_form_matches(data_type, file_encoding)) return;
    const EncodingInfo info = encoding_info(file_encoding);
    const std::size_t units = count * (element_size(data_type) / swap_unit(data_type));
    if (info.floats != FloatForm::ieee && is_float(data_type)) {
        if (data_type == CDF_REAL4 || data_type == CDF_FLOAT) return vax_f_to_ieee(data, units);
        if (info.floats == FloatForm::vax_g) return vax_g_to_ieee(data, units);
        return vax_d_to_ieee(data, units);
    }
    swap_bytes(data, units, swap_unit(data_type));
}

void host_to_file(std::uint8_t* data, std::size_t count, long data_type, long file_encoding) {
    if (host_form_matches(data_type, file_encoding)) return;
    const EncodingInfo info = encoding_info(file_encoding);
    if (info.floats != FloatForm::ieee && is_float(data_type)) {
        encode_values(data, count, data_type, file_encoding);
        return;
    }
    swap_bytes(data, count * (element_size(data_type) / swap_unit(data_type)),
               swap_unit(data_type));
}

}  // namespace cdfgate::engine::encoding
