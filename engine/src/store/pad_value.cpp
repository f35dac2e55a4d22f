#include "store/pad_value.h"

#include <algorithm>
#include <cstring>

#include "encoding/data_types.h"
#include "encoding/host_order.h"
#include "store/cdf_file.h"

namespace cdfgate::engine::store {

bool uses_old_default_pads(const CdfFile& cdf) {
    const format::Cdr& cdr = cdf.cdr();
    return !cdf.v3() || (cdr.version == 3 && cdr.release < 5);
}

std::vector<std::uint8_t> stored_pad(const CdfFile& cdf, const Variable& var) {
    const format::Vdr& vdr = var.vdr;
    const std::size_t bytes =
        encoding::element_size(vdr.data_type) * static_cast<std::size_t>(vdr.num_elems);
    if (var.has_pad() && vdr.pad.size() == bytes) return vdr.pad;
    std::vector<std::uint8_t> pad =
        encoding::default_pad(vdr.data_type, vdr.num_elems, uses_old_default_pads(cdf));
    encoding::host_to_file(pad.data(), static_cast<std::size_t>(vdr.num_elems), vdr.data_type,
                           cdf.encoding());
    return pad;
}

void fill_values(std::uint8_t* out, std::int64_t count, const std::vector<std::uint8_t>& pad) {
    const std::size_t size = pad.size();
    if (count <= 0 || size == 0) return;
    std::memcpy(out, pad.data(), size);
    // Double the filled prefix until the whole range is covered.
    auto filled = static_cast<std::size_t>(1);
    const auto total = static_cast<std::size_t>(count);
    while (filled < total) {
        const std::size_t n = filled < total - filled ? filled : total - filled;
        std::memcpy(out + filled * size, out, n * size);
        filled += n;
    }
}

void blank_after_zero(std::uint8_t* values, std::int64_t count, std::int64_t value_bytes) {
    for (std::int64_t v = 0; v < count; ++v) {
        std::uint8_t* const value = values + v * value_bytes;
        std::uint8_t* const end = value + value_bytes;
        std::fill(std::find(value, end, std::uint8_t{0}), end, std::uint8_t{' '});
    }
}

}  // namespace cdfgate::engine::store
