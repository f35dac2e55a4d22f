#include <ostream>
#include <type_traits>

#include "cdfgate/embedded.h"

namespace cdfgate::embedded {
namespace {

constexpr std::size_t kShown = 16;

template <typename T>
void printElements(std::ostream& out, std::span<const T> elements) {
    out << " [";
    for (std::size_t i = 0; i < elements.size() && i < kShown; ++i) {
        if (i > 0) out << ' ';
        if constexpr (sizeof(T) == 1 && !std::is_same_v<T, bool>) {
            out << static_cast<int>(elements[i]);
        } else {
            out << elements[i];
        }
    }
    if (elements.size() > kShown) out << " ...";
    out << ']';
}

void printContents(std::ostream& out, const Array& array) {
    switch (array.classId()) {
        case hvDOUBLE_CLASS:
            return printElements(out, array.data<double>());
        case hvSINGLE_CLASS:
            return printElements(out, array.data<float>());
        case hvINT8_CLASS:
            return printElements(out, array.data<std::int8_t>());
        case hvUINT8_CLASS:
            return printElements(out, array.data<std::uint8_t>());
        case hvINT16_CLASS:
            return printElements(out, array.data<std::int16_t>());
        case hvUINT16_CLASS:
            return printElements(out, array.data<std::uint16_t>());
        case hvINT32_CLASS:
            return printElements(out, array.data<std::int32_t>());
        case hvUINT32_CLASS:
            return printElements(out, array.data<std::uint32_t>());
        case hvINT64_CLASS:
            return printElements(out, array.data<std::int64_t>());
        case hvUINT64_CLASS:
            return printElements(out, array.data<std::uint64_t>());
        case hvLOGICAL_CLASS:
            return printElements(out, array.data<bool>());
        case hvCHAR_CLASS:
            out << " '" << array.text() << '\'';
            return;
        case hvCELL_CLASS:
            out << " {";
            for (std::size_t i = 0; i < array.numel() && i < kShown; ++i) {
                out << (i > 0 ? ", " : "") << array.cell(i);
            }
            out << (array.numel() > kShown ? ", ...}" : "}");
            return;
        default:
            return;
    }
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Array& array) {
    if (!array.hasArray()) return out << "(no array)";
    const std::vector<std::size_t> dims = array.dims();
    for (std::size_t i = 0; i < dims.size(); ++i) out << (i > 0 ? "x" : "") << dims[i];
    out << ' ' << array.className();
    printContents(out, array);
    return out;
}

}  // namespace cdfgate::embedded
