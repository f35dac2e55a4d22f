// Proleptic Gregorian calendar arithmetic shared by the three time encodings.
#pragma once

#include "time/wrapping.h"

namespace cdfgate::engine::time {

struct CivilDate {
    i64 year;
    i64 month;
    i64 day;
};

struct CivilTime {
    CivilDate date;
    i64 hour;
    i64 minute;
    i64 second;
};

// Julian day number of (year, month, day); linear in day, not normalising months.
i64 dayNumber(i64 year, i64 month, i64 day);

// Calendar date of a Julian day number already offset by 68569.
CivilDate civilFromShiftedDayNumber(i64 shifted);

// Calendar date and time of day of `seconds` since 0000-01-01T00:00:00; the fraction
// of a second is dropped.
CivilTime splitSeconds(double seconds);

}  // namespace cdfgate::engine::time
