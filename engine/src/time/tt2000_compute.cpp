#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <optional>

#include "time/calendar.h"
#include "time/tt2000.h"
#include "time/tt2000_month_limit.h"

namespace cdfgate::engine::time {

namespace {

constexpr std::size_t kTimeFields = 6;  // hour, minute, second, msec, usec, nsec
constexpr double kDaysJ2000 = 2451545.0;
constexpr i64 kNsPerDay = 86400000000000;

// Working fields of one conversion, as doubles until they are known to be whole.
struct Fields {
    double year;
    double month;
    double day;
    std::array<double, kTimeFields> time;  // hour .. nsec
};

struct Normalised {
    i64 year;
    i64 month;
    i64 day;
};

bool isIntegral(double x) {
    return x - std::floor(x) == 0.0;
}

i64 monthOrJanuary(i64 month) {
    return month == 0 ? 1 : month;
}

// Per-field factor from the next larger field (hour from day: 24).
constexpr std::array<double, kTimeFields> kSpreadFactor{24.0, 60.0, 60.0, 1000.0, 1000.0, 1000.0};

// Spreads the fraction `f` of the field before `first` over the fields from `first` on.
void spreadFraction(std::array<double, kTimeFields>& time, std::size_t first, double f) {
    for (std::size_t i = first; i < kTimeFields; ++i) {
        f = f * kSpreadFactor[i];
        if (i + 1 == kTimeFields) {
            time[i] = f;
        } else {
            time[i] = std::floor(f);
            f = f - std::floor(f);
        }
    }
}

// Step 1: the fields from the components; nullopt when the time is illegal.
std::optional<Fields> readFields(std::span<const double> c) {
    const std::size_t given = c.size() - 3;
    Fields f{std::floor(c[0]), std::floor(c[1]), std::floor(c[2]), {}};
    if (given == 0) {
        const double fraction = c[2] - f.day;
        if (fraction > 0.0) spreadFraction(f.time, 0, fraction);
        return f;
    }
    for (std::size_t i = 0; i < given; ++i) {
        if (c[3 + i] < 0.0) return std::nullopt;
    }
    if (!isIntegral(c[2])) return std::nullopt;
    const std::size_t whole = given == kTimeFields ? kTimeFields - 1 : given - 1;
    for (std::size_t i = 0; i < whole; ++i) {
        if (!isIntegral(c[3 + i])) return std::nullopt;
        f.time[i] = c[3 + i];
    }
    if (given == kTimeFields) {
        f.time[kTimeFields - 1] = c[3 + kTimeFields - 1];
        return f;
    }
    const std::size_t last = given - 1;
    const double value = c[3 + last];
    if (last == 0 && !(value > 0.0)) return f;  // hour: zero or NaN leaves 00:00:00
    f.time[last] = std::floor(value);
    const double fraction = value - std::floor(value);
    if (last == 1 && !(fraction > 0.0)) return f;
    spreadFraction(f.time, last + 1, fraction);
    return f;
}

class Carrier {
  public:
    Carrier(Fields& fields, const LeapSecondTable& table) : f_(fields), table_(table) {}

    // Step 2: carries from the nanoseconds up to the hours. Returns the normalised
    // date when any carry happened.
    std::optional<Normalised> run() {
        auto& t = f_.time;
        if (t[5] >= 1000.0) {
            carry(5, {86400000000000.0, 3600000000000.0, 60000000000.0, 1000000000.0, 1000000.0,
                      1000.0});
        }
        if (t[4] >= 1000.0) carry(4, {86400000000.0, 3600000000.0, 60000000.0, 1000000.0, 1000.0});
        if (t[3] >= 1000.0) carry(3, {86400000.0, 3600000.0, 60000.0, 1000.0});
        if (t[2] >= 60.0) {
            const double extra = toDouble(leapSecondsAtEndOfDay());
            if (t[2] >= 60.0 + extra) carry(2, {86400.0 + extra, 3600.0 + extra, 60.0 + extra});
        }
        if (t[1] >= 60.0) carry(1, {1440.0, 60.0});
        if (t[0] >= 24.0) carry(0, {24.0});
        return normalised_;
    }

  private:
    i64 dateDayNumber() const {
        return dayNumber(toInt64(f_.year), monthOrJanuary(toInt64(f_.month)), toInt64(f_.day));
    }

