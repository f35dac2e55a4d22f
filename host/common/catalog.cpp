#include "hv/catalog.h"

#include <algorithm>
#include <array>
#include <utility>

namespace cdfgate::host {
namespace {

struct CatalogEntry {
    std::string_view identifier;
    std::string_view text;
};

// One "{}" per message argument, in the order the raising code supplies them.
constexpr std::array kCatalog{
    CatalogEntry{"QUORIN:imagesci:validate:argumentNotDoublePrecision",
                 "The {} argument must be of class double."},
    CatalogEntry{"QUORIN:imagesci:validate:argumentNotDoubleScalar",
                 "The {} argument must be a real scalar of class double."},
    CatalogEntry{"QUORIN:imagesci:validate:argumentNotInt64Scalar",
                 "The {} argument must be a scalar of class int64."},
    CatalogEntry{"QUORIN:imagesci:validate:argumentNotUint64Scalar",
                 "The {} argument must be a scalar of class uint64."},
    CatalogEntry{"QUORIN:imagesci:validate:argumentOutOfBounds",
                 "A numeric argument lies outside the range its parameter accepts."},
    CatalogEntry{"QUORIN:imagesci:validate:wrongNumberOfInputs",
                 "Wrong number of input arguments for this command."},
    CatalogEntry{"QUORIN:imagesci:cdflib:badDimSpec",
                 "The index vectors must each have {} elements to address variable \"{}\"."},
    CatalogEntry{"QUORIN:imagesci:cdflib:badDimensionExtent",
                 "The indices for variable \"{}\" must have {} elements."},
    CatalogEntry{"QUORIN:imagesci:cdflib:badEpoch16Modulus",
                 "EPOCH16 values come in pairs: the number of elements must be even."},
    CatalogEntry{"QUORIN:imagesci:cdflib:badPutAttrEntryDatatype",
                 "An entry of datatype {} cannot be written from a value of class {}."},
    CatalogEntry{"QUORIN:imagesci:cdflib:badTimeVector",
                 "The time components must be of class double, {} per time value."},
    CatalogEntry{"QUORIN:imagesci:cdflib:badVarianceDatatype",
                 "Variances must be given as logical values or as the constant VARY or NOVARY."},
    CatalogEntry{"QUORIN:imagesci:cdflib:cannotOmitDimSpec",
                 "The variable has dimensions, so the indices cannot be omitted."},
    CatalogEntry{"QUORIN:imagesci:cdflib:closingFileHandle",
                 "Closing the CDF files that were left open."},
    CatalogEntry{"QUORIN:imagesci:cdflib:datatypeMismatch",
                 "Data for a variable of datatype {} cannot be of class {}."},
    CatalogEntry{"QUORIN:imagesci:cdflib:fileCreateError", "The CDF file could not be created."},
    CatalogEntry{"QUORIN:imagesci:cdflib:fileOpenError", "The CDF file could not be opened."},
    CatalogEntry{"QUORIN:imagesci:cdflib:illegalEpochValue",
                 "The time components do not form a valid EPOCH value."},
    CatalogEntry{"QUORIN:imagesci:cdflib:illegalTT2000Value",
                 "The time components do not form a valid TT2000 value."},
    CatalogEntry{"QUORIN:imagesci:cdflib:invalidCharError",
                 "The text contains a character that is not ASCII."},
    CatalogEntry{"QUORIN:imagesci:cdflib:invalidCompressionParameter",
                 "{} is not a valid parameter for {} compression."},
    CatalogEntry{"QUORIN:imagesci:cdflib:invalidFileId",
                 "The file identifier does not belong to an open CDF file."},
    CatalogEntry{"QUORIN:imagesci:cdflib:invalidOperation", "\"{}\" is not a cdflib command."},
    CatalogEntry{"QUORIN:imagesci:cdflib:dimSizeTooLarge",
                 "A hyperslab count is larger than its dimension."},
    CatalogEntry{"QUORIN:imagesci:cdflib:libraryFailure", "{} failed: {}"},
    CatalogEntry{"QUORIN:imagesci:cdflib:mismatchedVarianceSize",
                 "{} dimension variances were given for {} dimensions."},
    CatalogEntry{"QUORIN:imagesci:cdflib:outOfRangeTT2000Value",
                 "The TT2000 value lies outside the range that can be broken down."},
    CatalogEntry{"QUORIN:imagesci:cdflib:unrecognizedConstantName",
                 "\"{}\" is not a known CDF constant name."},
    CatalogEntry{"QUORIN:imagesci:cdflib:unrecognizedValue", "{} is not a recognized {} value."},
    CatalogEntry{"QUORIN:imagesci:cdflib:unspecifiedGzipCompressionLevel",
                 "GZIP compression needs a level from 1 to 9."},
    CatalogEntry{"QUORIN:imagesci:cdflib:varCacheSizeOpInappropriate",
                 "Variable cache sizes apply only to files in the multi-file format."},
    CatalogEntry{"QUORIN:imagesci:cdflib:wrongNumberOfHyperPutVarDataElements",
                 "Counts {} over {} records of variable \"{}\" need {} elements."},
    CatalogEntry{"QUORIN:imagesci:cdflib:wrongNumberOfPadValueElements",
                 "The pad value of variable \"{}\" must have {} elements."},
    CatalogEntry{"QUORIN:imagesci:cdflib:wrongNumberOfPutVarDataElements",
                 "The value for variable \"{}\" must have {} elements."},
    CatalogEntry{"QUORIN:imagesci:cdflib:wrongNumberOfPutVarRecordDataElements",
                 "The record for variable \"{}\" must have {} elements."},
};

constexpr std::string_view kPlaceholder = "{}";

void appendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// UTF-8 form of UTF-16 text; an unpaired surrogate becomes U+FFFD.
std::string toUtf8(const std::u16string& text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool high = unit >= 0xD800 && unit <= 0xDBFF;
        const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            const char32_t code =
                0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[i + 1]} - 0xDC00);
            appendUtf8(out, code);
            ++i;
        } else if (high || low) {
            appendUtf8(out, 0xFFFD);
        } else {
            appendUtf8(out, unit);
        }
    }
    return out;
}

