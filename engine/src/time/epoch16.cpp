#include "time/epoch16.h"

#include "time/calendar.h"
#include "time/epoch.h"
#include "time/exact_fmod.h"

namespace cdfgate::engine::time {

namespace {

constexpr double kPicosecondsPerSecond = 1e12;
constexpr double kSecondsMax = 315569519999.0;
constexpr double kPicosecondsMaxAtEnd = 999999999998.0;
constexpr double kPicosecondsMax = 999999999999.0;

bool isFillTuple(const Epoch16Parts& p) {
    return p.year == 9999 && p.month == 12 && p.day == 31 && p.hour == 23 && p.minute == 59 &&
           p.second == 59 && p.msec == 999 && p.usec == 999 && p.nsec == 999 && p.psec == 999;
}

}  // namespace

double computeEpoch16(const Epoch16Parts& p, double out[2]) {
    if (isFillTuple(p)) {
        out[0] = kEpochFill;
        out[1] = kEpochFill;
        return 0.0;
    }
    if (p.year < 0) return kIllegalEpoch;
    const i64 days = epochDayCount(p.year, p.month, p.day);
    if (days < 0) return kIllegalEpoch;
    double seconds = 86400.0 * toDouble(days) + 3600.0 * toDouble(p.hour) +
                     60.0 * toDouble(p.minute) + toDouble(p.second);
    double picoseconds = toDouble(p.psec) + 1000.0 * toDouble(p.nsec) +
                         1000000.0 * toDouble(p.usec) + 1000000000.0 * toDouble(p.msec);
    if (picoseconds < 0.0 || picoseconds >= kPicosecondsPerSecond) {
        // The carry goes through a 32-bit integer, as it always has.
        const double carried = toDouble(toInt32(picoseconds / kPicosecondsPerSecond));
        const double rest = picoseconds - carried * kPicosecondsPerSecond;
        if (picoseconds < 0.0 && rest != 0.0) {
            seconds = (seconds + carried) - 1.0;
            picoseconds = kPicosecondsPerSecond + rest;
        } else {
            seconds = seconds + carried;
            picoseconds = rest != 0.0 ? rest : 0.0;
        }
    }
    out[0] = seconds;
    out[1] = picoseconds;
    return seconds < 0.0 ? kIllegalEpoch : 0.0;
}

Epoch16Parts epoch16Breakdown(double pair[2]) {
    if (pair[0] == kEpochFill && pair[1] == kEpochFill) {
        return {9999, 12, 31, 23, 59, 59, 999, 999, 999, 999};
    }
    if (pair[0] < 0.0) pair[0] = -pair[0];
    if (pair[1] < 0.0) pair[1] = -pair[1];
    if (kSecondsMax < pair[0]) pair[0] = kSecondsMax;
    const double psecMax = pair[0] == kSecondsMax ? kPicosecondsMaxAtEnd : kPicosecondsMax;
    if (psecMax < pair[1]) pair[1] = psecMax;

    const CivilTime t = splitSeconds(pair[0]);
    const double p = pair[1];
    const i64 psec = toInt64(exactFmod(p, 1000));
    const double n = p / 1000.0;
    const i64 nsec = toInt64(exactFmod(n, 1000));
    const double u = n / 1000.0;
    const i64 usec = toInt64(exactFmod(u, 1000));
    const i64 msec = toInt64(u / 1000.0);
    return {t.date.year, t.date.month, t.date.day, t.hour, t.minute,
            t.second,    msec,         usec,       nsec,   psec};
}

}  // namespace cdfgate::engine::time
