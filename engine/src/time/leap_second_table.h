// TAI-UTC over time: the leap-second table and the look-ups built on it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "time/wrapping.h"

namespace cdfgate::engine::time {

struct LeapSecondRow {
    double year;
    double month;
    double day;
    double taiMinusUtc;
    double mjdBase;      // drifting rows only
    double driftPerDay;  // drifting rows only
};

// Rows before this index drift daily (1960-1971); later rows hold whole seconds.
inline constexpr std::size_t kDriftingRows = 14;

class LeapSecondTable {
  public:
    // The table compiled into the engine (last row 2017-01-01).
    static const LeapSecondTable& builtIn();

    // TAI-UTC in seconds for the date as the caller wrote it (not normalised): the row
    // is chosen by 12 * year + month, drifting rows are evaluated at the day's noon.
    double taiMinusUtc(i64 year, i64 month, i64 day) const;

    // TT2000 of the first instant of each whole-second row, ascending; with their
    // TAI-UTC values. Used to break TT2000 values down.
    std::span<const i64> wholeSecondStarts() const { return starts_; }
    std::span<const double> wholeSecondOffsets() const { return offsets_; }

    std::span<const LeapSecondRow> rows() const { return rows_; }

    // YYYYMMDD of the last row: what a file records as its leap-second update date.
    std::int32_t lastUpdated() const;

  private:
    // Rows in date order, the drifting ones first.
    explicit LeapSecondTable(std::vector<LeapSecondRow> rows);

    std::vector<LeapSecondRow> rows_;
    std::vector<i64> keys_;  // 12 * year + month per row, ascending
    std::vector<i64> starts_;
    std::vector<double> offsets_;
};

// The table all conversions use: the built-in one. No file or environment variable
// can replace it.
const LeapSecondTable& leapSecondTable();

// YYYYMMDD of the last leap second row of the table in use.
std::int32_t leapSecondLastUpdated();

}  // namespace cdfgate::engine::time
