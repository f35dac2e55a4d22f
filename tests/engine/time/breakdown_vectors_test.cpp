// The breakdown vectors and the leap-second table, bit for bit.
#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "time/leap_second_table.h"
#include "time_parts.h"
#include "time_vectors.h"

namespace {

using namespace cdfgate::test;

TEST(BreakdownVectors, Tt2000BreakdownMatchesEveryRow) {
    const CsvTable t = CsvTable::readTimeVectors("tt2000_breakdown.csv");
    Mismatches m;
    constexpr std::array kColumns{"year",   "month", "day",  "hour", "minute",
                                  "second", "msec",  "usec", "nsec"};
    for (std::size_t row = 0; row < t.rowCount(); ++row)
        m.checkColumns(t, row, kColumns, decodeTT2000(t.asInt(row, "tt2000")));
    EXPECT_GT(t.rowCount(), 2600u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(BreakdownVectors, EpochBreakdownMatchesEveryRow) {
    const CsvTable t = CsvTable::readTimeVectors("epoch_breakdown.csv");
    Mismatches m;
    constexpr std::array kColumns{"year", "month", "day", "hour", "minute", "second", "msec"};
    for (std::size_t row = 0; row < t.rowCount(); ++row)
        m.checkColumns(t, row, kColumns, epochParts(t.fromHex(row, "epoch_hex")));
    EXPECT_GT(t.rowCount(), 1600u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(BreakdownVectors, Epoch16BreakdownMatchesEveryRowAndRewritesThePair) {
    const CsvTable t = CsvTable::readTimeVectors("epoch16_breakdown.csv");
    Mismatches m;
    constexpr std::array kColumns{"year",   "month", "day",  "hour", "minute",
                                  "second", "msec",  "usec", "nsec", "psec_bd"};
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        std::array<double, 2> pair{t.fromHex(row, "sec_hex"), t.fromHex(row, "psec_hex")};
        m.checkColumns(t, row, kColumns, epoch16Parts(pair));
        m.checkDouble(t.label(row), "seconds after", t.fromHex(row, "sec_after_hex"), pair[0]);
        m.checkDouble(t.label(row), "picoseconds after", t.fromHex(row, "psec_after_hex"), pair[1]);
    }
    EXPECT_GT(t.rowCount(), 700u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(BreakdownVectors, BuiltInLeapSecondTableMatchesTheListedTable) {
    namespace et = cdfgate::engine::time;
    const CsvTable t = CsvTable::readTimeVectors("leap_seconds.csv");
    const et::LeapSecondTable& table = et::LeapSecondTable::builtIn();
    ASSERT_EQ(table.rows().size(), t.rowCount());
    Mismatches m;
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        const et::LeapSecondRow& r = table.rows()[row];
        m.checkColumns(
            t, row,
            std::array{"year", "month", "day", "tai_minus_utc", "mjd_base", "drift_per_day"},
            std::array{r.year, r.month, r.day, r.taiMinusUtc, r.mjdBase, r.driftPerDay});
        const std::int64_t start = t.asInt(row, "tt2000_at_start");
        m.check(t.label(row), "tt2000_at_start", start,
                std::int64_t{encodeTT2000({r.year, r.month, r.day})});
        if (row >= et::kDriftingRows) {
            m.check(t.label(row), "row start used by breakdowns", start,
                    table.wholeSecondStarts()[row - et::kDriftingRows]);
        }
    }
    EXPECT_EQ(table.lastUpdated(), 20170101);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

// A table file named by the variable the reference library reads, holding one more leap
// second, changes nothing: the engine reads no file and no environment variable.
TEST(BreakdownVectors, LeapSecondTableVariableIsIgnored) {
    namespace et = cdfgate::engine::time;
    const auto path = std::filesystem::temp_directory_path() /
                      ("cdfgate_leap_" + std::to_string(::getpid()) + ".txt");
    {
        std::ofstream file(path);
        file.precision(17);
        for (const et::LeapSecondRow& r : et::LeapSecondTable::builtIn().rows()) {
            file << r.year << ' ' << r.month << ' ' << r.day << ' ' << r.taiMinusUtc << ' '
                 << r.mjdBase << ' ' << r.driftPerDay << '\n';
        }
        file << "2030 1 1 38.0 0.0 0.0\n";
    }
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            setenv("CDF_LEAPSECONDSTABLE", path.c_str(), 1);
            const long long step =
                encodeTT2000({2030, 1, 1}) - encodeTT2000({2029, 12, 31, 23, 59, 59});
            std::exit(step == 1000000000 && et::leapSecondLastUpdated() == 20170101 ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    std::filesystem::remove(path);
}

}  // namespace
