#include "hv/i18n.h"

namespace fl::i18n {

std::string codecvt_ustring_to_ascii::operator()(const std::u16string& text) const {
    std::string ascii;
    ascii.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit > 127) {
            throw conversion_error("character " + std::to_string(static_cast<unsigned>(unit)) +
                                   " at position " + std::to_string(i) + " has no ASCII form");
        }
        ascii += static_cast<char>(unit);
    }
    return ascii;
}

}  // namespace fl::i18n
