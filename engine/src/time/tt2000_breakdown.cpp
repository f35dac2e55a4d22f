#include <algorithm>
#include <cmath>

#include "time/calendar.h"
#include "time/tt2000.h"

namespace cdfgate::engine::time {

namespace {

constexpr double kSecondsToJ2000Midnight = 63113904000.0;  // 2000-01-01T00:00:00
constexpr i64 kNsPerSecond = 1000000000;

struct SecondsAndNanos {
    i64 seconds;  // TAI-like seconds since 2000-01-01T00:00:00
    i64 nanos;
};

SecondsAndNanos normalise(i64 seconds, i64 nanos) {
    if (nanos < 0) return {wrapSub(seconds, 1), wrapAdd(nanos, kNsPerSecond)};
    return {seconds, nanos};
}

SecondsAndNanos splitNanoseconds(i64 total) {
    const i64 seconds = toInt64(toDouble(total) / 1e9);
    return normalise(seconds, wrapSub(total, wrapMul(seconds, kNsPerSecond)));
}

SecondsAndNanos splitTt2000(i64 t) {
    if (t > 0) {
        const i64 q = toInt64(toDouble(t) / 1e9);
        const i64 n = wrapSub(t, wrapMul(q, kNsPerSecond));
        return normalise(wrapAdd(wrapSub(q, 32), 43200), wrapSub(n, 184000000));
    }
    return splitNanoseconds(wrapSub(wrapAdd(t, 43200000000000), 32184000000));
}

// Before 1972 TAI-UTC depends on the UTC date being sought: guess, check by encoding
// the guess, and refine with the guess's own offset (twice at most).
CivilTime searchDriftEra(i64 t, SecondsAndNanos& sn, const LeapSecondTable& table) {
    const i64 whole = wrapAdd(wrapMul(sn.seconds, kNsPerSecond), sn.nanos);
    CivilTime guess = splitSeconds(toDouble(sn.seconds) + kSecondsToJ2000Midnight);
    for (int attempt = 0; attempt < 2; ++attempt) {
        // The nanoseconds go in as ms, us and ns: the same encoding as passing them all
        // as nanoseconds (the guess is a normalised date), without the carry work.
        const std::array<double, 9> parts{
            toDouble(guess.date.year),    toDouble(guess.date.month),
            toDouble(guess.date.day),     toDouble(guess.hour),
            toDouble(guess.minute),       toDouble(guess.second),
            toDouble(sn.nanos / 1000000), toDouble(sn.nanos / 1000 % 1000),
            toDouble(sn.nanos % 1000)};
        if (computeTt2000(parts, table) == t) break;
        const double offset = table.taiMinusUtc(guess.date.year, guess.date.month, guess.date.day);
        sn = splitNanoseconds(wrapSub(whole, toInt64(offset * 1e9)));
        guess = splitSeconds(toDouble(sn.seconds) + kSecondsToJ2000Midnight);
    }
    return guess;
}

}  // namespace

Tt2000Parts breakdownTt2000(i64 t, const LeapSecondTable& table) {
    if (t == kTt2000Fill) return {9999, 12, 31, 23, 59, 59, 999, 999, 999};
    if (t == kTt2000Pad) return {0, 1, 1, 0, 0, 0, 0, 0, 0};

    const auto starts = table.wholeSecondStarts();
    const auto after = std::upper_bound(starts.begin(), starts.end(), t);
    double offset = 0.0;
    bool inLeapSecond = false;
    if (after != starts.begin()) {
        const auto row = static_cast<std::size_t>(after - starts.begin()) - 1;
        offset = table.wholeSecondOffsets()[row];
        inLeapSecond = after != starts.end() && wrapAdd(t, kNsPerSecond) >= *after;
    }

    SecondsAndNanos sn = splitTt2000(t);
    CivilTime civil{};
    if (offset > 0.0) {
        const double seconds =
            kSecondsToJ2000Midnight + toDouble(wrapSub(sn.seconds, toInt64(offset)));
        if (inLeapSecond) {
            civil = splitSeconds(seconds - 1.0);
            civil.second = wrapAdd(civil.second, 1);
        } else {
            civil = splitSeconds(seconds);
        }
    } else {
        civil = searchDriftEra(t, sn, table);
    }

    const i64 msec = sn.nanos / 1000000;
    const double rest = toDouble(wrapSub(sn.nanos, wrapMul(1000000, msec)));
    const i64 usec = toInt64(rest / 1000.0);
    const i64 nsec = toInt64(rest - 1000.0 * toDouble(usec));
    return {toDouble(civil.date.year),
            toDouble(civil.date.month),
            toDouble(civil.date.day),
            toDouble(civil.hour),
            toDouble(civil.minute),
            toDouble(civil.second),
            toDouble(msec),
            toDouble(usec),
            toDouble(nsec)};
}

Tt2000Parts breakdownTt2000(i64 t) {
    return breakdownTt2000(t, leapSecondTable());
}

}  // namespace cdfgate::engine::time
