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
    for (const std::string& name : {scratch.file("missing"), std::string()}) {
        SCOPED_TRACE(name);
        expectHostError([&] { call("open", {Array::text(name)}); }, cdflibId("fileOpenError"));
    }
    EXPECT_EQ(gateway::openFileRegistry().count(), before);
}

TEST(LifecycleRefusals, FileNameMustBeText) {
    EXPECT_THROW(call("open", {number(1)}), std::exception);
}

}  // namespace
}  // namespace cdfgate::testing
