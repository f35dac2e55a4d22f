// The leap-second table: the built-in one, external tables and their rejection.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "time/leap_second_file.h"
#include "time/leap_second_table.h"
#include "time/tt2000.h"

namespace {

namespace et = cdfgate::engine::time;

std::string builtInText() {
    std::string text = "; Year Month Day TAI-UTC Base Rate\n";
    for (const et::LeapSecondRow& r : et::LeapSecondTable::builtIn().rows()) {
        std::array<char, 160> line{};
        std::snprintf(line.data(), line.size(), "  %.0f %.0f %.0f %.17g %.17g %.17g\n", r.year,
                      r.month, r.day, r.taiMinusUtc, r.mjdBase, r.driftPerDay);
        text += line.data();
    }
    return text;
}

const std::string kExtraRow = "2030 1 1 38.0 0.0 0.0\n";

std::string writeTemp(const std::string& name, const std::string& text) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("cdfgate_leap_" + std::to_string(::getpid()) + "_" + name);
    std::ofstream(path) << text;
    return path.string();
}

TEST(LeapSecondTable, BuiltInTableEndsAt2017) {
    EXPECT_EQ(et::LeapSecondTable::builtIn().lastUpdated(), 20170101);
    EXPECT_EQ(et::LeapSecondTable::builtIn().taiMinusUtc(2100, 6, 1), 37.0);
    EXPECT_EQ(et::LeapSecondTable::builtIn().taiMinusUtc(1959, 12, 31), 0.0);
}

TEST(LeapSecondTable, TextOfTheBuiltInTableGivesTheSameConversions) {
    const auto table = et::parseLeapSecondText(builtInText());
    ASSERT_TRUE(table.has_value());
    const std::array<double, 9> parts{1965, 6, 15, 3, 4, 5, 6, 7, 8};
    EXPECT_EQ(et::computeTt2000(parts, *table),
              et::computeTt2000(parts, et::LeapSecondTable::builtIn()));
    EXPECT_EQ(table->lastUpdated(), 20170101);
}

TEST(LeapSecondTable, AnAddedRowMakesANewLeapSecond) {
    const auto table = et::parseLeapSecondText(builtInText() + kExtraRow);
    ASSERT_TRUE(table.has_value());
    EXPECT_EQ(table->lastUpdated(), 20300101);
    const std::array<double, 9> leap{2029, 12, 31, 23, 59, 60, 0, 0, 0};
    const std::int64_t t = et::computeTt2000(leap, *table);
    EXPECT_EQ(et::breakdownTt2000(t, *table), (et::Tt2000Parts{2029, 12, 31, 23, 59, 60, 0, 0, 0}));
    const std::array<double, 9> after{2030, 1, 1, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(
        et::computeTt2000(after, *table) - et::computeTt2000(after, et::LeapSecondTable::builtIn()),
        1000000000);
}

struct MalformedCase {
    const char* name;
    std::string text;
};

TEST(LeapSecondTable, MalformedTextIsRejected) {
    const std::string good = builtInText();
    const std::array<MalformedCase, 8> cases{{
        {"blank line", good + "\n" + kExtraRow},
        {"five numbers", good + "2030 1 1 38.0 0.0\n"},
        {"trailing text", good + "2030 1 1 38.0 0.0 0.0 x\n"},
        {"not a number", good + "2030 1 one 38.0 0.0 0.0\n"},
        {"month 13", good + "2030 13 1 38.0 0.0 0.0\n"},
        {"out of order", good + "2016 1 1 38.0 0.0 0.0\n"},
        {"too few rows", "1972 1 1 10.0 0.0 0.0\n1972 7 1 11.0 0.0 0.0\n"},
        {"not finite", good + "2030 1 1 inf 0.0 0.0\n"},
    }};
    for (const MalformedCase& c : cases) {
        EXPECT_FALSE(et::parseLeapSecondText(c.text).has_value()) << c.name;
    }
}

TEST(LeapSecondTable, CommentsAndCarriageReturnsAreAccepted) {
    std::string text = "; header\r\n";
    for (char c : builtInText()) {
        if (c == '\n') text += '\r';
        text += c;
    }
    EXPECT_TRUE(et::parseLeapSecondText(text).has_value());
}

TEST(LeapSecondTable, MissingFileIsRejected) {
    EXPECT_FALSE(et::readLeapSecondFile("/nonexistent/leap_seconds.txt").has_value());
}

// The table in use is chosen once per process, so each case runs in a fresh one.
class LeapSecondEnvironment : public ::testing::Test {
  protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(LeapSecondEnvironment, MalformedExternalTableFallsBackToTheBuiltInOne) {
    const std::string path = writeTemp("bad.txt", builtInText() + "2030 1 x\n");
    EXPECT_EXIT(
        {
            setenv("CDF_LEAPSECONDSTABLE", path.c_str(), 1);
            const bool ok = et::leapSecondTableSource() == et::LeapTableSource::rejected &&
                            et::leapSecondLastUpdated() == 20170101 &&
                            &et::leapSecondTable() == &et::LeapSecondTable::builtIn();
            std::exit(ok ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    std::filesystem::remove(path);
}

TEST_F(LeapSecondEnvironment, WellFormedExternalTableIsUsed) {
    const std::string path = writeTemp("good.txt", builtInText() + kExtraRow);
    EXPECT_EXIT(
        {
            setenv("CDF_LEAPSECONDSTABLE", path.c_str(), 1);
            const bool ok = et::leapSecondTableSource() == et::LeapTableSource::external &&
                            et::leapSecondLastUpdated() == 20300101;
            std::exit(ok ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    std::filesystem::remove(path);
}

TEST_F(LeapSecondEnvironment, NoVariableMeansTheBuiltInTable) {
    EXPECT_EXIT(
        {
            unsetenv("CDF_LEAPSECONDSTABLE");
            std::exit(et::leapSecondTableSource() == et::LeapTableSource::builtIn ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

}  // namespace
