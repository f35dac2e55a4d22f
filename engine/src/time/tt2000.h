// CDF_TIME_TT2000: signed nanoseconds of Terrestrial Time since J2000.0, converted
// from and to UTC calendar components through the leap-second table.
#pragma once

#include <array>
#include <span>

#include "time/leap_second_table.h"
#include "time/wrapping.h"

namespace cdfgate::engine::time {

inline constexpr i64 kTt2000Fill = kInt64Min;
inline constexpr i64 kTt2000Pad = kInt64Min + 1;
inline constexpr i64 kTt2000Illegal = kInt64Min + 3;

// Year, month, day, hour, minute, second, millisecond, microsecond, nanosecond.
using Tt2000Parts = std::array<double, 9>;

// `components` holds year, month and day and then up to six of the smaller fields in
// order; when fewer than six are given the last one given is spread over the rest.
// Returns kTt2000Illegal for a time that cannot be encoded.
i64 computeTt2000(std::span<const double> components, const LeapSecondTable& table);
i64 computeTt2000(std::span<const double> components);

Tt2000Parts breakdownTt2000(i64 tt2000, const LeapSecondTable& table);
Tt2000Parts breakdownTt2000(i64 tt2000);

}  // namespace cdfgate::engine::time
