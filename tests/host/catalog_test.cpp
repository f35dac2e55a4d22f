#include "hv/catalog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using foundation::core::msg::MessageArguments;

struct IdentifierRow {
    const char* identifier;
    std::size_t argumentCount;
};

// Every identifier the gateway raises, with its number of message arguments.
constexpr IdentifierRow kIdentifiers[] = {
    {"QUORIN:imagesci:validate:argumentNotDoublePrecision", 1},
    {"QUORIN:imagesci:validate:argumentNotDoubleScalar", 1},
    {"QUORIN:imagesci:validate:argumentNotInt64Scalar", 1},
    {"QUORIN:imagesci:validate:argumentNotUint64Scalar", 1},
    {"QUORIN:imagesci:validate:argumentOutOfBounds", 0},
    {"QUORIN:imagesci:validate:wrongNumberOfInputs", 0},
    {"QUORIN:imagesci:cdflib:badDimSpec", 2},
    {"QUORIN:imagesci:cdflib:badDimensionExtent", 2},
    {"QUORIN:imagesci:cdflib:badEpoch16Modulus", 0},
    {"QUORIN:imagesci:cdflib:badPutAttrEntryDatatype", 2},
    {"QUORIN:imagesci:cdflib:badTimeVector", 1},
    {"QUORIN:imagesci:cdflib:badVarianceDatatype", 0},
    {"QUORIN:imagesci:cdflib:cannotOmitDimSpec", 0},
    {"QUORIN:imagesci:cdflib:closingFileHandle", 0},
    {"QUORIN:imagesci:cdflib:datatypeMismatch", 2},
    {"QUORIN:imagesci:cdflib:fileCreateError", 0},
    {"QUORIN:imagesci:cdflib:fileOpenError", 0},
    {"QUORIN:imagesci:cdflib:illegalEpochValue", 0},
    {"QUORIN:imagesci:cdflib:illegalTT2000Value", 0},
    {"QUORIN:imagesci:cdflib:invalidCharError", 0},
    {"QUORIN:imagesci:cdflib:invalidCompressionParameter", 2},
    {"QUORIN:imagesci:cdflib:invalidFileId", 0},
    {"QUORIN:imagesci:cdflib:invalidOperation", 1},
    {"QUORIN:imagesci:cdflib:libraryFailure", 2},
    // Raised from a bare identifier, without an error class of its own.
    {"QUORIN:imagesci:cdflib:dimSizeTooLarge", 0},
    {"QUORIN:imagesci:cdflib:mismatchedVarianceSize", 2},
    {"QUORIN:imagesci:cdflib:outOfRangeTT2000Value", 0},
    {"QUORIN:imagesci:cdflib:unrecognizedConstantName", 1},
    {"QUORIN:imagesci:cdflib:unrecognizedValue", 2},
    {"QUORIN:imagesci:cdflib:unspecifiedGzipCompressionLevel", 0},
    {"QUORIN:imagesci:cdflib:varCacheSizeOpInappropriate", 0},
    {"QUORIN:imagesci:cdflib:wrongNumberOfHyperPutVarDataElements", 4},
    {"QUORIN:imagesci:cdflib:wrongNumberOfPadValueElements", 2},
    {"QUORIN:imagesci:cdflib:wrongNumberOfPutVarDataElements", 2},
    {"QUORIN:imagesci:cdflib:wrongNumberOfPutVarRecordDataElements", 2},
};

std::size_t countPlaceholders(std::string_view text) {
    std::size_t count = 0;
    for (auto at = text.find("{}"); at != std::string_view::npos; at = text.find("{}", at + 2)) {
        ++count;
    }
    return count;
}

TEST(MessageCatalog, EveryIdentifierHasTextWithOnePlaceholderPerArgument) {
    for (const auto& row : kIdentifiers) {
        SCOPED_TRACE(row.identifier);
        const auto text = cdfgate::host::messageTemplate(row.identifier);
        ASSERT_TRUE(text.has_value());
        EXPECT_FALSE(text->empty());
        EXPECT_EQ(countPlaceholders(*text), row.argumentCount);
    }
}

