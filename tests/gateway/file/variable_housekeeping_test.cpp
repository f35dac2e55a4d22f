// Variable housekeeping on real files: names, record counts, allocation, blocking,
// reserve percentage, sparseness, deletion and the multi-file cache size.
#include <tuple>

#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

double count(const char* command, const GatewayFile& file, long varNum) {
    return call1(command, {file.id(), number(varNum)}).scalarValue();
}

TEST(VariableHousekeeping, NamesAreReadChangedAndLookedUp) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::open(copyShared(scratch, {"format/zvar_int4_row.cdf"}));
    EXPECT_EQ(call1("getVarName", {file.id(), number(0)}).text(), "Var");
    EXPECT_EQ(call1("getVarNum", {file.id(), Array::text("Var")}), number(0));
    call("renameVar", {file.id(), number(0), Array::text("Renamed")}, 0);
    EXPECT_EQ(call1("getVarName", {file.id(), number(0)}).text(), "Renamed");
    EXPECT_EQ(call1("getVarNum", {file.id(), Array::text("Renamed")}), number(0));
    // An unknown name is reported under the close's function name.
    expectLibraryFailure("getVarNum", {file.id(), Array::text("Var")}, 1, "CDFclosezVar",
                         NO_SUCH_VAR);
    // A negative warning fails the command although the library did the work.
    const std::string longName(CDF_VAR_NAME_LEN256 + 4, 'L');
    expectLibraryFailure("renameVar", {file.id(), number(0), Array::text(longName)}, 0,
                         "CDFrenamezVar", VAR_NAME_TRUNC);
    EXPECT_EQ(call1("getVarName", {file.id(), number(0)}).text(),
              longName.substr(0, CDF_VAR_NAME_LEN256));
    file.close();
}

TEST(VariableHousekeeping, RecordFiguresPassUnchanged) {
    const struct {
        const char* file;
        long varNum;
        double maxWritten;
        double written;
        double blockingFactor;
        const char* sparse;
    } cases[] = {
        {"format/zvar_int4_row.cdf", 0, 2, 3, -1, "NO_SPARSERECORDS"},
        {"format/sparse_records.cdf", 0, 10, 4, 4, "PAD_SPARSERECORDS"},
        {"format/sparse_records.cdf", 1, 3, 1, -1, "PREV_SPARSERECORDS"},
        {"format/sparse_records.cdf", 2, 10, 11, 4, "NO_SPARSERECORDS"},
        {"format/vattr.cdf", 0, -1, 0, -1, "NO_SPARSERECORDS"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.file) + " variable " + std::to_string(c.varNum));
        const GatewayFile file = GatewayFile::open(sharedData(c.file));
        EXPECT_EQ(count("getVarMaxWrittenRecNum", file, c.varNum), c.maxWritten);
        EXPECT_EQ(count("getVarNumRecsWritten", file, c.varNum), c.written);
        EXPECT_EQ(call1("getVarSparseRecords", {file.id(), number(c.varNum)}).text(), c.sparse);
        const double blocking = c.blockingFactor >= 0
                                    ? c.blockingFactor
                                    : static_cast<double>(variableItem(file.cdf(), c.varNum, GET_,
                                                                       zVAR_BLOCKINGFACTOR_));
        EXPECT_EQ(count("getVarBlockingFactor", file, c.varNum), blocking);
        EXPECT_EQ(count("getVarMaxAllocRecNum", file, c.varNum),
                  variableItem(file.cdf(), c.varNum, GET_, zVAR_MAXallocREC_));
        EXPECT_EQ(count("getVarAllocRecords", file, c.varNum),
                  variableItem(file.cdf(), c.varNum, GET_, zVAR_NUMallocRECS_));
        file.close();
    }
}

