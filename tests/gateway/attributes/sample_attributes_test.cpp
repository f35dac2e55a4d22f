// The attributes of the shared sample files, read through the gateway, against the
// attribute lines of their expected dumps. Files with rVariables are read in zMode 2,
// so their rEntries are read as zEntries.
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "variables/scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using embedded::call;
using embedded::HostError;

std::string dumpQuoted(const std::string& bytes) {
    std::string out = "\"";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte >= 0x20 && byte <= 0x7E) {
            out += c;
        } else {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
            out += escaped;
        }
    }
    return out + "\"";
}

// The gateway returns character entries up to their first zero byte, so an expected
// character value (the only kind written in quotes after the colon) is cut there too.
std::string cutCharacterValueAtZero(const std::string& line) {
    const std::size_t value = line.find(": \"");
    const std::size_t zero = value == std::string::npos ? value : line.find("\\x00", value);
    return zero == std::string::npos ? line : line.substr(0, zero) + "\"";
}

template <typename T>
std::string joined(const Array& value, std::size_t group = 1) {
    std::string out;
    const std::span<const T> elements = value.data<T>();
    for (std::size_t i = 0; i + group <= elements.size(); i += group) {
        if (!out.empty()) out += ' ';
        for (std::size_t k = 0; k < group; ++k) {
            const T element = elements[i + k];
            std::string text = std::to_string(element);
            if constexpr (std::is_floating_point_v<T>) {
                char real[40];
                std::snprintf(real, sizeof real, "%.17g", static_cast<double>(element));
                text = std::isnan(element) ? "nan" : real;
            }
            // EPOCH16 values are written as pairs "(seconds,picoseconds)".
            out += group == 1 ? text : (k == 0 ? "(" : ",") + text + (k + 1 == group ? ")" : "");
        }
    }
    return out;
}

// The elements as the dump writes them, whichever of the classes T the value has.
template <typename... T>
std::string joinedAs(const Array& value, std::size_t group) {
    std::string out;
    const bool known = ((value.classId() == embedded::detail::ClassOf<T>::value &&
                         (out = joined<T>(value, group), true)) ||
                        ...);
    if (!known) ADD_FAILURE() << "unexpected class " << value.className();
    return out;
}

std::string values(const Array& value, const std::string& type) {
    if (value.classId() == hvCHAR_CLASS) return dumpQuoted(value.text());
    return joinedAs<std::int8_t, std::int16_t, std::int32_t, std::int64_t, std::uint8_t,
                    std::uint16_t, std::uint32_t, float, double>(value,
                                                                 type == "CDF_EPOCH16" ? 2 : 1);
}

std::vector<std::string> expectedAttributeLines(const std::filesystem::path& dump) {
    std::ifstream in(dump);
    EXPECT_TRUE(in.good()) << "missing " << dump;
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("attributes ") || line.starts_with("attribute ")) {
            lines.push_back(line);
        } else if (line.starts_with("  entry ")) {
            lines.push_back(cutCharacterValueAtZero(line));
        }
    }
    return lines;
}

std::string variableName(CDFid id, long number) {
    char name[CDF_VAR_NAME_LEN256 + 1] = {};
    EXPECT_EQ(CDFlib(SELECT_, CDF_, id, SELECT_, zVAR_, number, GET_, zVAR_NAME_, name, NULL_),
              CDF_OK);
    return name;
}

