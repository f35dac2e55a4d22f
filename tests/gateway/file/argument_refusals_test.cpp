// Refusals of the file-family commands: every argument check in argument order, each
// made before the CDF interface is called, and the function name each command reports
// when the interface refuses it.
#include <functional>

#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

// Arguments after the command name; `id` stands for the file identifier.
using ArgumentsOf = std::function<std::vector<Array>(const Array& id)>;

struct Refusal {
    const char* label;
    const char* command;
    ArgumentsOf arguments;
    std::string identifier;
    Arguments messageArguments;
};

Array text(const char* value) {
    return Array::text(value);
}

std::string notDouble() {
    return validateId("argumentNotDoubleScalar");
}

std::vector<Refusal> refusals() {
    return {
        {"setCacheSize text",
         "setCacheSize",
         [](const Array& i) {
             return std::vector{i, text("4")};
         },
         notDouble(),
         {std::string("NUMBUFFERS")}},
        {"setCompressionCacheSize text",
         "setCompressionCacheSize",
         [](const Array& i) {
             return std::vector{i, text("4")};
         },
         notDouble(),
         {std::string("NUMBUFFERS")}},
        {"setStageCacheSize text",
         "setStageCacheSize",
         [](const Array& i) {
             return std::vector{i, text("4")};
         },
         notDouble(),
         {std::string("NUMBUFFERS")}},
        {"setVarsCacheSize text",
         "setVarsCacheSize",
         [](const Array& i) {
             return std::vector{i, text("4")};
         },
         notDouble(),
         {std::string("NUMBUFFERS")}},
        {"setFormat text",
         "setFormat",
         [](const Array& i) {
             return std::vector{i, text("SINGLE_FILE")};
         },
         notDouble(),
         {std::string("NUMBUFFERS")}},
        {"setMajority text",
         "setMajority",
         [](const Array& i) {
             return std::vector{i, text("ROW_MAJOR")};
         },
         notDouble(),
         {std::string("MAJORITY")}},
        {"setChecksum vector",
         "setChecksum",
         [](const Array& i) {
             return std::vector{i, Array::of<double>({0, 1})};
         },
         notDouble(),
         {std::string("MODE")}},
        {"setReadOnlyMode int32",
         "setReadOnlyMode",
         [](const Array& i) {
             return std::vector{i, Array::of<std::int32_t>({0})};
         },
         notDouble(),
         {std::string("MODE")}},
        {"setCompression text type",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, text("GZIP_COMPRESSION")};
         },
         notDouble(),
         {std::string("TYPE")}},
        {"setCompression type 4",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(4)};
         },
         cdflibId("unrecognizedValue"),
         {std::int64_t{4}, std::string("COMPRESSION")}},
        {"setCompression type 6",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(6)};
         },
         cdflibId("unrecognizedValue"),
         {std::int64_t{6}, std::string("COMPRESSION")}},
        {"setCompression type -1",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(-1)};
         },
         cdflibId("unrecognizedValue"),
         {std::int64_t{-1}, std::string("COMPRESSION")}},
        {"setCompression type before parameter",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(4), text("x")};
         },
         cdflibId("unrecognizedValue"),
         {std::int64_t{4}, std::string("COMPRESSION")}},
        {"setCompression text parameter",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(1), text("0")};
         },
         notDouble(),
         {std::string("CPARM")}},
        {"setCompression gzip without level",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(5)};
         },
         cdflibId("unspecifiedGzipCompressionLevel"),
         {}},
        {"setCompression gzip level 0",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(5), number(0)};
         },
         cdflibId("invalidCompressionParameter"),
         {std::int64_t{0}, std::string("GZIP")}},
        {"setCompression gzip level 10",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(5), number(10)};
         },
         cdflibId("invalidCompressionParameter"),
         {std::int64_t{10}, std::string("GZIP")}},
        {"setCompression gzip level -3",
         "setCompression",
         [](const Array& i) {
             return std::vector{i, number(5), number(-3)};
         },
         cdflibId("invalidCompressionParameter"),
         {std::int64_t{-3}, std::string("GZIP")}},
        {"setVarCompression text varnum",
         "setVarCompression",
         [](const Array& i) {
             return std::vector{i, text("0"), number(1)};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"setVarCompression text type",
         "setVarCompression",
         [](const Array& i) {
             return std::vector{i, number(0), text("1")};
         },
         notDouble(),
         {std::string("CTYPE")}},
        {"setVarCompression type 4",
         "setVarCompression",
         [](const Array& i) {
             return std::vector{i, number(0), number(4), number(0)};
         },
         cdflibId("unrecognizedValue"),
         {std::int64_t{4}, std::string("COMPRESSION")}},
        {"setVarCompression gzip without level",
         "setVarCompression",
         [](const Array& i) {
             return std::vector{i, number(0), number(5)};
         },
         cdflibId("unspecifiedGzipCompressionLevel"),
         {}},
        {"setVarCompression text parameter",
         "setVarCompression",
         [](const Array& i) {
             return std::vector{i, number(0), number(1), text("0")};
         },
         notDouble(),
         {std::string("CPARM")}},
        {"getVarCompression text varnum",
         "getVarCompression",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"closeVar text varnum",
         "closeVar",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("CDFID")}},
        {"deleteVar text varnum",
         "deleteVar",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"deleteVarRecords varnum",
         "deleteVarRecords",
         [](const Array& i) {
             return std::vector{i, text("0"), number(0), number(1)};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"deleteVarRecords start",
         "deleteVarRecords",
         [](const Array& i) {
             return std::vector{i, number(0), text("0"), number(1)};
         },
         notDouble(),
         {std::string("STARTREC")}},
        {"deleteVarRecords end",
         "deleteVarRecords",
         [](const Array& i) {
             return std::vector{i, number(0), number(0), text("1")};
         },
         notDouble(),
         {std::string("ENDREC")}},
        {"getVarName",
         "getVarName",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"renameVar varnum",
         "renameVar",
         [](const Array& i) {
             return std::vector{i, text("0"), text("x")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarAllocRecords",
         "getVarAllocRecords",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarBlockingFactor",
         "getVarBlockingFactor",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarReservePercent",
         "getVarReservePercent",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarMaxAllocRecNum",
         "getVarMaxAllocRecNum",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarMaxWrittenRecNum",
         "getVarMaxWrittenRecNum",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarNumRecsWritten",
         "getVarNumRecsWritten",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"getVarSparseRecords",
         "getVarSparseRecords",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"setVarAllocBlockRecords start",
         "setVarAllocBlockRecords",
         [](const Array& i) {
             return std::vector{i, number(0), text("0"), number(1)};
         },
         notDouble(),
         {std::string("RECSTART")}},
        {"setVarAllocBlockRecords stop",
         "setVarAllocBlockRecords",
         [](const Array& i) {
             return std::vector{i, number(0), number(0), text("1")};
         },
         notDouble(),
         {std::string("RECSTOP")}},
        {"setVarBlockingFactor",
         "setVarBlockingFactor",
         [](const Array& i) {
             return std::vector{i, number(0), text("8")};
         },
         notDouble(),
         {std::string("BLOCKINGFACTOR")}},
        {"setVarInitialRecs",
         "setVarInitialRecs",
         [](const Array& i) {
             return std::vector{i, number(0), text("8")};
         },
         notDouble(),
         {std::string("NUMRECS")}},
        {"setVarReservePercent",
         "setVarReservePercent",
         [](const Array& i) {
             return std::vector{i, number(0), text("8")};
         },
         notDouble(),
         {std::string("PERCENT")}},
        {"setVarSparseRecords",
         "setVarSparseRecords",
         [](const Array& i) {
             return std::vector{i, number(0), text("1")};
         },
         notDouble(),
         {std::string("STYPE")}},
        {"getVarCacheSize varnum before format",
         "getVarCacheSize",
         [](const Array& i) {
             return std::vector{i, text("0")};
         },
         notDouble(),
         {std::string("VARNUM")}},
        {"setVarCacheSize buffers before format",
         "setVarCacheSize",
         [](const Array& i) {
             return std::vector{i, number(0), text("4")};
         },
         notDouble(),
         {std::string("NUMBUFFERS")}},
    };
}

TEST(FileCommandArguments, EachBadArgumentIsRefusedBeforeTheLibraryIsCalled) {
    const UnissuedHandle handle;
    for (const Refusal& refusal : refusals()) {
        SCOPED_TRACE(refusal.label);
        std::vector<Array> arguments = refusal.arguments(handle.id());
        expectHostError([&] { call(refusal.command, arguments, 1); }, refusal.identifier,
                        refusal.messageArguments);
    }
}

TEST(FileCommandArguments, EveryFileCommandChecksItsIdentifierFirst) {
    const char* const commands[][2] = {
        {"close", "1"},
        {"delete", "1"},
        {"getCacheSize", "1"},
        {"setCacheSize", "2"},
        {"getCompressionCacheSize", "1"},
        {"setCompressionCacheSize", "2"},
        {"getStageCacheSize", "1"},
        {"setStageCacheSize", "2"},
        {"setVarsCacheSize", "2"},
        {"getFormat", "1"},
        {"setFormat", "2"},
        {"getMajority", "1"},
        {"setMajority", "2"},
        {"getChecksum", "1"},
        {"setChecksum", "2"},
        {"getReadOnlyMode", "1"},
        {"setReadOnlyMode", "2"},
        {"getVersion", "1"},
        {"getCopyright", "1"},
        {"getName", "1"},
        {"getVarsMaxWrittenRecNum", "1"},
        {"inquire", "1"},
        {"getCompression", "1"},
        {"setCompression", "2"},
        {"getVarCompression", "2"},
        {"setVarCompression", "3"},
        {"closeVar", "2"},
        {"deleteVar", "2"},
        {"deleteVarRecords", "4"},
        {"getVarName", "2"},
        {"getVarNum", "2"},
        {"renameVar", "3"},
        {"getVarAllocRecords", "2"},
        {"getVarBlockingFactor", "2"},
        {"getVarReservePercent", "2"},
        {"getVarMaxAllocRecNum", "2"},
        {"getVarMaxWrittenRecNum", "2"},
        {"getVarNumRecsWritten", "2"},
        {"getVarSparseRecords", "2"},
        {"setVarAllocBlockRecords", "4"},
        {"setVarBlockingFactor", "3"},
        {"setVarInitialRecs", "3"},
        {"setVarReservePercent", "3"},
        {"setVarSparseRecords", "3"},
        {"getVarCacheSize", "2"},
        {"setVarCacheSize", "3"},
    };
    for (const auto& [command, count] : commands) {
        SCOPED_TRACE(command);
        // Every later argument is bad too: the identifier must be the one reported.
        const auto withFirst = [&](Array first) {
            std::vector<Array> arguments{std::move(first)};
            for (int i = 1; i < std::stoi(count); ++i) arguments.push_back(Array::of<bool>({true}));
            return arguments;
        };
        expectHostError([&] { call(command, withFirst(number(UnissuedHandle::kValue)), 1); },
                        validateId("argumentNotUint64Scalar"), {std::string("CDFID")});
        expectHostError([&] { call(command, withFirst(Array::uint64(0x7ead)), 1); },
                        cdflibId("invalidFileId"));
    }
}

struct LibraryRefusal {
    const char* command;
    ArgumentsOf arguments;
    const char* functionName;
};

std::vector<LibraryRefusal> libraryRefusals() {
    const auto only = [](const Array& i) { return std::vector{i}; };
    const auto var = [](const Array& i) { return std::vector{i, number(0)}; };
    const auto value = [](const Array& i) { return std::vector{i, number(1)}; };
    const auto varValue = [](const Array& i) { return std::vector{i, number(0), number(1)}; };
    const auto varRange = [](const Array& i) {
        return std::vector{i, number(0), number(0), number(1)};
    };
    return {
        {"getCacheSize", only, "CDFgetCacheSize"},
        {"setCacheSize", value, "CDFsetCacheSize"},
        {"getCompressionCacheSize", only, "CDFgetCompressionCacheSize"},
        {"setCompressionCacheSize", value, "CDFsetCompressionCacheSize"},
        {"getStageCacheSize", only, "CDFgetStageCacheSize"},
        {"setStageCacheSize", value, "CDFsetStageCacheSize"},
        {"setVarsCacheSize", value, "CDFsetzVarsCacheSize"},
        {"getFormat", only, "CDFgetFormat"},
        {"setFormat", value, "CDFsetFormat"},
        {"getMajority", only, "CDFgetMajority"},
        {"setMajority", value, "CDFsetMajority"},
        {"getChecksum", only, "CDFgetChecksum"},
        {"setChecksum", value, "CDFsetChecksum"},
        {"getReadOnlyMode", only, "CDFgetReadOnlyMode"},
        {"setReadOnlyMode", value, "CDFsetReadOnlyMode"},
        {"getVersion", only, "CDFgetVersion"},
        {"getCopyright", only, "CDFgetCopyright"},
        {"getName", only, "CDFgetName"},
        {"getVarsMaxWrittenRecNum", only, "CDFgetzVarsMaxWrittenRecNum"},
        {"inquire", only, "CDFinquireCDF"},
        {"getCompression", only, "CDFgetCompression"},
        {"setCompression",
         [](const Array& i) {
             return std::vector{i, number(5), number(9)};
         },
         "CDFsetCompression"},
        {"getVarCompression", var, "CDFgetzVarCompression"},
        // Unlike the file's, a variable's gzip level is the library's to judge.
        {"setVarCompression",
         [](const Array& i) {
             return std::vector{i, number(0), number(5), number(0)};
         },
         "CDFsetzVarCompression"},
        {"setVarCompression",
         [](const Array& i) {
             return std::vector{i, number(0), number(5), number(10)};
         },
         "CDFsetzVarCompression"},
        {"closeVar", var, "CDFclosezVar"},
        {"deleteVar", var, "CDFdeletezVar"},
        {"deleteVarRecords", varRange, "CDFdeletezVarRecords"},
        {"getVarName", var, "CDFgetzVarName"},
        // The look-up by name reports under the close's name.
        {"getVarNum",
         [](const Array& i) {
             return std::vector{i, text("Var")};
         },
         "CDFclosezVar"},
        {"renameVar",
         [](const Array& i) {
             return std::vector{i, number(0), text("new")};
         },
         "CDFrenamezVar"},
        {"getVarAllocRecords", var, "CDFgetzVarAllocRecords"},
        {"getVarBlockingFactor", var, "CDFgetzVarBlockingFactor"},
        {"getVarReservePercent", var, "CDFgetzVarReservePercent"},
        {"getVarMaxAllocRecNum", var, "CDFgetzVarMaxAllocRecNum"},
        {"getVarMaxWrittenRecNum", var, "CDFgetzVarMaxWrittenRecNum"},
        {"getVarNumRecsWritten", var, "CDFgetzVarNumRecsWritten"},
        {"getVarSparseRecords", var, "CDFgetzVarSparseRecords"},
        {"setVarAllocBlockRecords", varRange, "CDFsetzVarAllocBlockRecords"},
        {"setVarBlockingFactor", varValue, "CDFsetzVarBlockingFactor"},
        {"setVarInitialRecs", varValue, "CDFsetzVarInitialRecs"},
        {"setVarReservePercent", varValue, "CDFsetzVarReservePercent"},
        {"setVarSparseRecords", varValue, "CDFsetzVarSparseRecords"},
        // The variable cache commands ask for the format first.
        {"getVarCacheSize", var, "CDFgetFormat"},
        {"setVarCacheSize", varValue, "CDFgetFormat"},
        {"close", only, "CDFcloseCDF"},
        {"delete", only, "CDFdelete"},
    };
}

TEST(FileCommandArguments, EachCommandReportsItsOwnFunctionNameWhenTheLibraryRefuses) {
    const UnissuedHandle handle;
    const std::string refusedId = statusText(BAD_CDF_ID);
    for (const LibraryRefusal& refusal : libraryRefusals()) {
        SCOPED_TRACE(refusal.command);
        expectHostError([&] { call(refusal.command, refusal.arguments(handle.id()), 3); },
                        cdflibId("libraryFailure"), {std::string(refusal.functionName), refusedId});
    }
    // A refused close or delete leaves the identifier registered, so it can be retried.
    EXPECT_FALSE(gateway::openFileRegistry().isFileIdUnknown(UnissuedHandle::kValue));
}

TEST(FileCommandArguments, NamesAreTakenAsTextOnly) {
    const UnissuedHandle handle;
    EXPECT_THROW(call("renameVar", {handle.id(), number(0), number(3)}, 0), std::logic_error);
}

}  // namespace
}  // namespace cdfgate::testing
