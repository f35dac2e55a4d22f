#include "value_text.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "cdf.h"

namespace cdfgate::dump {
namespace {

std::string real_text(double v) {
    if (std::isnan(v)) return "nan";
    if (std::isinf(v)) return v > 0 ? "inf" : "-inf";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    return buf;
}

template <typename T>
T load(const unsigned char* p) {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

std::string one_value(long type, const unsigned char* p) {
    switch (type) {
        case CDF_INT1:
        case CDF_BYTE:
            return std::to_string(load<std::int8_t>(p));
        case CDF_INT2:
            return std::to_string(load<std::int16_t>(p));
        case CDF_INT4:
            return std::to_string(load<std::int32_t>(p));
        case CDF_INT8:
        case CDF_TIME_TT2000:
            return std::to_string(load<std::int64_t>(p));
        case CDF_UINT1:
            return std::to_string(load<std::uint8_t>(p));
        case CDF_UINT2:
            return std::to_string(load<std::uint16_t>(p));
        case CDF_UINT4:
            return std::to_string(load<std::uint32_t>(p));
        case CDF_REAL4:
        case CDF_FLOAT:
            return real_text(static_cast<double>(load<float>(p)));
        case CDF_REAL8:
        case CDF_DOUBLE:
        case CDF_EPOCH:
            return real_text(load<double>(p));
        case CDF_EPOCH16:
            return "(" + real_text(load<double>(p)) + "," + real_text(load<double>(p + 8)) + ")";
        default:
            return "?";
    }
}

}  // namespace

std::size_t element_bytes(long type) {
    switch (type) {
        case CDF_INT2:
        case CDF_UINT2:
            return 2;
        case CDF_INT4:
        case CDF_UINT4:
        case CDF_REAL4:
        case CDF_FLOAT:
            return 4;
        case CDF_INT8:
        case CDF_TIME_TT2000:
        case CDF_REAL8:
        case CDF_DOUBLE:
        case CDF_EPOCH:
            return 8;
        case CDF_EPOCH16:
            return 16;
        default:
            return 1;
    }
}

std::string quoted(const char* bytes, std::size_t length) {
    std::string out = "\"";
    for (std::size_t i = 0; i < length; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c >= 0x20 && c <= 0x7E) {
            out += static_cast<char>(c);
        } else {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\x%02x", c);
            out += buf;
        }
    }
    return out + "\"";
}

std::string type_name(long type) {
    switch (type) {
        case CDF_INT1:
            return "CDF_INT1";
        case CDF_INT2:
            return "CDF_INT2";
        case CDF_INT4:
            return "CDF_INT4";
        case CDF_INT8:
            return "CDF_INT8";
        case CDF_UINT1:
            return "CDF_UINT1";
        case CDF_UINT2:
            return "CDF_UINT2";
        case CDF_UINT4:
            return "CDF_UINT4";
        case CDF_REAL4:
            return "CDF_REAL4";
        case CDF_REAL8:
            return "CDF_REAL8";
        case CDF_EPOCH:
            return "CDF_EPOCH";
        case CDF_EPOCH16:
            return "CDF_EPOCH16";
        case CDF_TIME_TT2000:
            return "CDF_TIME_TT2000";
        case CDF_BYTE:
            return "CDF_BYTE";
        case CDF_FLOAT:
            return "CDF_FLOAT";
        case CDF_DOUBLE:
            return "CDF_DOUBLE";
        case CDF_CHAR:
            return "CDF_CHAR";
        case CDF_UCHAR:
            return "CDF_UCHAR";
        default:
            return std::to_string(type);
    }
}

void append_values(std::string& out, long type, long num_elems, const void* data,
                   std::size_t count) {
    const auto* p = static_cast<const unsigned char*>(data);
    const bool chars = type == CDF_CHAR || type == CDF_UCHAR;
    const std::size_t step = chars ? static_cast<std::size_t>(num_elems) : element_bytes(type);
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) out += ' ';
        out += chars ? quoted(reinterpret_cast<const char*>(p + i * step), step)
                     : one_value(type, p + i * step);
    }
}

}  // namespace cdfgate::dump
