// Files that the engine writes read back the same through jcdf: attributes with
// entries of every data type, and variables of every data type and several
// shapes, listed with jcdf's CdfList and compared line by line with a listing
// built from the values written.
#include <gtest/gtest.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cdf.h"

namespace {

namespace fs = std::filesystem;

struct TypeInfo {
    long code;
    const char* name;  // as jcdf names it
    std::size_t size;
};

constexpr TypeInfo kTypes[] = {
    {CDF_INT1, "INT1", 1},   {CDF_INT2, "INT2", 2},        {CDF_INT4, "INT4", 4},
    {CDF_INT8, "INT8", 8},   {CDF_UINT1, "UINT1", 1},      {CDF_UINT2, "UINT2", 2},
    {CDF_UINT4, "UINT4", 4}, {CDF_REAL4, "REAL4", 4},      {CDF_REAL8, "REAL8", 8},
    {CDF_EPOCH, "EPOCH", 8}, {CDF_EPOCH16, "EPOCH16", 16}, {CDF_TIME_TT2000, "TIME_TT2000", 8},
    {CDF_BYTE, "BYTE", 1},   {CDF_FLOAT, "FLOAT", 4},      {CDF_DOUBLE, "DOUBLE", 8},
    {CDF_CHAR, "CHAR", 1},   {CDF_UCHAR, "UCHAR", 1},
};

constexpr long kChars = 3;  // elements of the character types

bool is_char(long type) {
    return type == CDF_CHAR || type == CDF_UCHAR;
}

// Value k of a type: bytes in host form, and the text jcdf prints for it.
struct Value {
    std::vector<std::uint8_t> bytes;
    std::string text;
};

template <typename T>
std::vector<std::uint8_t> bytes_of(T v) {
    std::vector<std::uint8_t> out(sizeof v);
    std::memcpy(out.data(), &v, sizeof v);
    return out;
}

template <typename T>
std::string java_real(T v) {
    char buf[64];
    const auto end = std::to_chars(buf, buf + sizeof buf, v).ptr;
    std::string text(buf, end);
    if (text.find('.') == std::string::npos) text += ".0";
    return text;
}

std::string two(long v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02ld", v);
    return buf;
}

std::string three(long v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%03ld", v);
    return buf;
}

std::string date_time(long y, long mo, long d, long h, long mi, long s) {
    return std::to_string(y) + "-" + two(mo) + "-" + two(d) + "T" + two(h) + ":" + two(mi) + ":" +
           two(s);
}

Value value(long type, int k) {
    switch (type) {
        case CDF_INT1:
        case CDF_BYTE: {
            const auto v = static_cast<std::int8_t>(k * 37 - 100);
            return {bytes_of(v), std::to_string(v)};
        }
        case CDF_INT2: {
            const auto v = static_cast<std::int16_t>(k * 1000 - 30000);
            return {bytes_of(v), std::to_string(v)};
        }
        case CDF_INT4:
            return {bytes_of<std::int32_t>(k * 100000 - 2000000),
                    std::to_string(k * 100000 - 2000000)};
        case CDF_INT8: {
            const std::int64_t v = std::int64_t{k} * 3000000000LL - 9000000000LL;
            return {bytes_of(v), std::to_string(v)};
        }
        case CDF_UINT1: {
            const auto v = static_cast<std::uint8_t>(200 + k);
            return {bytes_of(v), std::to_string(v)};
        }
        case CDF_UINT2: {
            const auto v = static_cast<std::uint16_t>(60000 + k);
            return {bytes_of(v), std::to_string(v)};
        }
        case CDF_UINT4: {
            const std::uint32_t v = 4000000000U + static_cast<std::uint32_t>(k);
            return {bytes_of(v), std::to_string(v)};
        }
        case CDF_REAL4:
        case CDF_FLOAT: {
            const float v = static_cast<float>(k) * 0.75f - 3.5f;
            return {bytes_of(v), java_real(v)};
        }
        case CDF_REAL8:
        case CDF_DOUBLE: {
            const double v = static_cast<double>(k) * 1.25 - 7.0;
            return {bytes_of(v), java_real(v)};
        }
        case CDF_EPOCH: {
            const double v = computeEPOCH(2001 + k, 2, 3, 4, 5, 6, 7 + k);
            long y, mo, d, h, mi, s, ms;
            EPOCHbreakdown(v, &y, &mo, &d, &h, &mi, &s, &ms);
            return {bytes_of(v), date_time(y, mo, d, h, mi, s) + "." + three(ms)};
        }
        case CDF_EPOCH16: {
            double v[2];
            computeEPOCH16(1999 + k, 12, 31, 23, 59, 58, 1, 2, 3, 4 + k, v);
            long y, mo, d, h, mi, s, ms, us, ns, ps;
            EPOCH16breakdown(v, &y, &mo, &d, &h, &mi, &s, &ms, &us, &ns, &ps);
            std::vector<std::uint8_t> b(16);
            std::memcpy(b.data(), v, 16);
            return {b, date_time(y, mo, d, h, mi, s) + "." + three(ms) + three(us) + three(ns) +
                           three(ps)};
        }
        case CDF_TIME_TT2000: {
            const long long v = CDF_TT2000_from_UTC_parts(2016.0 + k, 12.0, 31.0, 23.0, 59.0, 59.0,
                                                          123.0, 456.0, 789.0);
            double y, mo, d, h, mi, s, ms, us, ns;
            CDF_TT2000_to_UTC_parts(v, &y, &mo, &d, &h, &mi, &s, &ms, &us, &ns);
            const auto l = [](double x) { return static_cast<long>(x); };
            return {bytes_of(v), date_time(l(y), l(mo), l(d), l(h), l(mi), l(s)) + "." +
                                     three(l(ms)) + three(l(us)) + three(l(ns))};
        }
        default: {  // CDF_CHAR, CDF_UCHAR: three letters
            std::string s(kChars, ' ');
            for (long i = 0; i < kChars; ++i) s[i] = static_cast<char>('a' + (k * 3 + i) % 26);
            return {std::vector<std::uint8_t>(s.begin(), s.end()), s};
        }
    }
}

// Values k0 .. k0+n-1, concatenated, and their jcdf text joined by ", ".
std::pair<std::vector<std::uint8_t>, std::string> values(long type, int k0, int n) {
    std::vector<std::uint8_t> bytes;
    std::string text;
    for (int k = k0; k < k0 + n; ++k) {
        const Value v = value(type, k);
        bytes.insert(bytes.end(), v.bytes.begin(), v.bytes.end());
        text += (k == k0 ? "" : ", ") + v.text;
    }
    return {bytes, text};
}

struct Shape {
    std::vector<long> dims;
    bool rec_vary;
};

std::string header_line(long number, const std::string& name, const TypeInfo& t, const Shape& s) {
    std::string line = "Variable " + std::to_string(number) + ": " + name + "  ---  " + t.name +
                       " (z) " + std::to_string(s.dims.size()) + ":[";
    for (std::size_t d = 0; d < s.dims.size(); ++d) {
        line += (d ? "," : "") + std::to_string(s.dims[d]);
    }
    line += std::string("] ") + (s.rec_vary ? "T" : "F") + "/" + std::string(s.dims.size(), 'T');
    return line;
}

std::string run_jcdf(const std::string& file) {
    const std::string command = std::string("'") + CDFGATE_JAVA + "' -cp '" + CDFGATE_JCDF_JAR +
                                "' uk.ac.bristol.star.cdf.util.CdfList -data '" + file + "' 2>&1";
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe) return "";
    std::string out;
    char buf[4096];
    for (std::size_t n; (n = std::fread(buf, 1, sizeof buf, pipe.get())) > 0;) out.append(buf, n);
    return out;
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) out.push_back(line);
    while (!out.empty() && out.back().empty()) out.pop_back();
    return out;
}

