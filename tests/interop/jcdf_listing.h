// Running jcdf's CdfList on a file and reading its listing of record values.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace cdfgate::test {

// The text CdfList prints for a file (with -data: the record values too).
inline std::string jcdf_listing(const std::string& file) {
    const std::string command = std::string("'") + CDFGATE_JAVA + "' -cp '" + CDFGATE_JCDF_JAR +
                                "' uk.ac.bristol.star.cdf.util.CdfList -data '" + file + "' 2>&1";
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), &::pclose);
    if (!pipe) return {};
    std::string out;
    std::array<char, 4096> chunk{};
    for (std::size_t n; (n = std::fread(chunk.data(), 1, chunk.size(), pipe.get())) > 0;) {
        out.append(chunk.data(), n);
    }
    return out;
}

// Record lines per variable name: "Variable k: name --- ..." then "  r:\tv, v, ...".
inline std::map<std::string, std::vector<std::string>> jcdf_records(const std::string& listing) {
    std::map<std::string, std::vector<std::string>> out;
    const std::regex header(R"(^Variable \d+: (.*?)  ---  .*$)");
    const std::regex record(R"(^\{?\s*(\d+):\t(.*?)( \})?$)");
    std::istringstream in(listing);
    std::string current;
    for (std::string line; std::getline(in, line);) {
        std::smatch m;
        if (std::regex_match(line, m, header)) {
            current = m[1];
            out[current];
        } else if (!current.empty() && std::regex_match(line, m, record)) {
            out[current].push_back(m[1].str() + ": " + m[2].str());
        }
    }
    return out;
}

}  // namespace cdfgate::test
