// Every shared CDF (samples, format and compression files) cut short and with flipped header bytes.
// Big files are sampled: a bounded number of record boundaries, evenly spread, and a few offsets
// drawn with a fixed seed, so runs are repeatable and the suite stays short. And the inputs that
// once broke the engine (tests/corpus/regressions/*.cdf, saved from fuzz_engine_open findings),
// replayed whole, one test each.
#include <algorithm>
#include <random>

#include "corrupt_fixture.h"

namespace cdfgate::corrupt {
namespace {

constexpr std::size_t kMaxCuts = 20;
constexpr std::size_t kRandomCuts = 6;
constexpr std::size_t kMaxFlippedRecords = 6;
constexpr std::size_t kMaxFlippedRecordsBig = 3;  // in files over kBig bytes
constexpr std::size_t kBig = 256 * 1024;
constexpr std::size_t kHeaderBytes = 32;

std::vector<std::string> all_samples() {
    std::vector<std::string> files;
    for (const char* folder : {"samples", "format", "compression"}) {
        const auto more = shared_cdfs(folder);
        files.insert(files.end(), more.begin(), more.end());
    }
    return files;
}

// At most n of the items, evenly spread, first and last included.
std::vector<std::size_t> spread(const std::vector<std::size_t>& items, std::size_t n) {
    if (items.size() <= n) return items;
    std::vector<std::size_t> out;
    for (std::size_t i = 0; i < n; ++i) out.push_back(items[i * (items.size() - 1) / (n - 1)]);
    return out;
}

class WholeFileDamage : public CorruptFiles, public ::testing::WithParamInterface<std::string> {};

TEST(SharedSamples, ArePresent) {
    EXPECT_GE(shared_cdfs("samples").size(), 20u);
    EXPECT_GE(shared_cdfs("format").size(), 20u);
    EXPECT_GE(shared_cdfs("compression").size(), 15u);
}

TEST_P(WholeFileDamage, TruncatedCopiesGiveStatusesAndErrors) {
    const Bytes original = sample(GetParam());
    const Layout layout(original);
    if (layout.records().size() < 2) {
        // Not a CDF at all (or a stub): it must be refused whole and cut.
        expect_handled(original, GetParam(), Expect::RefusedAtOpen);
        return;
    }
    // A file may legitimately end inside its last record (a writer need not write
    // the unused tail of reserved space); a cut before that record must be refused.
    const std::size_t last = layout.records().back();
    const auto expect = [&](std::size_t at) {
        return at < last ? Expect::RefusedAtOpen : Expect::Anything;
    };
    for (const std::size_t cut : spread(layout.records(), kMaxCuts)) {
        for (const std::size_t at : {cut, cut + 5}) {
            if (at >= layout.eof()) continue;
            const Bytes cut_copy(original.begin(), original.begin() + static_cast<long>(at));
            expect_handled(cut_copy, GetParam() + " cut at " + std::to_string(at), expect(at));
        }
    }
    std::mt19937_64 random(std::hash<std::string>{}(GetParam()));
    for (std::size_t i = 0; i < kRandomCuts; ++i) {
        const std::size_t at = random() % original.size();
        const Bytes cut_copy(original.begin(), original.begin() + static_cast<long>(at));
        expect_handled(cut_copy, GetParam() + " cut at " + std::to_string(at), expect(at),
                       i % 2 == 0);
    }
}

TEST_P(WholeFileDamage, FlippedHeaderBytesGiveStatuses) {
    const Bytes original = sample(GetParam());
    const Layout layout(original);
    // Each 4-byte slot of a record's header gets its top byte and its low bit flipped:
    // sizes, types, offsets and counts turn huge, negative or slightly off.
    const std::size_t records = original.size() > kBig ? kMaxFlippedRecordsBig : kMaxFlippedRecords;
    for (const std::size_t record : spread(layout.records(), records)) {
        const std::size_t end = std::min(record + kHeaderBytes, layout.eof());
        for (std::size_t slot = record; slot + 4 <= end; slot += 4) {
            for (const auto& [byte, mask] : {std::pair{slot, 0x80}, std::pair{slot + 3, 0x01}}) {
                Bytes copy = original;
                copy[byte] ^= static_cast<std::uint8_t>(mask);
                expect_handled(copy,
                               GetParam() + " record " + std::to_string(record) + " byte " +
                                   std::to_string(byte),
                               Expect::Anything, false);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shared, WholeFileDamage, ::testing::ValuesIn(all_samples()),
                         [](const auto& info) { return test_name(info.param); });

const std::filesystem::path kRegressions =
    std::filesystem::path(CDFGATE_SOURCE_DIR) / "tests" / "corpus" / "regressions";

class RegressionFiles : public CorruptFiles, public ::testing::WithParamInterface<std::string> {};

TEST_P(RegressionFiles, GiveStatusesAndErrors) {
    const Bytes bytes = file_bytes(kRegressions / GetParam());
    ASSERT_FALSE(bytes.empty()) << GetParam();
    expect_handled(bytes, GetParam(), Expect::Anything);
}

// The folder may be empty: nothing has been found yet.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RegressionFiles);
INSTANTIATE_TEST_SUITE_P(Found, RegressionFiles, ::testing::ValuesIn(cdfs_in(kRegressions)),
                         [](const auto& info) { return test_name(info.param); });

}  // namespace
}  // namespace cdfgate::corrupt