std::string upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// The attribute lines of the dump, made with the gateway's commands.
std::vector<std::string> gatewayAttributeLines(const ScratchCdf& cdf) {
    const Array& id = cdf.id();
    const auto count = [&](const char* command, std::vector<Array> inputs) {
        inputs.insert(inputs.begin(), id);
        return static_cast<long>(call(command, inputs).at(0).scalarValue());
    };
    const long global = count("getNumgAttributes", {});
    const long variable = count("getNumvAttributes", {});
    std::vector<std::string> lines{"attributes " + std::to_string(global + variable) + " global " +
                                   std::to_string(global) + " variable " +
                                   std::to_string(variable)};
    for (long a = 0; a < global + variable; ++a) {
        const Array attr = Array::scalar(static_cast<double>(a));
        const std::vector<Array> inquiry = call("inquireAttr", {id, attr}, 4);
        const bool isGlobal = inquiry.at(1) == Array::text("GLOBAL_SCOPE");
        const long maxEntry = static_cast<long>(inquiry.at(isGlobal ? 2 : 3).scalarValue());
        // The other kind's maximum is -1: rEntries of old files count as zEntries only.
        EXPECT_EQ(inquiry.at(isGlobal ? 3 : 2), Array::scalar(-1));
        EXPECT_EQ(count(isGlobal ? "getAttrMaxgEntry" : "getAttrMaxEntry", {attr}), maxEntry);
        EXPECT_EQ(call("getAttrName", {id, attr}).at(0), inquiry[0]);
        EXPECT_EQ(call("getAttrScope", {id, attr}).at(0), inquiry[1]);
        EXPECT_EQ(count("getAttrNum", {inquiry[0]}), a);
        const long entries = count(isGlobal ? "getNumAttrgEntries" : "getNumAttrEntries", {attr});
        lines.push_back("attribute " + std::to_string(a) + " " + dumpQuoted(inquiry[0].text()) +
                        (isGlobal ? " GLOBAL" : " VARIABLE") + " entries " +
                        std::to_string(entries) + " maxentry " + std::to_string(maxEntry));
        const char* inquirer = isGlobal ? "inquireAttrgEntry" : "inquireAttrEntry";
        const char* reader = isGlobal ? "getAttrgEntry" : "getAttrEntry";
        const std::string inquiryFunction =
            isGlobal ? "CDFinquireAttrgEntry" : "CDFinquireAttrzEntry";
        for (long e = 0; e <= maxEntry; ++e) {
            const Array entry = Array::scalar(static_cast<double>(e));
            std::vector<Array> shape;
            try {
                shape = call(inquirer, {id, attr, entry}, 2);
            } catch (const HostError& error) {
                // Entry numbers without an entry are skipped, as the dump skips them.
                EXPECT_EQ(error.arguments(), failure(inquiryFunction, NO_SUCH_ENTRY));
                continue;
            }
            if (!isGlobal) {
                expectHostError(
                    [&] {
                        call("getAttrgEntry", {id, attr, entry});
                    },
                    cdflibId("libraryFailure"), failure("CDFinquireAttrgEntry", ILLEGAL_FOR_SCOPE));
            }
            const std::string type = upper(shape.at(0).text());
            std::string line = "  entry " + std::to_string(e) + " ";
            if (!isGlobal) line += dumpQuoted(variableName(cdf.handle(), e)) + " ";
            line += type + " " + std::to_string(static_cast<long>(shape.at(1).scalarValue())) +
                    ": " + values(call(reader, {id, attr, entry}).at(0), type);
            lines.push_back(line);
        }
    }
    return lines;
}

class SampleAttributes : public ::testing::TestWithParam<const char*> {};

TEST_P(SampleAttributes, ReadAsTheExpectedDumpListsThem) {
    const std::string name = std::string("samples/") + GetParam();
    const ScratchCdf cdf(name);
    const std::vector<std::string> expected = expectedAttributeLines(
        std::filesystem::path(CDFGATE_SHARED_DATA) / (name + ".expected.txt"));
    ASSERT_FALSE(expected.empty());
    const std::vector<std::string> actual = gatewayAttributeLines(cdf);
    for (std::size_t i = 0; i < std::min(expected.size(), actual.size()); ++i) {
        ASSERT_EQ(actual[i], expected[i]) << "line " << i;
    }
    EXPECT_EQ(actual.size(), expected.size());
}

INSTANTIATE_TEST_SUITE_P(
    Samples, SampleAttributes,
    ::testing::Values("a_cdf.cdf", "a_cdf_with_compressed_vars.cdf", "a_rle_compressed_cdf.cdf",
                      "a_sparse_cdf.cdf", "ac_h2_sis_20101105_v06.cdf",
                      "ac_k2_mfi_20220101_v03.cdf", "d103a2x.cdf", "de2_ion2s_rpa_19830213_v01.cdf",
                      "demoData.cdf", "erg_pwe_hfa_l3_1min_00000000_v01.cdf", "example1.cdf",
                      "fragmented.cdf", "ge_k0_cpi_19921231_v02.cdf", "geocpi0.cdf", "mms1.cdf",
                      "psp_fld_l2_mag_rtn_1min_20200104_v02.cdf",
                      "psp_isois-epilo_l2-ic_20190401_v0.0.0.cdf", "rvariable.cdf",
                      "solo_l2_rpw-lfr-surv-swf-e_00000000_v01.cdf", "test.cdf",
                      "thg_l2_mag_mek_00000000_v01.cdf",
                      "uy_proton-distributions_swoops_00000000_v01.cdf"),
    [](const ::testing::TestParamInfo<const char*>& info) {
        std::string name = info.param;
        name = name.substr(0, name.size() - 4);
        for (char& c : name) {
            if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
        }
        return name;
    });

}  // namespace
}  // namespace cdfgate::testing
