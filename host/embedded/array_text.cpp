#include <cstdlib>
#include <cstring>
#include <new>

#include "array_storage.h"

namespace {

std::span<const char16_t> units(const hvArray* array) {
    return {reinterpret_cast<const char16_t*>(array->bytes.get()), array->count};
}

// A unit that is one byte of text: ASCII, Latin-1, or a byte that matrix::create
// sign-extended (0xFF80 to 0xFFFF).
bool isByteUnit(char16_t unit) {
    return unit < 0x100 || unit >= 0xFF80;
}

// Any other unit becomes its UTF-8 form (a surrogate half on its own), every byte of
// which is above 127, so that no character outside ASCII can turn into an ASCII one.
std::size_t encodedLength(char16_t unit) {
    if (isByteUnit(unit)) return 1;
    return unit < 0x800 ? 2 : 3;
}

char* encode(char* out, char16_t unit) {
    if (isByteUnit(unit)) {
        *out++ = static_cast<char>(unit & 0xFF);
        return out;
    }
    if (unit < 0x800) {
        *out++ = static_cast<char>(0xC0 | (unit >> 6));
    } else {
        *out++ = static_cast<char>(0xE0 | (unit >> 12));
        *out++ = static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
    }
    *out++ = static_cast<char>(0x80 | (unit & 0x3F));
    return out;
}

}  // namespace

// Byte units are narrowed to their low byte, which undoes the sign extension of
// matrix::create; the text ends at the first NUL unit, as a C string must.
char* hvArrayToString(const hvArray* array) {
    if (array->classId != hvCHAR_CLASS) return nullptr;
    const std::span<const char16_t> text = units(array);
    std::size_t length = 0;
    for (const char16_t unit : text) length += encodedLength(unit);
    auto* const copy = static_cast<char*>(hvMalloc(length + 1));
    char* out = copy;
    for (const char16_t unit : text) out = encode(out, unit);
    *out = '\0';
    return copy;
}

void* hvMalloc(std::size_t size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void hvFree(void* pointer) noexcept {
    std::free(pointer);
}

namespace matrix {

std::u16string get_ustring(const hvArray* array) {
    if (array->classId != hvCHAR_CLASS) return {};
    const std::span<const char16_t> text = units(array);
    return std::u16string(text.begin(), text.end());
}

}  // namespace matrix
