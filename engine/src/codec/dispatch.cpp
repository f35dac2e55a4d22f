#include "codec/dispatch.h"

#include "codec/adaptive_huffman.h"
#include "codec/gzip.h"
#include "codec/huffman.h"
#include "codec/rle.h"

namespace cdfgate::engine::codec {

std::optional<Method> method_of_type(int type) noexcept {
    switch (type) {
        case 1:
            return Method::Rle;
        case 2:
            return Method::Huff;
        case 3:
            return Method::Ahuff;
        case 5:
            return Method::Gzip;
        default:
            return std::nullopt;
    }
}

bool valid_parameter(Method method, int parameter) noexcept {
    if (method == Method::Gzip) return parameter >= kGzipMinLevel && parameter <= kGzipMaxLevel;
    return parameter == 0;
}

Result encode(Method method, int parameter, ByteView in, std::vector<std::uint8_t>& out) noexcept {
    switch (method) {
        case Method::Rle:
            return rle_encode(in, out);
        case Method::Huff:
            return huff_encode(in, out);
        case Method::Ahuff:
            return ahuff_encode(in, out);
        case Method::Gzip:
            return gzip_compress(in, parameter, out);
    }
    return Result::BadParameter;
}

Result decode(Method method, ByteView in, MutableBytes out) noexcept {
    switch (method) {
        case Method::Rle:
            return rle_decode(in, out);
        case Method::Huff:
            return huff_decode(in, out);
        case Method::Ahuff:
            return ahuff_decode(in, out);
        case Method::Gzip:
            return gzip_decompress(in, out);
    }
    return Result::BadParameter;
}

Result decode(Method method, ByteView in, std::vector<std::uint8_t>& out,
              std::size_t max_size) noexcept {
    switch (method) {
        case Method::Rle:
            return rle_decode(in, out, max_size);
        case Method::Huff:
            return huff_decode(in, out, max_size);
        case Method::Ahuff:
            return ahuff_decode(in, out, max_size);
        case Method::Gzip:
            return gzip_decompress(in, out, max_size);
    }
    return Result::BadParameter;
}

}  // namespace cdfgate::engine::codec
