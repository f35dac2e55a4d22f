// Refusals of the file-family commands: every argument check in argument order, each
// made before the CDF interface is called, and the function name each command reports
// when the interface refuses it.
#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

// The file identifier followed by `rest`.
std::vector<Array> withId(const Array& id, const std::vector<Array>& rest) {
    std::vector<Array> arguments{id};
    arguments.insert(arguments.end(), rest.begin(), rest.end());
    return arguments;
}

Array text(const char* value) {
    return Array::text(value);
}

// Arguments after the file identifier; a number stands for a double scalar, "t" for
// text (never accepted where a number is expected).
std::vector<Array> after(std::initializer_list<const char*> values) {
    std::vector<Array> arguments;
    for (const char* value : values) {
        arguments.push_back(value[0] == 't' ? text("7") : number(std::stod(value)));
    }
    return arguments;
}

struct Refusal {
    const char* command;
    std::vector<Array> rest;
    std::string identifier;
    Arguments messageArguments;
};

Refusal notDouble(const char* command, std::vector<Array> rest, const char* argumentName) {
    return {command,
            std::move(rest),
            validateId("argumentNotDoubleScalar"),
            {std::string(argumentName)}};
}

Refusal unknownCompression(const char* command, std::vector<Array> rest, std::int64_t type) {
    return {command,
            std::move(rest),
            cdflibId("unrecognizedValue"),
            {type, std::string("COMPRESSION")}};
}

Refusal badGzipLevel(std::int64_t level) {
    return {"setCompression",
            after({"5", std::to_string(level).c_str()}),
            cdflibId("invalidCompressionParameter"),
            {level, std::string("GZIP")}};
}

std::vector<Refusal> refusals() {
    return {
        notDouble("setCacheSize", after({"t"}), "NUMBUFFERS"),
        notDouble("setCompressionCacheSize", after({"t"}), "NUMBUFFERS"),
        notDouble("setStageCacheSize", after({"t"}), "NUMBUFFERS"),
        notDouble("setVarsCacheSize", after({"t"}), "NUMBUFFERS"),
        // The format shares the cache setters' argument name.
        notDouble("setFormat", after({"t"}), "NUMBUFFERS"),
        notDouble("setMajority", after({"t"}), "MAJORITY"),
        notDouble("setChecksum", {Array::of<double>({0, 1})}, "MODE"),
        notDouble("setReadOnlyMode", {Array::of<std::int32_t>({0})}, "MODE"),
        notDouble("setCompression", after({"t"}), "TYPE"),
        unknownCompression("setCompression", after({"4"}), 4),
        unknownCompression("setCompression", after({"6"}), 6),
        unknownCompression("setCompression", after({"-1"}), -1),
        unknownCompression("setCompression", after({"4", "t"}), 4),  // type before CPARM
        notDouble("setCompression", after({"1", "t"}), "CPARM"),
        {"setCompression", after({"5"}), cdflibId("unspecifiedGzipCompressionLevel"), {}},
        badGzipLevel(0),
        badGzipLevel(10),
        badGzipLevel(-3),
        notDouble("setVarCompression", after({"t", "1"}), "VARNUM"),
        notDouble("setVarCompression", after({"0", "t"}), "CTYPE"),
        unknownCompression("setVarCompression", after({"0", "4", "0"}), 4),
        {"setVarCompression", after({"0", "5"}), cdflibId("unspecifiedGzipCompressionLevel"), {}},
        notDouble("setVarCompression", after({"0", "1", "t"}), "CPARM"),
        notDouble("getVarCompression", after({"t"}), "VARNUM"),
        // The variable number is reported under the identifier's name.
        notDouble("closeVar", after({"t"}), "CDFID"),
        notDouble("deleteVar", after({"t"}), "VARNUM"),
        notDouble("deleteVarRecords", after({"t", "0", "1"}), "VARNUM"),
        notDouble("deleteVarRecords", after({"0", "t", "1"}), "STARTREC"),
        notDouble("deleteVarRecords", after({"0", "0", "t"}), "ENDREC"),
        notDouble("getVarName", after({"t"}), "VARNUM"),
        notDouble("renameVar", {text("0"), text("x")}, "VARNUM"),
        notDouble("getVarAllocRecords", after({"t"}), "VARNUM"),
        notDouble("getVarBlockingFactor", after({"t"}), "VARNUM"),
        notDouble("getVarReservePercent", after({"t"}), "VARNUM"),
        notDouble("getVarMaxAllocRecNum", after({"t"}), "VARNUM"),
        notDouble("getVarMaxWrittenRecNum", after({"t"}), "VARNUM"),
        notDouble("getVarNumRecsWritten", after({"t"}), "VARNUM"),
        notDouble("getVarSparseRecords", after({"t"}), "VARNUM"),
        notDouble("setVarAllocBlockRecords", after({"t", "0", "1"}), "VARNUM"),
        notDouble("setVarAllocBlockRecords", after({"0", "t", "1"}), "RECSTART"),
        notDouble("setVarAllocBlockRecords", after({"0", "0", "t"}), "RECSTOP"),
        notDouble("setVarBlockingFactor", after({"0", "t"}), "BLOCKINGFACTOR"),
        notDouble("setVarInitialRecs", after({"0", "t"}), "NUMRECS"),
        notDouble("setVarReservePercent", after({"0", "t"}), "PERCENT"),
        notDouble("setVarSparseRecords", after({"0", "t"}), "STYPE"),
        // Both cache commands convert every argument before asking for the format.
        notDouble("getVarCacheSize", after({"t"}), "VARNUM"),
        notDouble("setVarCacheSize", after({"t", "4"}), "VARNUM"),
        notDouble("setVarCacheSize", after({"0", "t"}), "NUMBUFFERS"),
    };
}

