#include "time/epoch.h"

#include <bit>
#include <cstdint>

#include "time/calendar.h"
#include "time/exact_fmod.h"

namespace cdfgate::engine::time {

namespace {

constexpr i64 kDayNumberOfYearZero = 1721060;
// Largest value that breaks down normally: 9999-12-31 23:59:59.998.
constexpr double kEpochMax = 315569519999998.0;

bool isFillTuple(const EpochParts& p) {
    return p.year == 9999 && p.month == 12 && p.day == 31 && p.hour == 23 && p.minute == 59 &&
           p.second == 59 && p.msec == 999;
}

}  // namespace

i64 epochDayCount(i64 year, i64 month, i64 day) {
    if (month == 0) {
        return wrapSub(wrapAdd(dayNumber(year, 1, 1), wrapSub(day, 1)), kDayNumberOfYearZero);
    }
    if (month < 0) {
        year = wrapSub(year, 1);
        month = wrapAdd(month, 13);
    }
    return wrapSub(dayNumber(year, month, day), kDayNumberOfYearZero);
}

double computeEpoch(const EpochParts& p) {
    if (isFillTuple(p)) return kEpochFill;
    if (p.year < 0) return kIllegalEpoch;
    const i64 days = epochDayCount(p.year, p.month, p.day);
    if (days < 0) return kIllegalEpoch;
    const double ms = 3600000.0 * toDouble(p.hour) + 60000.0 * toDouble(p.minute) +
                      1000.0 * toDouble(p.second) + toDouble(p.msec);
    const double result = 86400000.0 * toDouble(days) + ms;
    return result < 0.0 ? kIllegalEpoch : result;
}

EpochParts epochBreakdown(double epoch) {
    if (epoch == kEpochFill) return {9999, 12, 31, 23, 59, 59, 999};
    if (std::bit_cast<std::uint64_t>(epoch) == 0x8000000000000000ULL) return {0, 0, 0, 0, 0, 0, 0};
    if (epoch < 0.0) epoch = -epoch;
    if (kEpochMax < epoch) epoch = kEpochMax;
    // The fraction of a millisecond stays in the split, as in the C interface: a time
    // in the last millisecond of a day can round up to the next day's date there.
    const CivilTime t = splitSeconds(epoch / 1000.0);
    const double msec = exactFmod(epoch, 1000);
    return {t.date.year, t.date.month, t.date.day, t.hour, t.minute, t.second, toInt64(msec)};
}

}  // namespace cdfgate::engine::time