    // 1 on the last day before a positive leap second, else 0.
    std::int32_t leapSecondsAtEndOfDay() const {
        const double j = toDouble(dateDayNumber());
        const CivilDate next = civilFromShiftedDayNumber(toInt64(j + 1.0 + 68569.0));
        const double before =
            table_.taiMinusUtc(toInt64(f_.year), toInt64(f_.month), toInt64(f_.day));
        return toInt32(table_.taiMinusUtc(next.year, next.month, next.day) - before);
    }

    // Moves whole units of field `index` into the larger fields: units[0] is one day,
    // the following ones one hour, minute, ... down to one unit of the field above it.
    void carry(std::size_t index, std::initializer_list<double> units) {
        double& field = f_.time[index];
        const std::size_t n = units.size();
        std::size_t u = 0;
        for (const double unit : units) {
            const double q = std::floor(field / unit);
            field = field - q * unit;
            if (u == 0) {
                f_.day = f_.day + q;
            } else {
                double& larger = f_.time[index + u - n];
                larger = larger + q;
            }
            ++u;
        }
        const CivilDate d = civilFromShiftedDayNumber(toInt64(toDouble(dateDayNumber()) + 68569.0));
        normalised_ = Normalised{d.year, d.month, d.day};
    }

    Fields& f_;
    const LeapSecondTable& table_;
    std::optional<Normalised> normalised_;
};

bool isLeapYear(i64 year) {
    return (year & 3) == 0 && (year % 25 != 0 || (year & 15) == 0);
}

// Step 5: checks the date and resolves a day of the year; false when illegal.
bool validateDate(Normalised& d) {
    if (d.year < 1708 || d.year > 2291) {
        if (!(d.year > 0 && d.month >= 0 && d.day >= 0)) return false;
        const double j = toDouble(dayNumber(d.year, monthOrJanuary(d.month), d.day));
        if (!(2344793.0 <= j && j <= 2558297.0)) return false;
    }
    const bool leap = isLeapYear(d.year);
    if (d.day > (leap ? 366 : 365)) return false;
    if (d.month > 1) {
        const std::optional<i64> limit = tt2000MonthDayLimit(d.month, leap);
        if (limit && d.day > *limit) return false;
    } else if (d.day > 31) {
        int month = 1;
        while (cumulativeDays(month, leap) < d.day) ++month;
        d.day -= cumulativeDays(month - 1, leap);
        d.month = month;
    }
    return true;
}

}  // namespace

i64 computeTt2000(std::span<const double> components, const LeapSecondTable& table) {
    if (components.size() < 3 || components.size() > 3 + kTimeFields) return kTt2000Illegal;
    std::optional<Fields> read = readFields(components);
    if (!read) return kTt2000Illegal;
    Fields& f = *read;
    Normalised date = Carrier(f, table).run().value_or(
        Normalised{toInt64(f.year), toInt64(f.month), toInt64(f.day)});
    std::array<i64, kTimeFields> t{};
    for (std::size_t i = 0; i < kTimeFields; ++i) t[i] = toInt64(f.time[i]);

    const bool allZeroTime = t == std::array<i64, kTimeFields>{0, 0, 0, 0, 0, 0};
    if (date.year == 9999 && date.month == 12 && date.day == 31 &&
        t == std::array<i64, kTimeFields>{23, 59, 59, 999, 999, 999}) {
        return kTt2000Fill;
    }
    if (date.year == 0 && date.month == 1 && date.day == 1 && allZeroTime) return kTt2000Pad;

    if (!validateDate(date)) return kTt2000Illegal;

    const double offset = table.taiMinusUtc(date.year, date.month, date.day);
    const double j =
        toDouble(dayNumber(date.year, monthOrJanuary(date.month), date.day)) - kDaysJ2000;
    i64 sub = wrapMul(t[0], 3600000000000);
    sub = wrapAdd(sub, wrapMul(t[1], 60000000000));
    sub = wrapAdd(sub, wrapMul(t[2], 1000000000));
    sub = wrapAdd(sub, wrapMul(t[3], 1000000));
    sub = wrapAdd(sub, wrapMul(t[4], 1000));
    sub = wrapAdd(sub, t[5]);
    i64 result = wrapAdd(wrapMul(toInt64(j), kNsPerDay), sub);
    result = wrapAdd(result, toInt64(offset * 1e9));
    return wrapSub(wrapAdd(result, 32184000000), 43200000000000);
}

i64 computeTt2000(std::span<const double> components) {
    return computeTt2000(components, leapSecondTable());
}

}  // namespace cdfgate::engine::time
