// "open", "create", "close" and "delete" on real files.
#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

bool registered(const Array& id) {
    return !gateway::openFileRegistry().isFileIdUnknown(id.data<std::uint64_t>()[0]);
}

long zMode(CDFid id) {
    long mode = -1;
    EXPECT_EQ(CDFlib(SELECT_, CDF_, id, CONFIRM_, CDF_zMODE_, &mode, NULL_), CDF_OK);
    return mode;
}

TEST(Lifecycle, CreatedFileIsRegisteredAndCompleteOnDiskAfterClose) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("fresh"));
    EXPECT_TRUE(registered(file.id()));
    EXPECT_EQ(zMode(file.cdf()), zMODEoff) << "create sets no zMode";
    file.close();
    EXPECT_FALSE(registered(file.id()));

    // The closed file opens again, through the gateway as through the interface.
    const GatewayFile reopened = GatewayFile::open(scratch.file("fresh.cdf"));
    EXPECT_TRUE(registered(reopened.id()));
    EXPECT_EQ(zMode(reopened.cdf()), zMODEon2) << "open presents every variable as zVariable";
    reopened.close();
}

TEST(Lifecycle, ClosingTwiceIsRefusedWithoutReachingTheLibrary) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("twice"));
    file.close();
    expectHostError([&] { call("close", {file.id()}, 0); }, cdflibId("invalidFileId"));
    // Every other command refuses the stale identifier too.
    expectHostError([&] { call("getFormat", {file.id()}); }, cdflibId("invalidFileId"));
}

TEST(Lifecycle, CreateRefusesAnExistingFileAndRegistersNothing) {
    const ScratchDirectory scratch;
    GatewayFile::create(scratch.file("taken")).close();
    const std::size_t before = gateway::openFileRegistry().count();
    expectHostError([&] { call("create", {Array::text(scratch.file("taken"))}); },
                    cdflibId("fileCreateError"));
    expectHostError([&] { call("create", {Array::text("")}); }, cdflibId("fileCreateError"));
    EXPECT_EQ(gateway::openFileRegistry().count(), before);
}

TEST(Lifecycle, DeleteRemovesTheFileAndTheIdentifier) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("doomed"));
    call("delete", {file.id()}, 0);
    EXPECT_FALSE(std::filesystem::exists(scratch.file("doomed.cdf")));
    EXPECT_FALSE(registered(file.id()));
    expectHostError([&] { call("delete", {file.id()}, 0); }, cdflibId("invalidFileId"));
}

TEST(Lifecycle, OpensFilesOfBothMajoritiesAndOlderVersions) {
    const struct {
        const char* file;
        const char* majority;
    } cases[] = {
        {"format/zvar_int4_row.cdf", "ROW_MAJOR"},
        {"format/zvar_int4_col.cdf", "COLUMN_MAJOR"},
        {"format/zvar_int4_row_v27.cdf", "ROW_MAJOR"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const GatewayFile file = GatewayFile::open(sharedData(c.file));
        EXPECT_EQ(call1("getMajority", {file.id()}).text(), c.majority);
        file.close();
    }
}

TEST(Lifecycle, DistinctOpensGetDistinctIdentifiers) {
    const std::string path = sharedData("format/empty.cdf");
    const GatewayFile first = GatewayFile::open(path);
    const GatewayFile second = GatewayFile::open(path);
    EXPECT_NE(first.id(), second.id());
    first.close();
    EXPECT_TRUE(registered(second.id()));
    second.close();
}

}  // namespace
}  // namespace cdfgate::testing
