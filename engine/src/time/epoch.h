// CDF_EPOCH: one double, milliseconds since 0000-01-01T00:00:00.000, no leap seconds.
#pragma once

#include "time/wrapping.h"

namespace cdfgate::engine::time {

inline constexpr double kIllegalEpoch = -1.0;
inline constexpr double kEpochFill = -1.0e31;

struct EpochParts {
    i64 year;
    i64 month;
    i64 day;
    i64 hour;
    i64 minute;
    i64 second;
    i64 msec;
};

// Days since 0000-01-01 of a calendar date as CDF_EPOCH and CDF_EPOCH16 read it:
// month 0 makes `day` a day of the year, a negative month counts back from the year
// before. Not range-checked; the caller rejects negative results.
i64 epochDayCount(i64 year, i64 month, i64 day);

// kIllegalEpoch for a negative year, a date before year 0 or a negative total.
double computeEpoch(const EpochParts& parts);

EpochParts epochBreakdown(double epoch);

}  // namespace cdfgate::engine::time
