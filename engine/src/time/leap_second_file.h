// Reading a leap-second table from its text form: lines of six numbers (year, month,
// day, TAI-UTC, drift base MJD, drift per day); lines starting with ';' are comments.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "time/leap_second_table.h"

namespace cdfgate::engine::time {

// nullopt unless every line parses and the rows form a usable table.
std::optional<LeapSecondTable> parseLeapSecondText(std::string_view text);

// nullopt when the file cannot be read, is too large or is not a usable table.
std::optional<LeapSecondTable> readLeapSecondFile(const std::string& path);

}  // namespace cdfgate::engine::time
