#include "time/leap_second_table.h"

#include <algorithm>
#include <array>
#include <utility>

#include "time/calendar.h"
#include "time/tt2000.h"

namespace cdfgate::engine::time {

namespace {

// TAI-UTC as published by the IERS, up to the leap second at the end of 2016.
const std::vector<LeapSecondRow> kBuiltInRows{
    {1960, 1, 1, 1.4178180, 37300.0, 0.0012960},
    {1961, 1, 1, 1.4228180, 37300.0, 0.0012960},
    {1961, 8, 1, 1.3728180, 37300.0, 0.0012960},
    {1962, 1, 1, 1.8458580, 37665.0, 0.0011232},
    {1963, 11, 1, 1.9458580, 37665.0, 0.0011232},
    {1964, 1, 1, 3.2401300, 38761.0, 0.0012960},
    {1964, 4, 1, 3.3401300, 38761.0, 0.0012960},
    {1964, 9, 1, 3.4401300, 38761.0, 0.0012960},
    {1965, 1, 1, 3.5401300, 38761.0, 0.0012960},
    {1965, 3, 1, 3.6401300, 38761.0, 0.0012960},
    {1965, 7, 1, 3.7401300, 38761.0, 0.0012960},
    {1965, 9, 1, 3.8401300, 38761.0, 0.0012960},
    {1966, 1, 1, 4.3131700, 39126.0, 0.0025920},
    {1968, 2, 1, 4.2131700, 39126.0, 0.0025920},
    {1972, 1, 1, 10.0, 0.0, 0.0},
    {1972, 7, 1, 11.0, 0.0, 0.0},
    {1973, 1, 1, 12.0, 0.0, 0.0},
    {1974, 1, 1, 13.0, 0.0, 0.0},
    {1975, 1, 1, 14.0, 0.0, 0.0},
    {1976, 1, 1, 15.0, 0.0, 0.0},
    {1977, 1, 1, 16.0, 0.0, 0.0},
    {1978, 1, 1, 17.0, 0.0, 0.0},
    {1979, 1, 1, 18.0, 0.0, 0.0},
    {1980, 1, 1, 19.0, 0.0, 0.0},
    {1981, 7, 1, 20.0, 0.0, 0.0},
    {1982, 7, 1, 21.0, 0.0, 0.0},
    {1983, 7, 1, 22.0, 0.0, 0.0},
    {1985, 7, 1, 23.0, 0.0, 0.0},
    {1988, 1, 1, 24.0, 0.0, 0.0},
    {1990, 1, 1, 25.0, 0.0, 0.0},
    {1991, 1, 1, 26.0, 0.0, 0.0},
    {1992, 7, 1, 27.0, 0.0, 0.0},
    {1993, 7, 1, 28.0, 0.0, 0.0},
    {1994, 7, 1, 29.0, 0.0, 0.0},
    {1996, 1, 1, 30.0, 0.0, 0.0},
    {1997, 7, 1, 31.0, 0.0, 0.0},
    {1999, 1, 1, 32.0, 0.0, 0.0},
    {2006, 1, 1, 33.0, 0.0, 0.0},
    {2009, 1, 1, 34.0, 0.0, 0.0},
    {2012, 7, 1, 35.0, 0.0, 0.0},
    {2015, 7, 1, 36.0, 0.0, 0.0},
    {2017, 1, 1, 37.0, 0.0, 0.0},
};

i64 rowKey(const LeapSecondRow& r) {
    return 12 * toInt64(r.year) + toInt64(r.month);
}

}  // namespace

const LeapSecondTable& LeapSecondTable::builtIn() {
    static const LeapSecondTable table(kBuiltInRows);
    return table;
}

LeapSecondTable::LeapSecondTable(std::vector<LeapSecondRow> rows) : rows_(std::move(rows)) {
    for (const LeapSecondRow& r : rows_) keys_.push_back(rowKey(r));
    // Encoding a row's first instant needs only the rows and their keys, set above.
    for (std::size_t i = kDriftingRows; i < rows_.size(); ++i) {
        const LeapSecondRow& r = rows_[i];
        const std::array<double, 9> first{r.year, r.month, 1, 0, 0, 0, 0, 0, 0};
        starts_.push_back(computeTt2000(first, *this));
        offsets_.push_back(r.taiMinusUtc);
    }
}

double LeapSecondTable::taiMinusUtc(i64 year, i64 month, i64 day) const {
    const i64 key = wrapAdd(wrapMul(12, year), month);
    const auto after = std::upper_bound(keys_.begin(), keys_.end(), key);
    if (after == keys_.begin()) return 0.0;
    const auto index = static_cast<std::size_t>(after - keys_.begin()) - 1;
    const LeapSecondRow& row = rows_[index];
    if (index >= kDriftingRows) return row.taiMinusUtc;
    const double mjd = toDouble(dayNumber(year, month == 0 ? 1 : month, day)) - 2400000.5;
    return row.taiMinusUtc + (mjd - row.mjdBase) * row.driftPerDay;
}

const LeapSecondTable& leapSecondTable() {
    return LeapSecondTable::builtIn();
}

std::int32_t leapSecondLastUpdated() {
    return leapSecondTable().lastUpdated();
}

std::int32_t LeapSecondTable::lastUpdated() const {
    const LeapSecondRow& last = rows_.back();
    return static_cast<std::int32_t>(last.year * 10000 + last.month * 100 + last.day);
}

}  // namespace cdfgate::engine::time
