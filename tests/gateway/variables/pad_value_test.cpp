// "getVarPadValue" and "setVarPadValue".
#include "datatype_samples.h"
#include "scratch_cdf.h"

namespace cdfgate::testing {
namespace {

Array getPad(const ScratchCdf& cdf, double varNum) {
    return callOne("getVarPadValue", {cdf.id(), Array::scalar(varNum)});
}

void setPad(const ScratchCdf& cdf, double varNum, Array value) {
    embedded::call("setVarPadValue", {cdf.id(), Array::scalar(varNum), std::move(value)}, 0);
}

TEST(PadValue, EveryDatatypeRoundTripsAsOneValueColumn) {
    for (const long majority : {ROW_MAJOR, COLUMN_MAJOR}) {
        ScratchCdf cdf(majority);
        for (const DatatypeSample& sample : datatypeSamples()) {
            SCOPED_TRACE(sample.name);
            const double varNum =
                cdf.createVar(sample.name, sample.datatype, sample.numElements, {3, 2});
            const Array value = sample.values(1);
            setPad(cdf, varNum, value);
            const Array pad = getPad(cdf, varNum);
            EXPECT_EQ(pad, reshaped(value, {value.numel(), 1}));
        }
    }
}

TEST(PadValue, ShapesFollowTheDatatype) {
    ScratchCdf cdf(ROW_MAJOR);
    const double epoch16 = cdf.createVar("e16", CDF_EPOCH16, 1, {3});
    const double tt2000 = cdf.createVar("tt", CDF_TIME_TT2000, 1);
    const double text = cdf.createVar("txt", CDF_CHAR, 4, {2, 2});
    const Array epoch16Pad = getPad(cdf, epoch16);
    EXPECT_EQ(epoch16Pad.classId(), hvDOUBLE_CLASS);
    EXPECT_EQ(epoch16Pad.dims(), (std::vector<std::size_t>{2, 1}));
    const Array tt2000Pad = getPad(cdf, tt2000);
    EXPECT_EQ(tt2000Pad.classId(), hvINT64_CLASS);
    EXPECT_EQ(tt2000Pad.dims(), (std::vector<std::size_t>{1, 1}));
    const Array textPad = getPad(cdf, text);
    EXPECT_EQ(textPad.classId(), hvCHAR_CLASS);
    EXPECT_EQ(textPad.dims(), (std::vector<std::size_t>{4, 1}));
}

TEST(PadValue, TextBytesAboveAsciiReadBackSignExtended) {
    ScratchCdf cdf(COLUMN_MAJOR);
    const double varNum = cdf.createVar("txt", CDF_UCHAR, 2);
    setPad(cdf, varNum, Array::text("\xE9z"));
    EXPECT_EQ(getPad(cdf, varNum).utext(), (std::u16string{0xFFE9, u'z'}));
}

TEST(PadValue, SetChecksClassBeforeCount) {
    ScratchCdf cdf(ROW_MAJOR);
    const double int1 = cdf.createVar("i1", CDF_INT1, 1);
    const double text = cdf.createVar("txt", CDF_CHAR, 4);
    const double epoch16 = cdf.createVar("e16", CDF_EPOCH16, 1);
    const auto set = [&](double varNum, Array value) {
        return [&cdf, varNum, value] { setPad(cdf, varNum, value); };
    };
    expectHostError(set(int1, Array::scalar(-1)), cdflibId("datatypeMismatch"),
                    {std::string("CDF_INT1"), std::string("double")});
    expectHostError(set(int1, Array::of<double>({1, 2})), cdflibId("datatypeMismatch"),
                    {std::string("CDF_INT1"), std::string("double")});
    expectHostError(set(int1, Array::of<std::int8_t>({1, 2})),
                    cdflibId("wrongNumberOfPadValueElements"),
                    {std::string("i1"), std::int64_t{1}});
    expectHostError(set(text, Array::text("abc")), cdflibId("wrongNumberOfPadValueElements"),
                    {std::string("txt"), std::int64_t{4}});
    expectHostError(set(epoch16, Array::scalar(1)), cdflibId("wrongNumberOfPadValueElements"),
                    {std::string("e16"), std::int64_t{2}});
    // A refused value changed nothing.
    const Array before = getPad(cdf, text);
    setPad(cdf, text, Array::text("abcd"));
    EXPECT_NE(getPad(cdf, text), before);
    EXPECT_EQ(getPad(cdf, text), reshaped(Array::text("abcd"), {4, 1}));
}

TEST(PadValue, RefusalsOfTheArgumentsAndTheLibrary) {
    ScratchCdf cdf(ROW_MAJOR);
    expectHostError(
        [&] {
            embedded::call("getVarPadValue", {cdf.id(), Array::text("0")});
        },
        validateId("argumentNotDoubleScalar"), {std::string("VARNUM")});
    expectHostError(
        [&] {
            embedded::call("setVarPadValue", {cdf.id(), Array::int64(0), Array::scalar(1)});
        },
        validateId("argumentNotDoubleScalar"), {std::string("VARNUM")});
    expectHostError([&] { getPad(cdf, 3); }, cdflibId("libraryFailure"),
                    {std::string("CDFinquirezVar"), statusText(NO_SUCH_VAR)});
    expectHostError([&] { setPad(cdf, 3, Array::scalar(1)); }, cdflibId("libraryFailure"),
                    {std::string("CDFinquirezVar"), statusText(NO_SUCH_VAR)});
}

TEST(PadValue, UnwrittenRecordsReadAsThePadEverySecondRecordApart) {
    ScratchCdf cdf(ROW_MAJOR);
    const Array var = Array::scalar(cdf.createVar("v", CDF_INT2, 1, {2}));
    setPad(cdf, 0, Array::of<std::int16_t>({-7}));
    embedded::call("putVarRecordData",
                   {cdf.id(), var, Array::scalar(2), Array::of<std::int16_t>({5, 6})}, 0);
    const auto slab = [&](double recStart, double recCount, double recStride) {
        return callOne("hyperGetVarData", {cdf.id(), var, Array::scalar(recStart),
                                           Array::scalar(recCount), Array::scalar(recStride),
                                           Array::scalar(0), Array::scalar(2), Array::scalar(1)});
    };
    EXPECT_EQ(slab(0, 3, 1), Array::of<std::int16_t>({-7, -7, -7, -7, 5, 6}, {2, 3}));
    EXPECT_EQ(slab(0, 2, 2), Array::of<std::int16_t>({-7, -7, 5, 6}, {2, 2}));
    EXPECT_EQ(callOne("getVarRecordData", {cdf.id(), var, Array::scalar(1)}),
              Array::of<std::int16_t>({-7, -7}, {2, 1}));
}

}  // namespace
}  // namespace cdfgate::testing
