// Reading the time vectors of the shared test data (header only: the gateway suite
// reads them too).
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace cdfgate::test {

// Same bits, or both NaN (the sign of a NaN is not part of the vectors).
inline bool sameDouble(double expected, double actual) {
    if (std::isnan(expected)) return std::isnan(actual);
    return std::bit_cast<std::uint64_t>(expected) == std::bit_cast<std::uint64_t>(actual);
}

inline int daysInMonth(long year, long month) {
    static constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

class CsvTable {
  public:
    // Reads CDFGATE_SHARED_DATA/time/<name>; throws when the file is missing or empty.
    static CsvTable readTimeVectors(const std::string& name) {
        const std::string path = std::string(CDFGATE_SHARED_DATA) + "/time/" + name;
        std::ifstream in(path);
        if (!in) throw std::runtime_error("cannot open time vectors " + path);
        CsvTable table;
        std::string line;
        if (!std::getline(in, line)) throw std::runtime_error("empty time vectors " + path);
        table.header_ = splitFields(line);
        while (std::getline(in, line)) {
            if (line.empty()) continue;
            table.rows_.push_back(splitFields(line));
            if (table.rows_.back().size() != table.header_.size())
                throw std::runtime_error("ragged row in " + path + ": " + line);
        }
        if (table.rows_.empty()) throw std::runtime_error("no rows in " + path);
        return table;
    }

    std::size_t rowCount() const { return rows_.size(); }
    const std::string& at(std::size_t row, std::string_view column) const {
        for (std::size_t i = 0; i < header_.size(); ++i)
            if (header_[i] == column) return rows_.at(row)[i];
        throw std::runtime_error("no column " + std::string(column));
    }
    bool empty(std::size_t row, std::string_view column) const { return at(row, column).empty(); }
    double asDouble(std::size_t row, std::string_view column) const {
        return std::strtod(nonEmpty(row, column).c_str(), nullptr);
    }
    std::int64_t asInt(std::size_t row, std::string_view column) const {
        return std::stoll(nonEmpty(row, column));
    }
    // A double given by its 16-digit hexadecimal bit pattern.
    double fromHex(std::size_t row, std::string_view column) const {
        return std::bit_cast<double>(
            static_cast<std::uint64_t>(std::stoull(at(row, column), nullptr, 16)));
    }
    // "id <id> (<group>)", or "row <n>" in a table without ids.
    std::string label(std::size_t row) const {
        if (std::find(header_.begin(), header_.end(), "id") == header_.end())
            return "row " + std::to_string(row);
        return "id " + at(row, "id") + " (" + at(row, "group") + ")";
    }

  private:
    static std::vector<std::string> splitFields(const std::string& line) {
        std::vector<std::string> fields;
        std::stringstream in(line);
        std::string field;
        while (std::getline(in, field, ',')) fields.push_back(field);
        if (!line.empty() && line.back() == ',') fields.emplace_back();
        return fields;
    }
    const std::string& nonEmpty(std::size_t row, std::string_view column) const {
        const std::string& text = at(row, column);
        if (text.empty()) throw std::runtime_error("empty field " + std::string(column));
        return text;
    }

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
                     double actual) {
        if (sameDouble(expected, actual)) return;
        std::ostringstream text;
        text.precision(17);
        text << where << ": " << what << " expected " << expected << " (0x" << std::hex
             << std::bit_cast<std::uint64_t>(expected) << "), got " << std::dec << actual << " (0x"
             << std::hex << std::bit_cast<std::uint64_t>(actual) << ")";
        list_.push_back(text.str());
    }
    // Checks each named column of a row against the values a function gave.
    template <typename Columns, typename Values>
    void checkColumns(const CsvTable& t, std::size_t row, const Columns& columns,
                      const Values& values) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if constexpr (std::is_floating_point_v<typename Values::value_type>) {
                checkDouble(t.label(row), columns[i], t.asDouble(row, columns[i]), values[i]);
            } else {
                check(t.label(row), columns[i], t.asInt(row, columns[i]), std::int64_t{values[i]});
            }
        }
    }
    std::size_t count() const { return list_.size(); }
    std::string summary() const {  // the first mismatches, one a line
        std::string text;
        for (std::size_t i = 0; i < list_.size() && i < 25; ++i) text += list_[i] + "\n";
        return text;
    }

  private:
    std::vector<std::string> list_;
};

}  // namespace cdfgate::test
