// Reading the time vectors of the shared test data (header only: the gateway suite
// reads them too).
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace cdfgate::test {

class CsvTable {
  public:
    // Reads CDFGATE_SHARED_DATA/time/<name>; throws when the file is missing or empty.
    static CsvTable readTimeVectors(const std::string& name);

    std::size_t rowCount() const { return rows_.size(); }
    const std::string& at(std::size_t row, std::string_view column) const;
    bool empty(std::size_t row, std::string_view column) const { return at(row, column).empty(); }
    double asDouble(std::size_t row, std::string_view column) const;
    std::int64_t asInt(std::size_t row, std::string_view column) const;
    // A double given by its 16-digit hexadecimal bit pattern.
    double fromHex(std::size_t row, std::string_view column) const;
    std::string label(std::size_t row) const;  // "id <id> (<group>)"

  private:
    std::vector<std::string> header_;
    std::vector<std::vector<std::string>> rows_;
};

// Collects the mismatches of a whole file so that one failure lists them together.
class Mismatches {
  public:
    template <typename T>
    void check(const std::string& where, std::string_view what, T expected, T actual) {
        if (expected == actual) return;
        std::ostringstream text;
        text << where << ": " << what << " expected " << expected << ", got " << actual;
        list_.push_back(text.str());
    }
    void checkDouble(const std::string& where, std::string_view what, double expected,
                     double actual);
    std::size_t count() const { return list_.size(); }
    std::string summary() const;  // the first mismatches, one a line

  private:
    std::vector<std::string> list_;
};

// Same bits, or both NaN (the sign of a NaN is not part of the vectors).
bool sameDouble(double expected, double actual);

// Definitions.

namespace detail {

inline std::vector<std::string> splitFields(const std::string& line) {
    std::vector<std::string> fields;
    std::stringstream in(line);
    std::string field;
    while (std::getline(in, field, ',')) fields.push_back(field);
    if (!line.empty() && line.back() == ',') fields.emplace_back();
    return fields;
}

}  // namespace detail

inline CsvTable CsvTable::readTimeVectors(const std::string& name) {
    const std::string path = std::string(CDFGATE_SHARED_DATA) + "/time/" + name;
    std::ifstream in(path);
    if (!in) throw std::runtime_error("cannot open time vectors " + path);
    CsvTable table;
    std::string line;
    if (!std::getline(in, line)) throw std::runtime_error("empty time vectors " + path);
    table.header_ = detail::splitFields(line);
    while (std::getline(in, line)) {
        if (line.empty()) continue;
        table.rows_.push_back(detail::splitFields(line));
        if (table.rows_.back().size() != table.header_.size()) {
            throw std::runtime_error("ragged row in " + path + ": " + line);
        }
    }
    if (table.rows_.empty()) throw std::runtime_error("no rows in " + path);
    return table;
}

inline const std::string& CsvTable::at(std::size_t row, std::string_view column) const {
    for (std::size_t i = 0; i < header_.size(); ++i) {
        if (header_[i] == column) return rows_.at(row)[i];
    }
    throw std::runtime_error("no column " + std::string(column));
}

inline double CsvTable::asDouble(std::size_t row, std::string_view column) const {
    const std::string& text = at(row, column);
    if (text.empty()) throw std::runtime_error("empty field " + std::string(column));
    return std::strtod(text.c_str(), nullptr);
}

inline std::int64_t CsvTable::asInt(std::size_t row, std::string_view column) const {
    const std::string& text = at(row, column);
    if (text.empty()) throw std::runtime_error("empty field " + std::string(column));
    return std::stoll(text);
}

inline double CsvTable::fromHex(std::size_t row, std::string_view column) const {
    return std::bit_cast<double>(
        static_cast<std::uint64_t>(std::stoull(at(row, column), nullptr, 16)));
}

inline std::string CsvTable::label(std::size_t row) const {
    return "id " + at(row, "id") + " (" + at(row, "group") + ")";
}

inline void Mismatches::checkDouble(const std::string& where, std::string_view what,
                                    double expected, double actual) {
    if (sameDouble(expected, actual)) return;
    std::ostringstream text;
    text.precision(17);
    text << where << ": " << what << " expected " << expected << " (0x" << std::hex
         << std::bit_cast<std::uint64_t>(expected) << "), got " << std::dec << actual << " (0x"
         << std::hex << std::bit_cast<std::uint64_t>(actual) << ")";
    list_.push_back(text.str());
}

inline std::string Mismatches::summary() const {
    std::string text;
    for (std::size_t i = 0; i < list_.size() && i < 25; ++i) text += list_[i] + "\n";
    return text;
}

inline bool sameDouble(double expected, double actual) {
    if (std::isnan(expected)) return std::isnan(actual);
    return std::bit_cast<std::uint64_t>(expected) == std::bit_cast<std::uint64_t>(actual);
}

}  // namespace cdfgate::test
