#include "gateway/open_file_registry.h"
#include "gateway_test_support.h"
#include "hv/entry.h"

namespace cdfgate::testing {
namespace {

TEST(Shutdown, WarnsNothingWhenNoFileIsOpen) {
    embedded::clearWarnings();
    ASSERT_EQ(gateway::openFileRegistry().count(), 0u);
    QNTerminate();
    EXPECT_TRUE(embedded::warnings().empty());
}

TEST(Shutdown, WarnsOnceHoweverManyFilesAreOpen) {
    // Handles the engine never issued: closing them must fail quietly, not crash.
    auto& registry = gateway::openFileRegistry();
    const std::uint64_t handles[] = {0x7000, 0x5000, 0x6000};
    for (const std::uint64_t handle : handles) registry.registerFileId(handle);
    embedded::clearWarnings();
    QNTerminate();
    ASSERT_EQ(embedded::warnings().size(), 1u);
    EXPECT_EQ(embedded::warnings()[0].identifier, cdflibId("closingFileHandle"));
    EXPECT_TRUE(embedded::warnings()[0].arguments.empty());
    EXPECT_EQ(registry.count(), 3u);  // members stay until unload
    for (const std::uint64_t handle : handles) registry.unregisterFileId(handle);
    embedded::clearWarnings();
}

}  // namespace
}  // namespace cdfgate::testing
