// Values a file reports that the gateway has no name for, and parameters it does not
// expect: copies of reference samples with one field changed.
#include <fstream>

#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

// Overwrites the big-endian 32-bit field at `offset` of the file.
void patchField(const std::string& path, std::streamoff offset, std::uint32_t value) {
    std::fstream stream(path, std::ios::in | std::ios::out | std::ios::binary);
    ASSERT_TRUE(stream.is_open()) << path;
    const char bytes[4] = {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
                           static_cast<char>(value >> 8), static_cast<char>(value)};
    stream.seekp(offset);
    stream.write(bytes, sizeof bytes);
    ASSERT_TRUE(stream.good());
}

// Opens a scratch copy of `sample` with the field at `offset` changed, with file
// validation off so that the value reaches the gateway rather than being refused on open.
GatewayFile openPatched(const ScratchDirectory& scratch, const char* sample, std::streamoff offset,
                        std::uint32_t value) {
    const std::string path = copyShared(scratch, {sample});
    patchField(path, offset, value);
    struct ValidationOff {
        int previous = CDFgetValidate();
        ValidationOff() { CDFsetValidate(VALIDATEFILEoff); }
        ~ValidationOff() { CDFsetValidate(previous != 0 ? VALIDATEFILEon : VALIDATEFILEoff); }
    } const validationOff;
    return GatewayFile::open(path);
}

// The CPR of the first variable of every var_* compression sample, and the offsets of
// its type and first parameter.
constexpr std::streamoff kFirstCpr = 0x8b2;
constexpr std::streamoff kCprType = 12;
constexpr std::streamoff kCprFirstParameter = 24;

TEST(DamagedValues, UnexpectedVariableParameterIsShownAsANumberWithAWarning) {
    const struct {
        const char* file;
        const char* type;
        const char* word;
    } cases[] = {
        {"compression/var_rle.cdf", "RLE_COMPRESSION", "RLE"},
        {"compression/var_huff.cdf", "HUFF_COMPRESSION", "HUFF"},
        {"compression/var_ahuff.cdf", "AHUFF_COMPRESSION", "AHUFF"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const ScratchDirectory scratch;
        const GatewayFile file = openPatched(scratch, c.file, kFirstCpr + kCprFirstParameter, 5);
        embedded::clearWarnings();
        const std::vector<Array> results = call("getVarCompression", {file.id(), number(0)}, 3);
        ASSERT_EQ(results.size(), 3u);
        EXPECT_EQ(results[0].text(), c.type);
        EXPECT_EQ(results[1], number(5));
        ASSERT_EQ(embedded::warnings().size(), 1u);
        EXPECT_EQ(embedded::warnings()[0].identifier, cdflibId("invalidCompressionParameter"));
        EXPECT_EQ(embedded::warnings()[0].arguments,
                  (Arguments{std::int64_t{5}, std::string(c.word)}));
        embedded::clearWarnings();
        file.close();
    }
}

TEST(DamagedValues, ValuesWithoutANameAreRefusedWithTheGettersLabel) {
    constexpr std::streamoff kFirstVdrSparseRecords = 0x1c4;
    const struct {
        const char* file;
        std::streamoff offset;
        std::uint32_t value;
        const char* command;
        const char* label;
    } cases[] = {
        {"compression/var_gzip6.cdf", kFirstCpr + kCprType, 4, "getVarCompression", "COMPRESSION"},
        {"format/zvar_int4_row.cdf", kFirstVdrSparseRecords, 7, "getVarSparseRecords",
         "SPARSE RECORDS TYPE"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        const ScratchDirectory scratch;
        const GatewayFile file = openPatched(scratch, c.file, c.offset, c.value);
        expectHostError(
            [&] {
                call(c.command, {file.id(), number(0)}, 3);
            },
            cdflibId("unrecognizedValue"), {std::int64_t{c.value}, std::string(c.label)});
        file.close();
    }
}

}  // namespace
}  // namespace cdfgate::testing
