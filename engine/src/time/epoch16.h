// CDF_EPOCH16: two doubles, whole seconds since 0000-01-01T00:00:00 and picoseconds
// within that second.
#pragma once

#include "time/wrapping.h"

namespace cdfgate::engine::time {

struct Epoch16Parts {
    i64 year;
    i64 month;
    i64 day;
    i64 hour;
    i64 minute;
    i64 second;
    i64 msec;
    i64 usec;
    i64 nsec;
    i64 psec;
};

// Returns 0.0, or -1.0 for an illegal time. `out` is left untouched for a negative
// year or a date before year 0, and holds the (negative) pair for a negative total.
double computeEpoch16(const Epoch16Parts& parts, double out[2]);

// Breaks down the pair and, as the C interface does, writes the magnitudes and the
// clamped values back into it.
Epoch16Parts epoch16Breakdown(double pair[2]);

}  // namespace cdfgate::engine::time
