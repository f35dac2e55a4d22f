// Refusals of the readers and writers, each with its identifier and arguments, and
// the order in which their checks run.
#include "scratch_cdf.h"

namespace cdfgate::testing {
namespace {

class DataRefusals : public ::testing::Test {
  protected:
    std::function<void()> command(const char* name, std::vector<Array> arguments) {
        arguments.insert(arguments.begin(), cdf_.id());
        return [name, arguments] { embedded::call(name, arguments, 1); };
    }
    static Array n(double value) { return Array::scalar(value); }
    static Array list(std::initializer_list<double> values) { return Array::of<double>(values); }

    ScratchCdf cdf_{ROW_MAJOR};
    const Array grid_ = n(cdf_.createVar("grid", CDF_INT4, 1, {3, 4}));
    const Array scalar_ = n(cdf_.createVar("scalar", CDF_REAL8, 1));
    const Array epoch16_ = n(cdf_.createVar("e16", CDF_EPOCH16, 1));
    const Array short_ = n(cdf_.createVar("short", CDF_INT2, 1, {2, 3}));
    const Array letter_ = n(cdf_.createVar("letter", CDF_UCHAR, 1));
};

TEST_F(DataRefusals, GetVarData) {
    expectHostError(command("getVarData", {grid_, n(0)}), cdflibId("cannotOmitDimSpec"));
    expectHostError(command("getVarData", {grid_, n(0), list({0})}), cdflibId("badDimSpec"),
                    {std::int64_t{2}, std::string("grid")});
    expectHostError(command("getVarData", {scalar_, n(0), list({0})}), cdflibId("badDimSpec"),
                    {std::int64_t{0}, std::string("scalar")});
    expectHostError(command("getVarData", {grid_, Array::int64(0), list({0, 0})}),
                    validateId("argumentNotDoubleScalar"), {std::string("RECNUM")});
    expectHostError(command("getVarData", {Array::text("grid"), n(0), list({0, 0})}),
                    validateId("argumentNotDoubleScalar"), {std::string("VARNUM")});
    expectHostError(command("getVarData", {grid_, n(0), Array::of<std::int32_t>({0, 0})}),
                    validateId("argumentNotDoublePrecision"), {std::string("INDICES")});
    expectHostError(command("getVarData", {grid_, n(0), list({3, 0})}), cdflibId("libraryFailure"),
                    failure("CDFgetzVarData", BAD_DIM_INDEX));
    expectHostError(command("getVarData", {n(9), n(0)}), cdflibId("libraryFailure"),
                    failure("CDFinquirezVar", NO_SUCH_VAR));
    EXPECT_NO_THROW(command("getVarData", {scalar_, n(0)})());
}

TEST_F(DataRefusals, GetVarRecordData) {
    expectHostError(command("getVarRecordData", {grid_, n(-1)}), cdflibId("libraryFailure"),
                    failure("CDFgetzVarRecordData", NO_SUCH_RECORD));
    expectHostError(command("getVarRecordData", {grid_, list({0, 1})}),
                    validateId("argumentNotDoubleScalar"), {std::string("RECNUM")});
}

TEST_F(DataRefusals, HyperGetVarData) {
    const auto hyper = [&](Array start, Array count, Array stride, double recCount = 1) {
        return command("hyperGetVarData", {grid_, n(0), n(recCount), n(1), std::move(start),
                                           std::move(count), std::move(stride)});
    };
    const Arguments badSpec{std::int64_t{2}, std::string("grid")};
    expectHostError(hyper(list({0}), list({1, 1}), list({1, 1})), cdflibId("badDimSpec"), badSpec);
    expectHostError(hyper(list({0, 0}), list({1}), list({1})), cdflibId("badDimSpec"), badSpec);
    expectHostError(hyper(list({0, 0}), list({1, 1}), list({1})), cdflibId("badDimSpec"), badSpec);
    expectHostError(hyper(list({0, 0}), list({4, 4}), list({1, 1})), cdflibId("dimSizeTooLarge"));
    expectHostError(hyper(list({0, 0}), list({3, 5}), list({1, 1})), cdflibId("dimSizeTooLarge"));
    expectHostError(hyper(list({0, 0}), list({1, 1}), Array::of<std::int32_t>({1, 1})),
                    validateId("argumentNotDoublePrecision"), {std::string("DIMSTRIDe")});
    expectHostError(hyper(list({0, 0}), list({1, 1}), list({1, 1}), 0), cdflibId("libraryFailure"),
                    failure("CDFhyperGetzVarData", BAD_REC_COUNT));
    expectHostError(hyper(list({0, 0}), list({-1, 1}), list({1, 1})), cdflibId("libraryFailure"),
                    failure("CDFhyperGetzVarData", BAD_DIM_COUNT));
    expectHostError(hyper(list({0, 0}), list({1, 1}), list({1, 1}), -5), cdflibId("libraryFailure"),
                    failure("CDFhyperGetzVarData", BAD_REC_COUNT));
    expectHostError(command("hyperGetVarData", {grid_, n(0), Array::int64(1), n(1), list({0, 0}),
                                                list({1, 1}), list({1, 1})}),
                    validateId("argumentNotDoubleScalar"), {std::string("RECCOUNT")});
}

TEST_F(DataRefusals, PutVarDataChecksDimensionsThenCountThenClass) {
    const Array int32 = Array::of<std::int32_t>({5});
    expectHostError(command("putVarData", {grid_, n(0), list({0}), n(5)}),
                    cdflibId("badDimensionExtent"), {std::string("grid"), std::int64_t{2}});
    expectHostError(command("putVarData", {grid_, n(0), list({0, 0}), list({5, 6})}),
                    cdflibId("wrongNumberOfPutVarDataElements"),
                    {std::string("grid"), std::int64_t{1}});
    expectHostError(command("putVarData", {grid_, n(0), list({0, 0}), n(5)}),
                    cdflibId("datatypeMismatch"), {std::string("CDF_INT4"), std::string("double")});
    expectHostError(command("putVarData", {scalar_, n(0), Array::empty(), list({1, 2})}),
                    cdflibId("wrongNumberOfPutVarDataElements"),
                    {std::string("scalar"), std::int64_t{1}});
    expectHostError(command("putVarData", {epoch16_, n(0), Array::empty(), n(1)}),
                    cdflibId("wrongNumberOfPutVarDataElements"),
                    {std::string("e16"), std::int64_t{2}});
    EXPECT_NO_THROW(command("putVarData", {grid_, n(0), list({0, 0}), int32})());
    EXPECT_NO_THROW(command("putVarData", {epoch16_, n(0), Array::empty(), list({1, 2})})());
    EXPECT_NO_THROW(command("putVarData",
                            {epoch16_, n(1), Array::empty(), Array::of<double>({3, 4}, {2, 1})})());
    expectHostError(command("putVarData", {grid_, n(0), list({0, 4}), int32}),
                    cdflibId("libraryFailure"), failure("CDFputzVarData", BAD_DIM_INDEX));
}

TEST_F(DataRefusals, PutVarRecordDataChecksCountThenClassAndIgnoresShape) {
    for (const std::vector<std::size_t>& dims :
         {std::vector<std::size_t>{1, 6}, {2, 3}, {3, 2}, {6, 1}}) {
        EXPECT_NO_THROW(
            command("putVarRecordData", {short_, n(0), Array::zeros(hvINT16_CLASS, dims)})());
    }
    expectHostError(
        command("putVarRecordData", {short_, n(0), Array::zeros(hvDOUBLE_CLASS, {1, 5})}),
        cdflibId("wrongNumberOfPutVarRecordDataElements"), {std::string("short"), std::int64_t{6}});
    expectHostError(
        command("putVarRecordData", {short_, n(0), Array::zeros(hvINT32_CLASS, {2, 3})}),
        cdflibId("datatypeMismatch"), {std::string("CDF_INT2"), std::string("int32")});
    expectHostError(command("putVarRecordData", {epoch16_, n(0), Array::scalar(1)}),
                    cdflibId("wrongNumberOfPutVarRecordDataElements"),
                    {std::string("e16"), std::int64_t{2}});
    expectHostError(
        command("putVarRecordData", {short_, n(-1), Array::zeros(hvINT16_CLASS, {2, 3})}),
        cdflibId("libraryFailure"), failure("CDFputzVarRecordData", NO_SUCH_RECORD));
}

TEST_F(DataRefusals, HyperPutVarDataReportsTheCountsAsTheLibrarySeesThem) {
    const auto hyper = [&](Array start, Array count, Array stride, Array values) {
        return command("hyperPutVarData", {grid_, n(0), n(2), n(1), std::move(start),
                                           std::move(count), std::move(stride), std::move(values)});
    };
    // Host counts [3 4] of a row-major file reach the library as [4 3].
    expectHostError(
        hyper(list({0, 0}), list({3, 4}), list({1, 1}), Array::zeros(hvINT32_CLASS, {1, 23})),
        cdflibId("wrongNumberOfHyperPutVarDataElements"),
        {std::string("[ 4 3 ]"), std::int64_t{2}, std::string("grid"), std::int64_t{24}});
    expectHostError(
        hyper(list({0, 0}), list({3, 4}), list({1, 1}), Array::zeros(hvDOUBLE_CLASS, {1, 24})),
        cdflibId("datatypeMismatch"), {std::string("CDF_INT4"), std::string("double")});
    expectHostError(hyper(list({0}), list({3}), list({1}), Array::zeros(hvINT32_CLASS, {1, 6})),
                    cdflibId("badDimSpec"), {std::int64_t{2}, std::string("grid")});
    expectHostError(
        hyper(list({0, 0}), list({3, 4}), list({1}), Array::zeros(hvINT32_CLASS, {1, 24})),
        cdflibId("badDimSpec"), {std::int64_t{2}, std::string("grid")});
    expectHostError(hyper(list({0, 0}), list({1, 1}), Array::of<std::int8_t>({1, 1}),
                          Array::zeros(hvINT32_CLASS, {1, 2})),
                    validateId("argumentNotDoublePrecision"), {std::string("DIMSTRIDE")});
    expectHostError(
        hyper(list({0, 0}), list({4, 4}), list({1, 1}), Array::zeros(hvINT32_CLASS, {1, 32})),
        cdflibId("libraryFailure"), failure("CDFhyperPutzVarData", BAD_DIM_INDEX));
    EXPECT_NO_THROW(
        hyper(list({0, 0}), list({3, 4}), list({1, 1}), Array::zeros(hvINT32_CLASS, {4, 3, 2}))());
}

TEST_F(DataRefusals, HyperPutVarDataExpectsRecordsTimesCountsElements) {
    ScratchCdf column(COLUMN_MAJOR);
    const Array var = Array::scalar(column.createVar("grid", CDF_INT4, 1, {3, 4}));
    expectHostError(
        [&] {
            embedded::call("hyperPutVarData",
                           {column.id(), var, n(0), n(2), n(1), list({0, 0}), list({3, 4}),
                            list({1, 1}), Array::zeros(hvINT32_CLASS, {1, 23})});
        },
        cdflibId("wrongNumberOfHyperPutVarDataElements"),
        {std::string("[ 3 4 ]"), std::int64_t{2}, std::string("grid"), std::int64_t{24}});
}

TEST_F(DataRefusals, CharactersAreNarrowedToTheirLowByte) {
    command("putVarData", {letter_, n(0), Array::empty(), Array::text(std::u16string{0x0141})})();
    EXPECT_EQ(callOne("getVarData", {cdf_.id(), letter_, n(0)}), Array::text("A"));
    command("putVarRecordData", {letter_, n(1), Array::text(std::u16string{0x1262})})();
    EXPECT_EQ(callOne("getVarRecordData", {cdf_.id(), letter_, n(1)}), Array::text("b"));
}

}  // namespace
}  // namespace cdfgate::testing
