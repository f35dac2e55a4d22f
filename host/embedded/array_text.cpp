#include <cstdlib>
#include <cstring>
#include <new>

#include "array_storage.h"

namespace {

std::span<const char16_t> units(const hvArray* array) {
    return {reinterpret_cast<const char16_t*>(array->bytes.get()), array->count};
}

}  // namespace

// Units are narrowed to their low byte, which undoes the sign extension of
// matrix::create; the text ends at the first NUL unit, as a C string must.
char* hvArrayToString(const hvArray* array) {
    if (array->classId != hvCHAR_CLASS) return nullptr;
    const std::span<const char16_t> text = units(array);
    auto* copy = static_cast<char*>(hvMalloc(text.size() + 1));
    for (std::size_t i = 0; i < text.size(); ++i) copy[i] = static_cast<char>(text[i] & 0xFF);
    copy[text.size()] = '\0';
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
