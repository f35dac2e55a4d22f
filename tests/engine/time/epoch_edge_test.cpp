// EPOCH16 behaviour beyond the vectors: a fraction of a second just before midnight,
// and round trips over the whole calendar range.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "time_parts.h"
#include "time_vectors.h"

namespace {

using cdfgate::test::epoch16Parts;
using cdfgate::test::randomCalendar;

// The seconds keep their fraction through the split, whose chained divisions can round
// a time just before midnight up to the next day's date (the hour, minute and second
// come from separate remainders). The C interface behaves so; no vector covers it.
TEST(Epoch16Breakdown, FractionJustBeforeMidnightTakesTheNextDaysDate) {
    EXPECT_EQ(epoch16Parts({86399.999999999, 5.0}),
              (std::array<long, 10>{0, 1, 2, 23, 59, 59, 0, 0, 0, 5}));
    EXPECT_EQ(epoch16Parts({63113903999.999992, 0.0}),
              (std::array<long, 10>{2000, 1, 1, 23, 59, 59, 0, 0, 0, 0}));
}

TEST(Epoch16RoundTrip, RandomPicosecondsOfYears0To9999) {
    std::mt19937_64 random(77);
    for (int i = 0; i < 200000; ++i) {
        const auto parts = randomCalendar(random, 0, 9999);
        if (parts == std::array<long, 10>{9999, 12, 31, 23, 59, 59, 999, 999, 999, 999}) continue;
        std::array<double, 2> pair{};
        ASSERT_EQ(computeEPOCH16(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5],
                                 parts[6], parts[7], parts[8], parts[9], pair.data()),
                  0.0);
        ASSERT_EQ(epoch16Parts(pair), parts) << pair[0] << " " << pair[1];
    }
}

}  // namespace
