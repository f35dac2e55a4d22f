// The breakdown vectors and the leap-second table, bit for bit.
#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "cdf.h"
#include "time/leap_second_table.h"
#include "time_vectors.h"

namespace {

using cdfgate::test::CsvTable;
using cdfgate::test::Mismatches;

TEST(BreakdownVectors, Tt2000BreakdownMatchesEveryRow) {
    const CsvTable t = CsvTable::readTimeVectors("tt2000_breakdown.csv");
    Mismatches m;
    constexpr std::array<const char*, 9> kColumns{"year",   "month", "day",  "hour", "minute",
                                                  "second", "msec",  "usec", "nsec"};
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        std::array<double, 9> out{};
        breakdownTT2000(t.asInt(row, "tt2000"), &out[0], &out[1], &out[2], &out[3], &out[4],
                        &out[5], &out[6], &out[7], &out[8]);
        for (std::size_t i = 0; i < out.size(); ++i) {
            m.checkDouble(t.label(row), kColumns[i], t.asDouble(row, kColumns[i]), out[i]);
        }
    }
    EXPECT_GT(t.rowCount(), 2600u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(BreakdownVectors, EpochBreakdownMatchesEveryRow) {
    const CsvTable t = CsvTable::readTimeVectors("epoch_breakdown.csv");
    Mismatches m;
    constexpr std::array<const char*, 7> kColumns{"year",   "month",  "day", "hour",
                                                  "minute", "second", "msec"};
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        std::array<long, 7> out{};
        EPOCHbreakdown(t.fromHex(row, "epoch_hex"), &out[0], &out[1], &out[2], &out[3], &out[4],
                       &out[5], &out[6]);
        for (std::size_t i = 0; i < out.size(); ++i) {
            m.check(t.label(row), kColumns[i], t.asInt(row, kColumns[i]), std::int64_t{out[i]});
        }
    }
    EXPECT_GT(t.rowCount(), 1600u);
    EXPECT_EQ(m.count(), 0u) << m.summary();
}

TEST(BreakdownVectors, Epoch16BreakdownMatchesEveryRowAndRewritesThePair) {
    const CsvTable t = CsvTable::readTimeVectors("epoch16_breakdown.csv");
    Mismatches m;
    constexpr std::array<const char*, 10> kColumns{"year",   "month", "day",  "hour", "minute",
                                                   "second", "msec",  "usec", "nsec", "psec_bd"};
    for (std::size_t row = 0; row < t.rowCount(); ++row) {
        std::array<double, 2> pair{t.fromHex(row, "sec_hex"), t.fromHex(row, "psec_hex")};
        std::array<long, 10> out{};
        EPOCH16breakdown(pair.data(), &out[0], &out[1], &out[2], &out[3], &out[4], &out[5], &out[6],
                         &out[7], &out[8], &out[9]);
        for (std::size_t i = 0; i < out.size(); ++i) {
            m.check(t.label(row), kColumns[i], t.asInt(row, kColumns[i]), std::int64_t{out[i]});
        }
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
        const std::string where = "row " + std::to_string(row);
        m.checkDouble(where, "year", t.asDouble(row, "year"), r.year);
        m.checkDouble(where, "month", t.asDouble(row, "month"), r.month);
        m.checkDouble(where, "day", t.asDouble(row, "day"), r.day);
        m.checkDouble(where, "tai_minus_utc", t.asDouble(row, "tai_minus_utc"), r.taiMinusUtc);
        m.checkDouble(where, "mjd_base", t.asDouble(row, "mjd_base"), r.mjdBase);
        m.checkDouble(where, "drift_per_day", t.asDouble(row, "drift_per_day"), r.driftPerDay);
        const long long start = computeTT2000(r.year, r.month, r.day, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
        m.check(where, "tt2000_at_start", t.asInt(row, "tt2000_at_start"), std::int64_t{start});
        if (row >= et::kDriftingRows) {
            m.check(where, "row start used by breakdowns", t.asInt(row, "tt2000_at_start"),
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
                computeTT2000(2030.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0) -
                computeTT2000(2029.0, 12.0, 31.0, 23.0, 59.0, 59.0, 0.0, 0.0, 0.0);
            std::exit(step == 1000000000 && et::leapSecondLastUpdated() == 20170101 ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    std::filesystem::remove(path);
}

}  // namespace