std::string argumentText(const foundation::core::msg::MessageArgument& argument) {
    if (const auto* number = std::get_if<std::int64_t>(&argument)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::string>(&argument)) return *text;
    return toUtf8(std::get<std::u16string>(argument));
}

}  // namespace

std::optional<std::string_view> messageTemplate(std::string_view identifier) {
    const auto found = std::find_if(kCatalog.begin(), kCatalog.end(), [&](const auto& entry) {
        return entry.identifier == identifier;
    });
    if (found == kCatalog.end()) return std::nullopt;
    return found->text;
}

std::vector<std::string_view> catalogIdentifiers() {
    std::vector<std::string_view> identifiers;
    identifiers.reserve(kCatalog.size());
    for (const auto& entry : kCatalog) identifiers.push_back(entry.identifier);
    return identifiers;
}

// Placeholders are filled in order; a placeholder without an argument stays as it is,
// and arguments without a placeholder follow the text in parentheses, so that a
// mismatch between raiser and catalogue shows instead of losing information.
std::string formatMessage(std::string_view identifier,
                          const foundation::core::msg::MessageArguments& arguments) {
    const std::optional<std::string_view> pattern = messageTemplate(identifier);
    std::string out;
    std::size_t used = 0;
    if (pattern) {
        std::string_view rest = *pattern;
        for (auto at = rest.find(kPlaceholder); at != std::string_view::npos;
             at = rest.find(kPlaceholder)) {
            out.append(rest.substr(0, at));
            out += used < arguments.size() ? argumentText(arguments[used++])
                                           : std::string(kPlaceholder);
            rest.remove_prefix(at + kPlaceholder.size());
        }
        out.append(rest);
    } else {
        out.append(identifier);
    }
    if (used < arguments.size()) {
        out += " (";
        for (std::size_t i = used; i < arguments.size(); ++i) {
            if (i > used) out += ", ";
            out += argumentText(arguments[i]);
        }
        out += ')';
    }
    return out;
}

}  // namespace cdfgate::host