TEST(FileCommandArguments, EachBadArgumentIsRefusedBeforeTheLibraryIsCalled) {
    const UnissuedHandle handle;
    for (const Refusal& refusal : refusals()) {
        SCOPED_TRACE(refusal.command);
        expectHostError([&] { call(refusal.command, withId(handle.id(), refusal.rest), 1); },
                        refusal.identifier, refusal.messageArguments);
    }
}

// Every file-family command, with acceptable arguments after the identifier and the
// function name it reports when the library refuses the call.
struct LibraryRefusal {
    const char* command;
    std::vector<Array> rest;
    const char* functionName;
};

std::vector<LibraryRefusal> libraryRefusals() {
    const std::vector<Array> none;
    const std::vector<Array> var = after({"0"});
    const std::vector<Array> value = after({"1"});
    const std::vector<Array> varValue = after({"0", "1"});
    const std::vector<Array> varRange = after({"0", "0", "1"});
    return {
        {"getCacheSize", none, "CDFgetCacheSize"},
        {"setCacheSize", value, "CDFsetCacheSize"},
        {"getCompressionCacheSize", none, "CDFgetCompressionCacheSize"},
        {"setCompressionCacheSize", value, "CDFsetCompressionCacheSize"},
        {"getStageCacheSize", none, "CDFgetStageCacheSize"},
        {"setStageCacheSize", value, "CDFsetStageCacheSize"},
        {"setVarsCacheSize", value, "CDFsetzVarsCacheSize"},
        {"getFormat", none, "CDFgetFormat"},
        {"setFormat", value, "CDFsetFormat"},
        {"getMajority", none, "CDFgetMajority"},
        {"setMajority", value, "CDFsetMajority"},
        {"getChecksum", none, "CDFgetChecksum"},
        {"setChecksum", value, "CDFsetChecksum"},
        {"getReadOnlyMode", none, "CDFgetReadOnlyMode"},
        {"setReadOnlyMode", value, "CDFsetReadOnlyMode"},
        {"getVersion", none, "CDFgetVersion"},
        {"getCopyright", none, "CDFgetCopyright"},
        {"getName", none, "CDFgetName"},
        {"getVarsMaxWrittenRecNum", none, "CDFgetzVarsMaxWrittenRecNum"},
        {"inquire", none, "CDFinquireCDF"},
        {"getCompression", none, "CDFgetCompression"},
        {"setCompression", after({"5", "9"}), "CDFsetCompression"},
        {"getVarCompression", var, "CDFgetzVarCompression"},
        // Unlike the file's, a variable's gzip level is the library's to judge.
        {"setVarCompression", after({"0", "5", "0"}), "CDFsetzVarCompression"},
        {"setVarCompression", after({"0", "5", "10"}), "CDFsetzVarCompression"},
        {"closeVar", var, "CDFclosezVar"},
        {"deleteVar", var, "CDFdeletezVar"},
        {"deleteVarRecords", varRange, "CDFdeletezVarRecords"},
        {"getVarName", var, "CDFgetzVarName"},
        // The look-up by name reports under the close's name.
        {"getVarNum", {text("Var")}, "CDFclosezVar"},
        {"renameVar", {number(0), text("new")}, "CDFrenamezVar"},
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
        {"close", none, "CDFcloseCDF"},
        {"delete", none, "CDFdelete"},
    };
}

TEST(FileCommandArguments, EveryFileCommandChecksItsIdentifierFirst) {
    for (const LibraryRefusal& command : libraryRefusals()) {
        SCOPED_TRACE(command.command);
        // Every later argument is bad too: the identifier must be the one reported.
        const std::vector<Array> rest(command.rest.size(), Array::of<bool>({true}));
        expectHostError(
            [&] { call(command.command, withId(number(UnissuedHandle::kValue), rest)); },
            validateId("argumentNotUint64Scalar"), {std::string("CDFID")});
        expectHostError([&] { call(command.command, withId(Array::uint64(0x7ead), rest)); },
                        cdflibId("invalidFileId"));
    }
}

TEST(FileCommandArguments, EachCommandReportsItsOwnFunctionNameWhenTheLibraryRefuses) {
    const UnissuedHandle handle;
    const std::string refusedId = statusText(BAD_CDF_ID);
    for (const LibraryRefusal& refusal : libraryRefusals()) {
        SCOPED_TRACE(refusal.command);
        expectHostError([&] { call(refusal.command, withId(handle.id(), refusal.rest), 3); },
                        cdflibId("libraryFailure"), {std::string(refusal.functionName), refusedId});
    }
    // A refused close or delete leaves the identifier registered, so it can be retried.
    EXPECT_FALSE(gateway::openFileRegistry().isFileIdUnknown(UnissuedHandle::kValue));
}

TEST(FileCommandArguments, NamesAreTakenAsTextOnly) {
    const UnissuedHandle handle;
    EXPECT_THROW(call("renameVar", {handle.id(), number(0), number(3)}, 0), std::logic_error);
    EXPECT_THROW(call("getVarNum", {handle.id(), number(3)}), std::logic_error);
}

}  // namespace
}  // namespace cdfgate::testing