TEST(VariableHousekeeping, SettersChangeWhatTheGettersReport) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("settings"));
    const long var = createVariable(file.cdf(), "v", CDF_INT2, {2});
    call("setVarBlockingFactor", {file.id(), number(var), number(8)}, 0);
    EXPECT_EQ(count("getVarBlockingFactor", file, var), 8);
    for (const auto& [mode, name] : {std::pair{PREV_SPARSERECORDS, "PREV_SPARSERECORDS"},
                                     std::pair{PAD_SPARSERECORDS, "PAD_SPARSERECORDS"},
                                     std::pair{NO_SPARSERECORDS, "NO_SPARSERECORDS"}}) {
        call("setVarSparseRecords", {file.id(), number(var), number(mode)}, 0);
        EXPECT_EQ(call1("getVarSparseRecords", {file.id(), number(var)}).text(), name);
    }
    call("setVarCompression", {file.id(), number(var), number(GZIP_COMPRESSION), number(5)}, 0);
    call("setVarReservePercent", {file.id(), number(var), number(30)}, 0);
    EXPECT_EQ(count("getVarReservePercent", file, var), 30);
    file.close();
}

TEST(VariableHousekeeping, AllocatingABlockAndWritingInitialRecords) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("allocation"));
    const long var = createVariable(file.cdf(), "allocated", CDF_REAL8);
    call("setVarAllocBlockRecords", {file.id(), number(var), number(0), number(19)}, 0);
    EXPECT_EQ(count("getVarAllocRecords", file, var),
              variableItem(file.cdf(), var, GET_, zVAR_NUMallocRECS_));
    EXPECT_GE(count("getVarAllocRecords", file, var), 20);
    EXPECT_GE(count("getVarMaxAllocRecNum", file, var), 19);
    EXPECT_EQ(count("getVarNumRecsWritten", file, var), 0);
    const long initial = createVariable(file.cdf(), "initial", CDF_REAL8);
    call("setVarInitialRecs", {file.id(), number(initial), number(10)}, 0);
    EXPECT_EQ(count("getVarMaxWrittenRecNum", file, initial), 9);
    EXPECT_EQ(count("getVarNumRecsWritten", file, initial), 10);
    file.close();
}

TEST(VariableHousekeeping, DeletingAndClosingVariables) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::open(copyShared(scratch, {"format/sparse_records.cdf"}));
    call("deleteVar", {file.id(), number(0)}, 0);
    const std::vector<Array> description = call("inquire", {file.id()}, 5);
    ASSERT_EQ(description.size(), 5u);
    EXPECT_EQ(description[3], number(2));
    // Later variables are numbered down.
    EXPECT_EQ(call1("getVarName", {file.id(), number(0)}).text(), "P");
    call("closeVar", {file.id(), number(0)}, 0);
    expectLibraryFailure("deleteVar", {file.id(), number(2)}, 0, "CDFdeletezVar", NO_SUCH_VAR);
    file.close();
}

TEST(VariableHousekeeping, VariableCacheSizeIsTheMultiFileLibrarysCount) {
    const GatewayFile single = GatewayFile::open(sharedData("format/zvar_int4_row.cdf"));
    for (const auto& [command, rest, results] :
         {std::tuple{"getVarCacheSize", std::vector<Array>{number(0)}, 1},
          std::tuple{"setVarCacheSize", std::vector<Array>{number(0), number(4)}, 0}}) {
        SCOPED_TRACE(command);
        std::vector<Array> arguments{single.id()};
        arguments.insert(arguments.end(), rest.begin(), rest.end());
        expectHostError([&] { call(command, arguments, results); },
                        cdflibId("varCacheSizeOpInappropriate"));
    }
    single.close();
    const ScratchDirectory scratch;
    const GatewayFile multi = GatewayFile::open(copyShared(
        scratch, {"format/multi_file.cdf", "format/multi_file.z0", "format/multi_file.z1"}));
    EXPECT_EQ(call1("getFormat", {multi.id()}).text(), "MULTI_FILE");
    EXPECT_EQ(count("getVarCacheSize", multi, 1),
              variableItem(multi.cdf(), 1, CONFIRM_, zVAR_CACHESIZE_));
    call("setVarCacheSize", {multi.id(), number(1), number(6)}, 0);
    EXPECT_EQ(count("getVarCacheSize", multi, 1), 6);
    multi.close();
}

TEST(VariableHousekeeping, DeletingARangeOfRecords) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::open(copyShared(scratch, {"format/sparse_records.cdf"}));
    // "N" holds records 0 to 10; deleting 5 to 10 leaves 0 to 4.
    call("deleteVarRecords", {file.id(), number(2), number(5), number(10)}, 0);
    EXPECT_EQ(count("getVarMaxWrittenRecNum", file, 2), 4);
    file.close();
}

}  // namespace
}  // namespace cdfgate::testing
