// The time functions of the C interface. They never fail: illegal input gives the
// documented illegal value.
#include <array>
#include <cstdarg>
#include <cstddef>

#include "cdf.h"
#include "time/epoch.h"
#include "time/epoch16.h"
#include "time/tt2000.h"

namespace t = cdfgate::engine::time;

namespace {

constexpr std::size_t kTimeFields = 6;

// Everything below the last output requested, as a fraction of that output's unit.
double shortOutputValue(const t::Tt2000Parts& p, std::size_t last) {
    const double ns = p[6] * 1e6 + p[7] * 1e3 + p[8];
    const double leap = p[5] == 60.0 ? 1e9 : 0.0;
    switch (last) {
        case 2:
            return p[2] + (p[3] * 3600e9 + p[4] * 60e9 + p[5] * 1e9 + ns) / (86400e9 + leap);
        case 3:
            return p[3] + (p[4] * 60e9 + p[5] * 1e9 + ns) / (3600e9 + leap);
        case 4:
            return p[4] + (p[5] * 1e9 + ns) / (60e9 + leap);
        case 5:
            return p[5] + ns / 1e9;
        case 6:
            return p[6] + (p[7] * 1e3 + p[8]) / 1e6;
        case 7:
            return p[7] + p[8] / 1e3;
        default:
            return p[last];
    }
}

}  // namespace

extern "C" {

double computeEPOCH(long year, long month, long day, long hour, long minute, long second,
                    long msec) {
    return t::computeEpoch({year, month, day, hour, minute, second, msec});
}

void EPOCHbreakdown(double epoch, long* year, long* month, long* day, long* hour, long* minute,
                    long* second, long* msec) {
    const t::EpochParts p = t::epochBreakdown(epoch);
    *year = p.year;
    *month = p.month;
    *day = p.day;
    *hour = p.hour;
    *minute = p.minute;
    *second = p.second;
    *msec = p.msec;
}

double computeEPOCH16(long year, long month, long day, long hour, long minute, long second,
                      long msec, long usec, long nsec, long psec, double* epoch) {
    return t::computeEpoch16({year, month, day, hour, minute, second, msec, usec, nsec, psec},
                             epoch);
}

void EPOCH16breakdown(double* epoch, long* year, long* month, long* day, long* hour, long* minute,
                      long* second, long* msec, long* usec, long* nsec, long* psec) {
    const t::Epoch16Parts p = t::epoch16Breakdown(epoch);
    *year = p.year;
    *month = p.month;
    *day = p.day;
    *hour = p.hour;
    *minute = p.minute;
    *second = p.second;
    *msec = p.msec;
    *usec = p.usec;
    *nsec = p.nsec;
    *psec = p.psec;
}

// Reads up to six more doubles after the day and stops at the first TT2000END.
long long CDF_TT2000_from_UTC_parts(double year, double month, double day, ...) {
    std::array<double, 3 + kTimeFields> parts{year, month, day};
    std::size_t count = 3;
    va_list args;
    va_start(args, day);
    while (count < parts.size()) {
        const double value = va_arg(args, double);
        if (value == TT2000END) break;
        parts[count++] = value;
    }
    va_end(args);
    return t::computeTt2000(std::span<const double>(parts.data(), count));
}

// Writes up to six more outputs after the day and stops at the first null pointer;
// the last output written carries the rest of the time as a fraction.
void CDF_TT2000_to_UTC_parts(long long tt2000, double* year, double* month, double* day, ...) {
    std::array<double*, 3 + kTimeFields> outputs{year, month, day};
    std::size_t count = 3;
    va_list args;
    va_start(args, day);
    while (count < outputs.size()) {
        double* const out = va_arg(args, double*);
        if (out == nullptr) break;
        outputs[count++] = out;
    }
    va_end(args);
    const t::Tt2000Parts parts = t::breakdownTt2000(tt2000);
    for (std::size_t i = 0; i + 1 < count; ++i) *outputs[i] = parts[i];
    *outputs[count - 1] =
        count == parts.size() ? parts[count - 1] : shortOutputValue(parts, count - 1);
}

}  // extern "C"
