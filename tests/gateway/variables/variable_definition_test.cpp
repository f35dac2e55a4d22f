// "createVar" and "inquireVar": definitions in the host's order on files of both majorities.
#include <array>

#include "scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using Logicals = std::vector<bool>;

Array logicalRow(const Logicals& flags) {
    if (flags.empty()) return Array::empty(hvLOGICAL_CLASS);
    Array row = Array::zeros(hvLOGICAL_CLASS, {1, flags.size()});
    for (std::size_t i = 0; i < flags.size(); ++i) row.data<bool>()[i] = flags[i];
    return row;
}

Array doubleRow(const std::vector<double>& values) {
    return values.empty() ? Array::empty() : Array::of<double>(values);
}

std::vector<Array> inquire(const ScratchCdf& cdf, double varNum) {
    return embedded::call("inquireVar", {cdf.id(), Array::scalar(varNum)}, 6);
}

struct LibraryDefinition {
    std::vector<long> dimSizes;
    std::vector<long> dimVariances;
    long recordVariance;
};

LibraryDefinition libraryDefinition(const ScratchCdf& cdf, long varNum) {
    long numDims = 0;
    std::array<long, CDF_MAX_DIMS> sizes{};
    std::array<long, CDF_MAX_DIMS> varys{};
    LibraryDefinition definition{};
    const CDFstatus status = CDFlib(SELECT_, CDF_, cdf.handle(), zVAR_, varNum, GET_, zVAR_NUMDIMS_,
                                    &numDims, zVAR_DIMSIZES_, sizes.data(), zVAR_DIMVARYS_,
                                    varys.data(), zVAR_RECVARY_, &definition.recordVariance, NULL_);
    EXPECT_GE(status, CDF_OK);
    definition.dimSizes.assign(sizes.begin(), sizes.begin() + numDims);
    definition.dimVariances.assign(varys.begin(), varys.begin() + numDims);
    return definition;
}

struct DefinitionCase {
    const char* name;
    long majority;
    long datatype;
    long numElements;
    std::vector<double> dims;
    Logicals dimVariances;
    bool recordVariance;
    const char* datatypeName;
    LibraryDefinition library;
};

TEST(CreateVar, DefinitionsRoundTripInTheHostsOrder) {
    // clang-format off
    const DefinitionCase cases[] = {
        {"scalar", COLUMN_MAJOR, CDF_REAL8, 1, {}, {}, true, "cdf_real8", {{}, {}, VARY}},
        {"text", ROW_MAJOR, CDF_CHAR, 10, {}, {}, false, "cdf_char", {{}, {}, NOVARY}},
        {"row major", ROW_MAJOR, CDF_INT2, 1, {2, 3}, {true, false}, true, "cdf_int2",
         {{3, 2}, {NOVARY, VARY}, VARY}},
        {"column major", COLUMN_MAJOR, CDF_INT2, 1, {2, 3}, {true, false}, true, "cdf_int2",
         {{2, 3}, {VARY, NOVARY}, VARY}},
        {"three dimensions", ROW_MAJOR, CDF_TIME_TT2000, 1, {4, 1, 7}, {false, true, true}, false,
         "cdf_time_tt2000", {{7, 1, 4}, {VARY, VARY, NOVARY}, NOVARY}},
        {"text with dimensions", COLUMN_MAJOR, CDF_UCHAR, 3, {5}, {true}, true, "cdf_uchar",
         {{5}, {VARY}, VARY}},
    };
    // clang-format on
    for (const DefinitionCase& c : cases) {
        SCOPED_TRACE(c.name);
        ScratchCdf cdf(c.majority);
        const Array varNum =
            callOne("createVar",
                    {cdf.id(), Array::text("V"), Array::scalar(static_cast<double>(c.datatype)),
                     Array::scalar(static_cast<double>(c.numElements)), doubleRow(c.dims),
                     Array::logical({c.recordVariance}), logicalRow(c.dimVariances)});
        ASSERT_EQ(varNum, Array::scalar(0));

        const LibraryDefinition library = libraryDefinition(cdf, 0);
        EXPECT_EQ(library.dimSizes, c.library.dimSizes);
        EXPECT_EQ(library.dimVariances, c.library.dimVariances);
        EXPECT_EQ(library.recordVariance, c.library.recordVariance);

        EXPECT_EQ(inquire(cdf, 0),
                  (std::vector<Array>{Array::text("V"), Array::text(c.datatypeName),
                                      Array::scalar(static_cast<double>(c.numElements)),
                                      doubleRow(c.dims), Array::logical({c.recordVariance}),
                                      logicalRow(c.dimVariances)}));
    }
}

TEST(CreateVar, VariancesMayBeGivenAsNumbersTruncatedTowardZero) {
    ScratchCdf cdf(COLUMN_MAJOR);
    const Array dims = Array::of<double>({2, 2, 2});
    callOne("createVar", {cdf.id(), Array::text("V"), Array::scalar(CDF_INT4), Array::scalar(1),
                          dims, Array::scalar(-1.5), Array::of<double>({-1, 0.9, -0.2})});
    const LibraryDefinition library = libraryDefinition(cdf, 0);
    EXPECT_EQ(library.recordVariance, VARY);
    EXPECT_EQ(library.dimVariances, (std::vector<long>{VARY, NOVARY, NOVARY}));
    // Only the first record variance counts.
    callOne("createVar", {cdf.id(), Array::text("W"), Array::scalar(CDF_INT4), Array::scalar(1),
                          Array::empty(), Array::logical({false, true}), Array::empty()});
    EXPECT_EQ(libraryDefinition(cdf, 1).recordVariance, NOVARY);
}