TEST(JcdfInterop, ReaderAndPathsAreAvailable) {
    EXPECT_TRUE(fs::exists(CDFGATE_JAVA)) << "java runtime not found";
    EXPECT_TRUE(fs::exists(CDFGATE_JCDF_JAR)) << "jcdf.jar not found";
}

bool in_version2(long type) {
    return type != CDF_INT8 && type != CDF_EPOCH16 && type != CDF_TIME_TT2000;
}

// Writes every type (those of version 2 files only when backward) and compares
// jcdf's listing with the values written.
void write_and_compare(bool backward) {
    CDFsetFileBackward(backward ? BACKWARDFILEon : BACKWARDFILEoff);
    const fs::path dir =
        fs::temp_directory_path() / (backward ? "cdfgate-interop2" : "cdfgate-interop");
    fs::remove_all(dir);
    fs::create_directories(dir);
    const std::string base = (dir / "all").string();
    CDFid id = nullptr;
    ASSERT_EQ(CDFcreateCDF(const_cast<char*>(base.c_str()), &id), CDF_OK);

    std::ostringstream want;
    want << "Global Attributes\n-----------------\n    Types\n";
    long attr = -1;
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "Types", GLOBAL_SCOPE, &attr, NULL_), CDF_OK);
    long entry = 0;
    for (const TypeInfo& t : kTypes) {
        if (backward && !in_version2(t.code)) continue;
        const int n = is_char(t.code) ? 1 : 2;
        auto [bytes, text] = values(t.code, static_cast<int>(entry), n);
        const long elems = is_char(t.code) ? kChars : n;
        ASSERT_EQ(CDFputAttrEntry(id, 1, attr, entry, t.code, elems, bytes.data()), CDF_OK)
            << t.name;
        want << "        " << text << "\n";
        ++entry;
    }
    want << "\n";

    long units = -1;
    ASSERT_EQ(CDFlib(CREATE_, ATTR_, "UNITS", VARIABLE_SCOPE, &units, NULL_), CDF_OK);
    const Shape shapes[] = {{{}, true}, {{3}, true}, {{2, 3}, true}, {{2}, false}};
    long number = 0;
    for (const TypeInfo& t : kTypes) {
        if (backward && !in_version2(t.code)) continue;
        for (const Shape& s : shapes) {
            const std::string name = std::string(t.name) + "_" + std::to_string(s.dims.size()) +
                                     (s.rec_vary ? "" : "_nrv");
            const std::vector<long> varys(s.dims.size(), VARY);
            long var = -1;
            ASSERT_EQ(CDFlib(CREATE_, zVAR_, name.c_str(), t.code, is_char(t.code) ? kChars : 1L,
                             static_cast<long>(s.dims.size()), s.dims.data(),
                             s.rec_vary ? VARY : NOVARY, varys.data(), &var, NULL_),
                      CDF_OK)
                << name;
            ASSERT_EQ(var, number);
            const std::string header = header_line(number, name, t, s);
            want << header << "\n" << std::string(header.size(), '-') << "\n";
            if (number % 3 == 0) {
                const std::string unit = "u" + std::to_string(number);
                ASSERT_EQ(
                    CDFputAttrEntry(id, 3, units, var, CDF_CHAR, static_cast<long>(unit.size()),
                                    const_cast<char*>(unit.c_str())),
                    CDF_OK);
                want << "    UNITS:\t" << unit << "\n";
            }
            int per_record = 1;
            for (const long d : s.dims) per_record *= static_cast<int>(d);
            const int records = s.rec_vary ? 2 : 1;
            for (int r = 0; r < records; ++r) {
                auto [bytes, text] =
                    values(t.code, r * per_record + static_cast<int>(number), per_record);
                ASSERT_EQ(CDFputVarRecordData(id, 1, var, r, bytes.data()), CDF_OK) << name;
                want << (s.rec_vary ? "  " : "{ ") << r << ":\t" << text << (s.rec_vary ? "" : " }")
                     << "\n";
            }
            want << "\n";
            ++number;
        }
    }
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);

    const auto got = lines(run_jcdf(base + ".cdf"));
    const auto expected = lines(want.str());
    for (std::size_t i = 0; i < std::min(got.size(), expected.size()); ++i) {
        ASSERT_EQ(got[i], expected[i]) << "line " << i + 1;
    }
    EXPECT_EQ(got.size(), expected.size());
    fs::remove_all(dir);
}

TEST(JcdfInterop, EveryTypeAndShapeReadsBackTheSame) {
    write_and_compare(false);
    CDFsetFileBackward(BACKWARDFILEoff);
}

TEST(JcdfInterop, VersionTwoFilesReadBackTheSame) {
    write_and_compare(true);
    CDFsetFileBackward(BACKWARDFILEoff);
}

}  // namespace
