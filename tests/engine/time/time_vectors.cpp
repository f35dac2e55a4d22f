#include "time_vectors.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace cdfgate::test {

namespace {

std::vector<std::string> splitFields(const std::string& line) {
    std::vector<std::string> fields;
    std::stringstream in(line);
    std::string field;
    while (std::getline(in, field, ',')) fields.push_back(field);
    if (!line.empty() && line.back() == ',') fields.emplace_back();
    return fields;
}

}  // namespace

CsvTable CsvTable::readTimeVectors(const std::string& name) {
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
        if (table.rows_.back().size() != table.header_.size()) {
            throw std::runtime_error("ragged row in " + path + ": " + line);
        }
    }
    if (table.rows_.empty()) throw std::runtime_error("no rows in " + path);
    return table;
}

const std::string& CsvTable::at(std::size_t row, std::string_view column) const {
    for (std::size_t i = 0; i < header_.size(); ++i) {
        if (header_[i] == column) return rows_.at(row)[i];
    }
    throw std::runtime_error("no column " + std::string(column));
}

double CsvTable::asDouble(std::size_t row, std::string_view column) const {
    const std::string& text = at(row, column);
    if (text.empty()) throw std::runtime_error("empty field " + std::string(column));
    return std::strtod(text.c_str(), nullptr);
}

std::int64_t CsvTable::asInt(std::size_t row, std::string_view column) const {
    const std::string& text = at(row, column);
    if (text.empty()) throw std::runtime_error("empty field " + std::string(column));
    return std::stoll(text);
}

double CsvTable::fromHex(std::size_t row, std::string_view column) const {
    return std::bit_cast<double>(
        static_cast<std::uint64_t>(std::stoull(at(row, column), nullptr, 16)));
}

std::string CsvTable::label(std::size_t row) const {
    return "id " + at(row, "id") + " (" + at(row, "group") + ")";
}

void Mismatches::checkDouble(const std::string& where, std::string_view what, double expected,
                             double actual) {
    if (sameDouble(expected, actual)) return;
    std::ostringstream text;
    text.precision(17);
    text << where << ": " << what << " expected " << expected << " (0x" << std::hex
         << std::bit_cast<std::uint64_t>(expected) << "), got " << std::dec << actual << " (0x"
         << std::hex << std::bit_cast<std::uint64_t>(actual) << ")";
    list_.push_back(text.str());
}

std::string Mismatches::summary() const {
    std::string text;
    for (std::size_t i = 0; i < list_.size() && i < 25; ++i) text += list_[i] + "\n";
    return text;
}

bool sameDouble(double expected, double actual) {
    if (std::isnan(expected)) return std::isnan(actual);
    return std::bit_cast<std::uint64_t>(expected) == std::bit_cast<std::uint64_t>(actual);
}

}  // namespace cdfgate::test