TEST(CreateVar, RefusesArgumentsInArgumentOrder) {
    ScratchCdf cdf(ROW_MAJOR);
    const auto create = [&](Array datatype, Array numElements, Array dims, Array recVary,
                            Array dimVarys) {
        return [&cdf, datatype, numElements, dims, recVary, dimVarys] {
            embedded::call("createVar", {cdf.id(), Array::text("V"), datatype, numElements, dims,
                                         recVary, dimVarys});
        };
    };
    const Array one = Array::scalar(1);
    const Array type = Array::scalar(CDF_INT4);
    const Array dims2 = Array::of<double>({2, 3});
    const Array vary = Array::logical({true});
    const Array vary2 = Array::logical({true, true});
    const std::string badVariance = cdflibId("badVarianceDatatype");
    const std::string unrecognized = cdflibId("unrecognizedValue");
    const std::string mismatched = cdflibId("mismatchedVarianceSize");
    const Arguments variance{std::int64_t{1}, std::string("VARIANCE")};
    const std::string notScalar = validateId("argumentNotDoubleScalar");
    // clang-format off
    expectHostError(create(Array::of<std::int32_t>({4}), one, dims2, vary, vary2), notScalar, {std::string("DATATYPE")});
    expectHostError(create(type, Array::of<double>({1, 1}), dims2, vary, vary2), notScalar, {std::string("NUMELEMENTS")});
    expectHostError(create(type, one, Array::of<std::int32_t>({2, 3}), vary, vary2),
                    validateId("argumentNotDoublePrecision"), {std::string("DIMS")});
    expectHostError(create(type, one, dims2, Array::text("true"), Array::text("x")), badVariance);
    expectHostError(create(type, one, dims2, Array::of<std::int8_t>({-1}), vary2), badVariance);
    expectHostError(create(type, one, dims2, Array::scalar(1), vary2), unrecognized, variance);
    expectHostError(create(type, one, dims2, Array::empty(hvLOGICAL_CLASS), vary2), mismatched,
                    {std::int64_t{0}, std::int64_t{1}});
    expectHostError(create(type, one, dims2, vary, Array::text("true")), badVariance);
    expectHostError(create(type, one, dims2, vary, Array::of<double>({1, 0})), unrecognized, variance);
    expectHostError(create(type, one, dims2, vary, vary), mismatched, {std::int64_t{1}, std::int64_t{2}});
    expectHostError(create(type, one, Array::empty(), vary, vary), mismatched, {std::int64_t{1}, std::int64_t{0}});
    expectHostError(create(type, one, dims2, vary, Array::scalar(1e300)), validateId("argumentOutOfBounds"));
    // clang-format on
    // Nothing was created by any refused call.
    expectHostError([&] { inquire(cdf, 0); }, cdflibId("libraryFailure"),
                    failure("CDFinquirezVar", NO_SUCH_VAR));
}

// The datatype and element count are the library's to judge, not the gateway's.
TEST(CreateVar, LibraryRefusalsNameCreatezVar) {
    ScratchCdf cdf(ROW_MAJOR);
    expectHostError([&] { cdf.createVar("W", 3, 1); }, cdflibId("libraryFailure"),
                    failure("CDFcreatezVar", BAD_DATA_TYPE));
    expectHostError([&] { cdf.createVar("W", CDF_CHAR, 0); }, cdflibId("libraryFailure"),
                    failure("CDFcreatezVar", BAD_NUM_ELEMS));
}

TEST(CreateVar, RefusesFileIdentifiersFirst) {
    // A name that is no text is not reached either.
    const auto createVar = [](Array id, Array name) {
        return [id, name] {
            embedded::call("createVar", {id, name, Array::scalar(1), Array::scalar(1),
                                         Array::empty(), Array::scalar(-1), Array::empty()});
        };
    };
    expectHostError(createVar(Array::scalar(1), Array::scalar(1)),
                    validateId("argumentNotUint64Scalar"), {std::string("CDFID")});
    expectHostError(createVar(Array::uint64(12345), Array::text("V")), cdflibId("invalidFileId"));
}

TEST(InquireVar, FillsOnlyTheSlotsTheHostOffers) {
    ScratchCdf cdf(ROW_MAJOR);
    cdf.createVar("V", CDF_EPOCH16, 1, {4});
    EXPECT_EQ(embedded::call("inquireVar", {cdf.id(), Array::scalar(0)}, 0),
              std::vector<Array>{Array::text("V")});
    EXPECT_EQ(embedded::call("inquireVar", {cdf.id(), Array::scalar(0)}, 3),
              (std::vector<Array>{Array::text("V"), Array::text("cdf_epoch16"), Array::scalar(1)}));
}

TEST(InquireVar, RefusesBadVariableNumbers) {
    ScratchCdf cdf(ROW_MAJOR);
    const auto inquireVar = [&](Array varNum) {
        return [&cdf, varNum] { embedded::call("inquireVar", {cdf.id(), varNum}); };
    };
    expectHostError(inquireVar(Array::int64(0)), validateId("argumentNotDoubleScalar"),
                    {std::string("VARNUM")});
    expectHostError(inquireVar(Array::scalar(0)), cdflibId("libraryFailure"),
                    failure("CDFinquirezVar", NO_SUCH_VAR));
    expectHostError(inquireVar(Array::scalar(-1)), cdflibId("libraryFailure"),
                    failure("CDFinquirezVar", BAD_VAR_NUM));
}

}  // namespace
}  // namespace cdfgate::testing
