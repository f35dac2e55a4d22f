#include "store/stored_form.h"

#include <cstring>

#include "encoding/data_types.h"
#include "encoding/host_order.h"
#include "store/cdf_file.h"
#include "store/pad_value.h"

namespace cdfgate::engine::store {
namespace {

bool floating(long type) {
    return type == CDF_REAL4 || type == CDF_FLOAT || type == CDF_REAL8 || type == CDF_DOUBLE ||
           type == CDF_EPOCH || type == CDF_EPOCH16;
}

template <typename Bits>
void clear_negative_zeros(std::uint8_t* data, std::size_t n, Bits negative_zero) {
    for (std::size_t i = 0; i < n; ++i) {
        Bits v;
        std::memcpy(&v, data + i * sizeof(Bits), sizeof(Bits));
        if (v == negative_zero) std::memset(data + i * sizeof(Bits), 0, sizeof(Bits));
    }
}

}  // namespace

void to_stored_form(const CdfFile& cdf, const DataShape& shape, std::uint8_t* data,
                    std::int64_t values, bool positive_zeros) {
    if (encoding::is_char_type(shape.data_type)) {
        blank_after_zero(data, values, shape.value_bytes);
        return;
    }
    if (positive_zeros && floating(shape.data_type)) {
        const auto bytes = static_cast<std::size_t>(values * shape.value_bytes);
        if (shape.element_size == 4) {
            clear_negative_zeros<std::uint32_t>(data, bytes / 4, 0x80000000u);
        } else {
            clear_negative_zeros<std::uint64_t>(data, bytes / 8, 0x8000000000000000ULL);
        }
    }
    encoding::host_to_file(data, static_cast<std::size_t>(values * shape.num_elems),
                           shape.data_type, cdf.encoding());
}

void to_host_form(const CdfFile& cdf, const DataShape& shape, std::uint8_t* data,
                  std::int64_t values) {
    if (encoding::is_char_type(shape.data_type)) {
        // As the reference library reads them: blanks from a value's first zero byte.
        blank_after_zero(data, values, shape.value_bytes);
        return;
    }
    encoding::file_to_host(data, static_cast<std::size_t>(values * shape.num_elems),
                           shape.data_type, cdf.encoding());
}

}  // namespace cdfgate::engine::store
