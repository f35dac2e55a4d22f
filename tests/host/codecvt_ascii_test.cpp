#include <gtest/gtest.h>

#include "hv/i18n.h"

namespace {

TEST(CodecvtUstringToAscii, KeepsEverySevenBitUnit) {
    std::u16string all;
    std::string expected;
    for (char16_t unit = 0; unit <= 127; ++unit) {
        all += unit;
        expected += static_cast<char>(unit);
    }
    EXPECT_EQ(fl::i18n::codecvt_ustring_to_ascii()(all), expected);
    EXPECT_EQ(fl::i18n::codecvt_ustring_to_ascii()(u""), "");
}

TEST(CodecvtUstringToAscii, RefusesAnyUnitAbove127) {
    for (const char16_t unit : {char16_t{128}, char16_t{0xE9}, char16_t{0xFF}, char16_t{0x100},
                                char16_t{0xD800}, char16_t{0xFF80}, char16_t{0xFFFF}}) {
        SCOPED_TRACE(static_cast<int>(unit));
        const std::u16string text = std::u16string(u"file") + unit + u".cdf";
        EXPECT_THROW(fl::i18n::codecvt_ustring_to_ascii()(text), fl::i18n::conversion_error);
    }
}

}  // namespace
