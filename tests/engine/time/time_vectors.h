// Reading the time vectors of the shared test data.
#pragma once

#include <cstdint>
#include <sstream>
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

}  // namespace cdfgate::test
