// "open" and "create" refusals that leave nothing registered.
#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

TEST(LifecycleRefusals, NonAsciiFileNameIsRefusedBeforeAnyFileIsTouched) {
    const ScratchDirectory scratch;
    const std::u16string name = u"caf\u00e9";
    const std::size_t before = gateway::openFileRegistry().count();
    for (const char* command : {"open", "create"}) {
        SCOPED_TRACE(command);
        const std::string path = scratch.file("x");
        std::u16string widePath(path.begin(), path.end());
        widePath += name;
        expectHostError([&] { call(command, {Array::text(widePath)}); },
                        cdflibId("invalidCharError"));
    }
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
    EXPECT_EQ(gateway::openFileRegistry().count(), before);
}

TEST(LifecycleRefusals, OpenFailureCarriesNoLibraryStatus) {
    const ScratchDirectory scratch;
    const std::size_t before = gateway::openFileRegistry().count();
    // A name that is not text reads as the empty name.
    for (const Array& name : {Array::text(scratch.file("missing")), Array::text(""), number(1)}) {
        SCOPED_TRACE(::testing::PrintToString(name));
        expectHostError([&] { call("open", {name}); }, cdflibId("fileOpenError"));
    }
    EXPECT_EQ(gateway::openFileRegistry().count(), before);
}

}  // namespace
}  // namespace cdfgate::testing
