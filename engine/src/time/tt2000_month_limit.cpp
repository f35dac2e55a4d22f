#include "time/tt2000_month_limit.h"

#include <array>

#include "time/leap_second_table.h"

namespace cdfgate::engine::time {

namespace {

constexpr std::array<i64, 12> kLeapLengths{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<i64, 12> kCommonLengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<i64, 12> kLeapCumulative{31,  60,  91,  121, 152, 182,
                                              213, 244, 274, 305, 335, 366};
constexpr std::array<i64, 12> kCommonCumulative{31,  59,  90,  120, 151, 181,
                                                212, 243, 273, 304, 334, 365};
constexpr i64 kTableCells = 42 * 6;

}  // namespace

// Months above 12 keep the limits files written so far were checked against: the
// month-length look-up runs on through the tables stored after it (common lengths,
// leap and common cumulative counts, then one cell per leap-second table value, where
// a zero cell allows no day). Past those, only the year-length limit applies.
std::optional<i64> tt2000MonthDayLimit(i64 month, bool leapYear) {
    if (month < 1 || month > 48 + kTableCells) return std::nullopt;
    const i64 position = month - 1 + (leapYear ? 0 : 12);
    if (position < 12) return kLeapLengths[static_cast<std::size_t>(position)];
    if (position < 24) return kCommonLengths[static_cast<std::size_t>(position - 12)];
    if (position < 36) return kLeapCumulative[static_cast<std::size_t>(position - 24)];
    if (position < 48) return kCommonCumulative[static_cast<std::size_t>(position - 36)];
    if (position < 48 + kTableCells) {
        const i64 cell = position - 48;
        const bool zeroCell = cell / 6 >= static_cast<i64>(kDriftingRows) && cell % 6 >= 4;
        if (zeroCell) return 0;
    }
    return std::nullopt;
}

i64 cumulativeDays(int month, bool leapYear) {
    const auto index = static_cast<std::size_t>(month - 1);
    return leapYear ? kLeapCumulative[index] : kCommonCumulative[index];
}

}  // namespace cdfgate::engine::time
