#include "variables/character_data.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace cdfgate::gateway {

matrix::array_ptr createCharArray(std::span<const std::size_t> dims, std::span<const char> bytes) {
    matrix::array_ptr array = matrix::detail::do_create_char(dims);
    if (hvGetNumberOfElements(array.get()) != bytes.size()) {
        throw std::logic_error("character array shape does not match its data");
    }
    if (bytes.empty()) return array;
    if (hvGetElementSize(array.get()) == 1) {
        std::memcpy(hvGetData(array.get()), bytes.data(), bytes.size());
        return array;
    }
    auto* units = hvGetTypedData<char16_t>(array.get());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        units[i] =
            static_cast<char16_t>(static_cast<std::int16_t>(static_cast<signed char>(bytes[i])));
    }
    return array;
}

ByteBuffer charsToBytes(const hvArray* array, std::size_t count) {
    if (hvGetNumberOfElements(array) < count) {
        throw std::logic_error("character array holds fewer characters than requested");
    }
    ByteBuffer bytes(count);
    if (count == 0) return bytes;
    if (hvGetElementSize(array) == 1) {
        std::memcpy(bytes.data(), hvGetData(array), count);
        return bytes;
    }
    const auto* units = hvGetTypedData<const char16_t>(array);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(units[i] & 0xFF);
    return bytes;
}

}  // namespace cdfgate::gateway
