// The shutdown hook with real files open.
#include "file_test_support.h"
#include "hv/entry.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;

// The global attribute each file gets before shutdown, to be found on disk after.
void addAttribute(CDFid id, const std::string& name) {
    std::string mutableName = name;
    long number = -1;
    ASSERT_EQ(
        CDFlib(SELECT_, CDF_, id, CREATE_, ATTR_, mutableName.data(), GLOBAL_SCOPE, &number, NULL_),
        CDF_OK);
}

TEST(ShutdownWithFiles, WarnsNothingWhenNoFileIsOpen) {
    ASSERT_EQ(gateway::openFileRegistry().count(), 0u);
    embedded::clearWarnings();
    QNTerminate();
    EXPECT_TRUE(embedded::warnings().empty());
}

TEST(ShutdownWithFiles, ClosesEveryOpenFileOnceWithOneWarning) {
    const ScratchDirectory scratch;
    ASSERT_EQ(gateway::openFileRegistry().count(), 0u);
    std::vector<GatewayFile> files;
    for (const char* name : {"first", "second", "third"}) {
        files.push_back(GatewayFile::create(scratch.file(name)));
        addAttribute(files.back().cdf(), std::string("made_by_") + name);
    }
    // A handle the library never issued comes first in the walk: its failed close
    // must neither be reported nor stop the others.
    gateway::openFileRegistry().registerFileId(0x10);
    embedded::clearWarnings();
    QNTerminate();

    ASSERT_EQ(embedded::warnings().size(), 1u);
    EXPECT_EQ(embedded::warnings()[0].identifier, cdflibId("closingFileHandle"));
    EXPECT_TRUE(embedded::warnings()[0].arguments.empty());
    // The identifiers stay registered until unload, but the library has closed them.
    const auto& handles = gateway::openFileRegistry().handles();
    ASSERT_EQ(handles.size(), 4u);
    for (const GatewayFile& file : files) {
        EXPECT_EQ(CDFlib(SELECT_, CDF_, file.cdf(), NULL_), BAD_CDF_ID);
    }
    for (const std::uint64_t handle : std::vector(handles.begin(), handles.end())) {
        gateway::openFileRegistry().unregisterFileId(handle);
    }
    embedded::clearWarnings();

    // Each file is complete on disk: it opens and holds what was written before.
    for (const char* name : {"first", "second", "third"}) {
        SCOPED_TRACE(name);
        const GatewayFile reopened = GatewayFile::open(scratch.file(std::string(name) + ".cdf"));
        std::string attribute = std::string("made_by_") + name;
        long number = -1;
        EXPECT_EQ(CDFlib(SELECT_, CDF_, reopened.cdf(), GET_, CDF_NUMATTRS_, &number, NULL_),
                  CDF_OK);
        EXPECT_EQ(number, 1);
        EXPECT_GE(CDFgetAttrNum(reopened.cdf(), attribute.data()), 0);
        reopened.close();
    }
}

}  // namespace
}  // namespace cdfgate::testing
