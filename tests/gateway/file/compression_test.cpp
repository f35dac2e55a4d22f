// Compression of whole files and of variables: the reference samples as reported,
// and settings round-tripped on new files.
#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

Array emptyDouble() {
    return Array::empty(hvDOUBLE_CLASS);
}

struct Reported {
    const char* file;
    long varNum;  // -1: the file's own compression
    const char* type;
    Array parameter;
    double percent;
};

std::vector<Reported> reportedSamples() {
    const auto text = [](const char* value) { return Array::text(value); };
    return {
        {"compression/plain.cdf", -1, "NO_COMPRESSION", emptyDouble(), 100},
        {"compression/file_rle.cdf", -1, "RLE_COMPRESSION", text("RLE_OF_ZEROS"), 84},
        {"compression/file_huff.cdf", -1, "HUFF_COMPRESSION", text("OPTIMAL_ENCODING_TREES"), 49},
        {"compression/file_ahuff.cdf", -1, "AHUFF_COMPRESSION", text("OPTIMAL_ENCODING_TREES"), 46},
        {"compression/file_gzip1.cdf", -1, "GZIP_COMPRESSION", number(1), 9},
        {"compression/file_gzip6.cdf", -1, "GZIP_COMPRESSION", number(6), 8},
        {"compression/file_gzip9.cdf", -1, "GZIP_COMPRESSION", number(9), 8},
        {"compression/var_rle.cdf", -1, "NO_COMPRESSION", emptyDouble(), 100},
        {"compression/plain.cdf", 0, "NO_COMPRESSION", emptyDouble(), 100},
        {"compression/file_gzip6.cdf", 1, "NO_COMPRESSION", emptyDouble(), 100},
        // A variable's run-length parameter is spelled with a lower-case final s.
        {"compression/var_rle.cdf", 0, "RLE_COMPRESSION", text("RLE_OF_ZEROs"), 40},
        {"compression/var_rle.cdf", 2, "RLE_COMPRESSION", text("RLE_OF_ZEROs"), 100},
        {"compression/var_huff.cdf", 1, "HUFF_COMPRESSION", text("OPTIMAL_ENCODING_TREES"), 56},
        {"compression/var_ahuff.cdf", 3, "AHUFF_COMPRESSION", text("OPTIMAL_ENCODING_TREES"), 21},
        {"compression/var_gzip1.cdf", 3, "GZIP_COMPRESSION", number(1), 48},
        {"compression/var_gzip6.cdf", 1, "GZIP_COMPRESSION", number(6), 38},
        {"compression/var_gzip9.cdf", 0, "GZIP_COMPRESSION", number(9), 20},
        {"compression/var_gzip6_reserve50.cdf", 0, "GZIP_COMPRESSION", number(6), 50},
    };
}

std::vector<Array> compressionOf(const GatewayFile& file, long varNum) {
    return varNum < 0 ? call("getCompression", {file.id()}, 3)
                      : call("getVarCompression", {file.id(), number(varNum)}, 3);
}

TEST(Compression, ReferenceSamplesReportTypeParameterAndPercentage) {
    for (const Reported& sample : reportedSamples()) {
        SCOPED_TRACE(std::string(sample.file) + " variable " + std::to_string(sample.varNum));
        const GatewayFile file = GatewayFile::open(sharedData(sample.file));
        embedded::clearWarnings();
        const std::vector<Array> results = compressionOf(file, sample.varNum);
        ASSERT_EQ(results.size(), 3u);
        EXPECT_EQ(results[0].text(), sample.type);
        EXPECT_EQ(results[1], sample.parameter);
        EXPECT_EQ(results[2], number(sample.percent));
        EXPECT_TRUE(embedded::warnings().empty());
        file.close();
    }
}

TEST(Compression, FileCompressionRoundTripsOnANewFile) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("packed"));
    const struct {
        std::vector<Array> arguments;
        const char* type;
        Array parameter;
    } cases[] = {
        {{number(GZIP_COMPRESSION), number(7)}, "GZIP_COMPRESSION", number(7)},
        {{number(RLE_COMPRESSION)}, "RLE_COMPRESSION", Array::text("RLE_OF_ZEROS")},
        {{number(HUFF_COMPRESSION), number(0)},
         "HUFF_COMPRESSION",
         Array::text("OPTIMAL_ENCODING_TREES")},
        {{number(AHUFF_COMPRESSION)}, "AHUFF_COMPRESSION", Array::text("OPTIMAL_ENCODING_TREES")},
        {{number(GZIP_COMPRESSION), number(1)}, "GZIP_COMPRESSION", number(1)},
        {{number(NO_COMPRESSION)}, "NO_COMPRESSION", emptyDouble()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.type);
        std::vector<Array> arguments{file.id()};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        call("setCompression", arguments, 0);
        const std::vector<Array> results = call("getCompression", {file.id()}, 3);
        ASSERT_EQ(results.size(), 3u);
        EXPECT_EQ(results[0].text(), c.type);
        EXPECT_EQ(results[1], c.parameter);
    }
    file.close();
}

TEST(Compression, VariableCompressionRoundTripsOnANewVariable) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("packedvar"));
    const long var = createVariable(file.cdf(), "v", CDF_INT4, {3});
    const struct {
        std::vector<Array> arguments;
        const char* type;
        Array parameter;
    } cases[] = {
        {{number(RLE_COMPRESSION)}, "RLE_COMPRESSION", Array::text("RLE_OF_ZEROs")},
        {{number(HUFF_COMPRESSION), number(0)},
         "HUFF_COMPRESSION",
         Array::text("OPTIMAL_ENCODING_TREES")},
        {{number(AHUFF_COMPRESSION)}, "AHUFF_COMPRESSION", Array::text("OPTIMAL_ENCODING_TREES")},
        {{number(GZIP_COMPRESSION), number(3)}, "GZIP_COMPRESSION", number(3)},
        {{number(NO_COMPRESSION)}, "NO_COMPRESSION", emptyDouble()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.type);
        std::vector<Array> arguments{file.id(), number(var)};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        call("setVarCompression", arguments, 0);
        const std::vector<Array> results = call("getVarCompression", {file.id(), number(var)}, 3);
        ASSERT_EQ(results.size(), 3u);
        EXPECT_EQ(results[0].text(), c.type);
        EXPECT_EQ(results[1], c.parameter);
    }
    file.close();
}

TEST(Compression, VariableGzipLevelIsJudgedByTheLibrary) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("levels"));
    const long var = createVariable(file.cdf(), "v", CDF_REAL8);
    for (const double level : {0.0, 10.0}) {
        SCOPED_TRACE(level);
        expectLibraryFailure("setVarCompression",
                             {file.id(), number(var), number(GZIP_COMPRESSION), number(level)}, 0,
                             "CDFsetzVarCompression", BAD_COMPRESSION_PARM);
    }
    file.close();
}

}  // namespace
}  // namespace cdfgate::testing
