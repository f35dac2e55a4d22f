#include "encoding/data_types.h"

#include <cstring>

#include "cdf.h"

namespace cdfgate::engine::encoding {

std::size_t element_size(long data_type) {
    switch (data_type) {
        case CDF_INT1:
        case CDF_UINT1:
        case CDF_BYTE:
        case CDF_CHAR:
        case CDF_UCHAR:
            return 1;
        case CDF_INT2:
        case CDF_UINT2:
            return 2;
        case CDF_INT4:
        case CDF_UINT4:
        case CDF_REAL4:
        case CDF_FLOAT:
            return 4;
        case CDF_INT8:
        case CDF_REAL8:
        case CDF_DOUBLE:
        case CDF_EPOCH:
        case CDF_TIME_TT2000:
            return 8;
        case CDF_EPOCH16:
            return 16;
        default:
            return 0;
    }
}

bool is_known_type(long data_type) {
    return element_size(data_type) != 0;
}

bool is_char_type(long data_type) {
    return data_type == CDF_CHAR || data_type == CDF_UCHAR;
}

bool is_v3_only_type(long data_type) {
    return data_type == CDF_INT8 || data_type == CDF_EPOCH16 || data_type == CDF_TIME_TT2000;
}

std::size_t swap_unit(long data_type) {
    return data_type == CDF_EPOCH16 ? 8 : element_size(data_type);
}

namespace {

template <typename T>
void fill(std::vector<std::uint8_t>& out, T value, long count) {
    out.resize(sizeof(T) * static_cast<std::size_t>(count));
    for (long i = 0; i < count; ++i) std::memcpy(out.data() + i * sizeof(T), &value, sizeof(T));
}

}  // namespace

std::vector<std::uint8_t> default_pad(long data_type, long num_elems, bool v2_file) {
    std::vector<std::uint8_t> out;
    const long n = num_elems < 1 ? 1 : num_elems;
    if (is_char_type(data_type)) {
        out.assign(static_cast<std::size_t>(n), ' ');
        return out;
    }
    if (v2_file) {
        out.assign(element_size(data_type) * static_cast<std::size_t>(n), 0);
        return out;
    }
    switch (data_type) {
        case CDF_INT1:
        case CDF_BYTE:
            fill<std::int8_t>(out, -127, n);
            break;
        case CDF_INT2:
            fill<std::int16_t>(out, -32767, n);
            break;
        case CDF_INT4:
            fill<std::int32_t>(out, -2147483647, n);
            break;
        case CDF_INT8:
        case CDF_TIME_TT2000:
            fill<std::int64_t>(out, -9223372036854775807LL, n);
            break;
        case CDF_UINT1:
            fill<std::uint8_t>(out, 254, n);
            break;
        case CDF_UINT2:
            fill<std::uint16_t>(out, 65534, n);
            break;
        case CDF_UINT4:
            fill<std::uint32_t>(out, 4294967294U, n);
            break;
        case CDF_REAL4:
        case CDF_FLOAT:
            fill<float>(out, -1.0e30f, n);
            break;
        case CDF_REAL8:
        case CDF_DOUBLE:
            fill<double>(out, -1.0e30, n);
            break;
        default:  // EPOCH, EPOCH16: zeros
            out.assign(element_size(data_type) * static_cast<std::size_t>(n), 0);
            break;
    }
    return out;
}

}  // namespace cdfgate::engine::encoding
