#include "time/calendar.h"
#include "time/exact_fmod.h"

#include <cmath>

namespace cdfgate::engine::time {

namespace {
constexpr i64 kDayNumberOfYearZero = 1721060;
constexpr i64 kCivilShift = 68569;
}  // namespace

i64 dayNumber(i64 year, i64 month, i64 day) {
    const i64 a = wrapMul(367, year);
    const i64 b = wrapMul(7, wrapAdd(year, wrapAdd(month, 9) / 12)) / 4;
    const i64 c = wrapMul(3, wrapAdd(wrapAdd(year, wrapSub(month, 9) / 7) / 100, 1)) / 4;
    const i64 d = wrapMul(275, month) / 9;
    return wrapAdd(wrapAdd(wrapAdd(wrapSub(wrapSub(a, b), c), d), day), 1721029);
}

CivilDate civilFromShiftedDayNumber(i64 shifted) {
    i64 l = shifted;
    const i64 n = wrapMul(4, l) / 146097;
    l = wrapSub(l, wrapAdd(wrapMul(146097, n), 3) / 4);
    const i64 i = wrapMul(4000, wrapAdd(l, 1)) / 1461001;
    l = wrapAdd(wrapSub(l, wrapMul(1461, i) / 4), 31);
    const i64 j = wrapMul(80, l) / 2447;
    const i64 day = wrapSub(l, wrapMul(2447, j) / 80);
    l = j / 11;
    const i64 month = wrapSub(wrapAdd(j, 2), wrapMul(12, l));
    const i64 year = wrapAdd(wrapAdd(wrapMul(100, wrapSub(n, 49)), i), l);
    return {year, month, day};
}

CivilTime splitSeconds(double seconds) {
    const double minutes = seconds / 60.0;
    const double hours = minutes / 60.0;
    const double days = hours / 24.0;
    const i64 shifted =
        wrapAdd(toInt64(static_cast<double>(kDayNumberOfYearZero) + days), kCivilShift);
    return {civilFromShiftedDayNumber(shifted), toInt64(exactFmod(hours, 24)),
            toInt64(exactFmod(minutes, 60)), toInt64(exactFmod(seconds, 60))};
}

}  // namespace cdfgate::engine::time
