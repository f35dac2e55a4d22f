// Text out of Octave character arrays. Octave characters are bytes (UTF-8 for
// anything beyond ASCII); each byte becomes one unit, so the ASCII converter
// refuses every non-ASCII name.
#include <string>

#include "hv/array.h"
#include "mx_cast.h"

using cdfgate::host::octave::toMx;

char* hvArrayToString(const hvArray* array) {
    if (!mxIsChar(toMx(array))) return nullptr;
    return mxArrayToString(toMx(array));
}

namespace matrix {

std::u16string get_ustring(const hvArray* array) {
    const mxArray* const chars = toMx(array);
    if (!mxIsChar(chars)) return {};
    const auto* const bytes = reinterpret_cast<const unsigned char*>(mxGetChars(chars));
    const std::size_t count = mxGetNumberOfElements(chars);
    std::u16string units(count, u'\0');
    for (std::size_t i = 0; i < count; ++i) units[i] = static_cast<char16_t>(bytes[i]);
    return units;
}

}  // namespace matrix
