// Day limits by month for computeTt2000's validity check.
#pragma once

#include <optional>

#include "time/wrapping.h"

namespace cdfgate::engine::time {

// Largest day allowed in `month` (above 1), nullopt when no month limit applies.
std::optional<i64> tt2000MonthDayLimit(i64 month, bool leapYear);

// Cumulative day count at the end of month 1..12.
i64 cumulativeDays(int month, bool leapYear);

}  // namespace cdfgate::engine::time
