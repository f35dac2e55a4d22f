// File-wide settings on real files: each setter's effect seen through its getter and
// through the CDF interface directly.
#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

struct ModeSetting {
    const char* getter;
    const char* setter;
    double value;
    const char* name;
};

TEST(FileSettings, ModesRoundTripThroughTheirNames) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("modes"));
    EXPECT_EQ(call1("getFormat", {file.id()}).text(), "SINGLE_FILE");
    EXPECT_EQ(call1("getMajority", {file.id()}).text(), "ROW_MAJOR");
    EXPECT_EQ(call1("getChecksum", {file.id()}).text(), "NO_CHECKSUM");
    EXPECT_EQ(call1("getReadOnlyMode", {file.id()}).text(), "READONLYoff");
    const ModeSetting settings[] = {
        {"getFormat", "setFormat", MULTI_FILE, "MULTI_FILE"},
        {"getFormat", "setFormat", SINGLE_FILE, "SINGLE_FILE"},
        {"getMajority", "setMajority", COLUMN_MAJOR, "COLUMN_MAJOR"},
        {"getMajority", "setMajority", ROW_MAJOR, "ROW_MAJOR"},
        {"getChecksum", "setChecksum", MD5_CHECKSUM, "MD5_CHECKSUM"},
        {"getChecksum", "setChecksum", NO_CHECKSUM, "NO_CHECKSUM"},
    };
    for (const ModeSetting& setting : settings) {
        SCOPED_TRACE(std::string(setting.setter) + " " + setting.name);
        call(setting.setter, {file.id(), number(setting.value)}, 0);
        EXPECT_EQ(call1(setting.getter, {file.id()}).text(), setting.name);
    }
    file.close();
}

TEST(FileSettings, ValuesTheLibraryRefusesSurfaceAsLibraryFailures) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("refusals"));
    const struct {
        const char* setter;
        double value;
        const char* functionName;
        CDFstatus status;
    } cases[] = {
        {"setFormat", 3, "CDFsetFormat", BAD_FORMAT},
        {"setMajority", 0, "CDFsetMajority", BAD_MAJORITY},
        {"setReadOnlyMode", 1, "CDFsetReadOnlyMode", BAD_READONLY_MODE},
        {"setCacheSize", -1, "CDFsetCacheSize", BAD_CACHE_SIZE},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.setter);
        expectLibraryFailure(c.setter, {file.id(), number(c.value)}, 0, c.functionName, c.status);
    }
    file.close();
}

TEST(FileSettings, ReadOnlyModeIsSelectedAndConfirmed) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::open(copyShared(scratch, {"format/zvar_int4_row.cdf"}));
    call("setReadOnlyMode", {file.id(), number(READONLYon)}, 0);
    EXPECT_EQ(call1("getReadOnlyMode", {file.id()}).text(), "READONLYon");
    long mode = 0;
    ASSERT_EQ(CDFlib(SELECT_, CDF_, file.cdf(), CONFIRM_, CDF_READONLY_MODE_, &mode, NULL_),
              CDF_OK);
    EXPECT_EQ(mode, READONLYon);
    expectLibraryFailure("renameVar", {file.id(), number(0), Array::text("W")}, 0, "CDFrenamezVar",
                         READ_ONLY_MODE);
    call("setReadOnlyMode", {file.id(), number(READONLYoff)}, 0);
    EXPECT_EQ(call1("getReadOnlyMode", {file.id()}).text(), "READONLYoff");
    file.close();
}

TEST(FileSettings, CacheSizesAreSelectedAndConfirmed) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("caches"));
    const struct {
        const char* getter;
        const char* setter;
        long item;
    } caches[] = {
        {"getCacheSize", "setCacheSize", CDF_CACHESIZE_},
        {"getStageCacheSize", "setStageCacheSize", STAGE_CACHESIZE_},
        {"getCompressionCacheSize", "setCompressionCacheSize", COMPRESS_CACHESIZE_},
    };
    double buffers = 41;
    for (const auto& cache : caches) {
        SCOPED_TRACE(cache.setter);
        long before = -1;
        ASSERT_EQ(CDFlib(SELECT_, CDF_, file.cdf(), CONFIRM_, cache.item, &before, NULL_), CDF_OK);
        EXPECT_EQ(call1(cache.getter, {file.id()}), number(static_cast<double>(before)));
        // 7.9 is taken as 7: numbers are truncated toward zero.
        call(cache.setter, {file.id(), number(buffers + 0.9)}, 0);
        EXPECT_EQ(call1(cache.getter, {file.id()}), number(buffers));
        buffers += 10;
    }
    // The variables' cache size has no getter of its own; a single-file CDF accepts it.
    call("setVarsCacheSize", {file.id(), number(4)}, 0);
    file.close();
}

TEST(FileSettings, ChecksumIsTheFilesOwnAndSurvivesClosing) {
    for (const char* sample : {"format/checksum_md5.cdf", "compression/file_gzip6_md5.cdf"}) {
        SCOPED_TRACE(sample);
        const GatewayFile file = GatewayFile::open(sharedData(sample));
        EXPECT_EQ(call1("getChecksum", {file.id()}).text(), "MD5_CHECKSUM");
        file.close();
    }
    const ScratchDirectory scratch;
    const GatewayFile created = GatewayFile::create(scratch.file("summed"));
    call("setChecksum", {created.id(), number(MD5_CHECKSUM)}, 0);
    created.close();
    const GatewayFile reopened = GatewayFile::open(scratch.file("summed.cdf"));
    EXPECT_EQ(call1("getChecksum", {reopened.id()}).text(), "MD5_CHECKSUM");
    reopened.close();
}

}  // namespace
}  // namespace cdfgate::testing
