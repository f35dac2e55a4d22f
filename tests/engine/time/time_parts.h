// The C interface's breakdowns and TT2000 encoding as arrays of components.
#pragma once

#include <array>
#include <random>

#include "cdf.h"
#include "time_vectors.h"

namespace cdfgate::test {

using Tt2000Parts = std::array<double, 9>;  // year to nanosecond

inline long long encodeTT2000(const Tt2000Parts& p) {
    return computeTT2000(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8]);
}

inline Tt2000Parts decodeTT2000(long long t) {
    Tt2000Parts p{};
    breakdownTT2000(t, &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8]);
    return p;
}

inline std::array<long, 7> epochParts(double epoch) {
    std::array<long, 7> p{};
    EPOCHbreakdown(epoch, &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6]);
    return p;
}

// The pair is rewritten by the breakdown, as the C interface does.
inline std::array<long, 10> epoch16Parts(std::array<double, 2>& pair) {
    std::array<long, 10> p{};
    EPOCH16breakdown(pair.data(), &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8],
                     &p[9]);
    return p;
}
inline std::array<long, 10> epoch16Parts(std::array<double, 2>&& pair) {
    return epoch16Parts(pair);
}

// A random valid calendar time to the picosecond, its year in [first, last].
inline std::array<long, 10> randomCalendar(std::mt19937_64& random, long first, long last) {
    const auto pick = [&](long low, long high) {
        return std::uniform_int_distribution<long>(low, high)(random);
    };
    std::array<long, 10> p{pick(first, last), pick(1, 12)};
    p[2] = pick(1, daysInMonth(p[0], p[1]));
    for (std::size_t f = 3; f < p.size(); ++f) p[f] = pick(0, f < 6 ? (f == 3 ? 23 : 59) : 999);
    return p;
}

}  // namespace cdfgate::test
