#include "time/leap_second_file.h"

#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <vector>

namespace cdfgate::engine::time {

namespace {

constexpr std::size_t kMaxFileBytes = 1 << 20;

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

std::optional<LeapSecondRow> parseRow(std::string_view line) {
    std::array<double, 6> v{};
    const char* p = line.data();
    const char* const end = line.data() + line.size();
    for (double& value : v) {
        while (p != end && isSpace(*p)) ++p;
        const auto [next, ec] = std::from_chars(p, end, value);
        if (ec != std::errc{} || next == p) return std::nullopt;
        p = next;
        if (p != end && !isSpace(*p)) return std::nullopt;
    }
    while (p != end && isSpace(*p)) ++p;
    if (p != end) return std::nullopt;
    return LeapSecondRow{v[0], v[1], v[2], v[3], v[4], v[5]};
}

}  // namespace

std::optional<LeapSecondTable> parseLeapSecondText(std::string_view text) {
    std::vector<LeapSecondRow> rows;
    while (!text.empty()) {
        const std::size_t eol = text.find('\n');
        const std::string_view line = text.substr(0, eol);
        text = eol == std::string_view::npos ? std::string_view{} : text.substr(eol + 1);
        if (!line.empty() && line.front() == ';') continue;
        std::optional<LeapSecondRow> row = parseRow(line);
        if (!row) return std::nullopt;
        rows.push_back(*row);
    }
    return LeapSecondTable::fromRows(std::move(rows));
}

std::optional<LeapSecondTable> readLeapSecondFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::string text;
    std::array<char, 4096> chunk{};
    while (in) {
        in.read(chunk.data(), chunk.size());
        text.append(chunk.data(), static_cast<std::size_t>(in.gcount()));
        if (text.size() > kMaxFileBytes) return std::nullopt;
    }
    if (in.bad()) return std::nullopt;
    return parseLeapSecondText(text);
}

}  // namespace cdfgate::engine::time