TEST(MessageCatalog, HoldsExactlyTheIdentifiersOfTheTable) {
    std::set<std::string> expected;
    for (const auto& row : kIdentifiers) expected.insert(row.identifier);
    std::set<std::string> actual;
    for (const auto identifier : cdfgate::host::catalogIdentifiers()) {
        EXPECT_TRUE(actual.insert(std::string(identifier)).second) << "twice: " << identifier;
    }
    EXPECT_EQ(actual, expected);
    EXPECT_EQ(expected.size(), 35u);
}

TEST(MessageCatalog, LookupIsExact) {
    EXPECT_FALSE(cdfgate::host::messageTemplate("QUORIN:imagesci:cdflib:InvalidFileId"));
    EXPECT_FALSE(cdfgate::host::messageTemplate("invalidFileId"));
    EXPECT_FALSE(cdfgate::host::messageTemplate(""));
}

// Placeholder texts pinned through their arguments rather than their wording: every
// argument appears, in order, with integers in decimal.
TEST(FormatMessage, FillsEveryArgumentInOrder) {
    const std::string text = cdfgate::host::formatMessage(
        "QUORIN:imagesci:cdflib:wrongNumberOfHyperPutVarDataElements",
        {std::string("[ 3 4 ]"), std::int64_t{2}, std::string("Var1"), std::int64_t{24}});
    const auto first = text.find("[ 3 4 ]");
    const auto second = text.find('2', first + 7);
    const auto third = text.find("Var1");
    const auto fourth = text.find("24");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(third, std::string::npos);
    ASSERT_NE(fourth, std::string::npos);
    EXPECT_LT(first, second);
    EXPECT_LT(second, third);
    EXPECT_LT(third, fourth);
    EXPECT_EQ(text.find("{}"), std::string::npos);
}

TEST(FormatMessage, EmptyStringArgumentLeavesNoPlaceholder) {
    const std::string id = "QUORIN:imagesci:cdflib:invalidOperation";
    std::string expected(*cdfgate::host::messageTemplate(id));
    expected.erase(expected.find("{}"), 2);
    EXPECT_EQ(cdfgate::host::formatMessage(id, {std::string()}), expected);
}

TEST(FormatMessage, WritesUtf16ArgumentsAsUtf8) {
    const std::string text = cdfgate::host::formatMessage(
        "QUORIN:imagesci:cdflib:invalidOperation", {std::u16string(u"caf\u00e9 \U0001F600")});
    EXPECT_NE(text.find("caf\xc3\xa9 \xf0\x9f\x98\x80"), std::string::npos) << text;
    const std::string lone = cdfgate::host::formatMessage("QUORIN:imagesci:cdflib:invalidOperation",
                                                          {std::u16string(1, char16_t{0xD800})});
    EXPECT_NE(lone.find("\xef\xbf\xbd"), std::string::npos) << lone;
}

// An unknown identifier or a surplus or missing argument loses nothing.
TEST(FormatMessage, WhatCannotBePlacedIsKept) {
    EXPECT_EQ(cdfgate::host::formatMessage("X:y:z", {}), "X:y:z");
    EXPECT_EQ(cdfgate::host::formatMessage("X:y:z", {std::int64_t{7}, std::string("ab")}),
              "X:y:z (7, ab)");
    const std::string surplus = cdfgate::host::formatMessage("QUORIN:imagesci:cdflib:invalidFileId",
                                                             {std::string("extra")});
    EXPECT_NE(surplus.find("(extra)"), std::string::npos) << surplus;
    const std::string missing =
        cdfgate::host::formatMessage("QUORIN:imagesci:cdflib:libraryFailure", {std::string("F")});
    EXPECT_NE(missing.find('F'), std::string::npos);
    EXPECT_NE(missing.find("{}"), std::string::npos) << missing;
}

}  // namespace
