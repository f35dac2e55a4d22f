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

// A pad value is one value whatever the file's majority, so one majority serves.
TEST(PadValue, EveryDatatypeIsOneValueColumnBeforeAndAfterItIsSet) {
    ScratchCdf cdf(ROW_MAJOR);
    for (const DatatypeSample& sample : datatypeSamples()) {
        SCOPED_TRACE(sample.name);
        const double varNum =
            cdf.createVar(sample.name, sample.datatype, sample.numElements, {3, 2});
        const Array value = sample.values(1);
        const std::vector<std::size_t> column{value.numel(), 1};
        const Array initial = getPad(cdf, varNum);
        EXPECT_EQ(initial.classId(), value.classId());
        EXPECT_EQ(initial.dims(), column);
        setPad(cdf, varNum, value);
        EXPECT_EQ(getPad(cdf, varNum), reshaped(value, column));
    }
}

TEST(PadValue, SetChecksClassBeforeCount) {
    ScratchCdf cdf(ROW_MAJOR);
    const double int1 = cdf.createVar("i1", CDF_INT1, 1);
    const double text = cdf.createVar("txt", CDF_CHAR, 4);
    const double epoch16 = cdf.createVar("e16", CDF_EPOCH16, 1);
    const auto set = [&](double varNum, Array value) {
        return [&cdf, varNum, value] { setPad(cdf, varNum, value); };
    };
    const Array before = getPad(cdf, text);
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
    // The refused values changed nothing; a four-character text is taken.
    EXPECT_EQ(getPad(cdf, text), before);
    setPad(cdf, text, Array::text("abcd"));
    EXPECT_EQ(getPad(cdf, text), reshaped(Array::text("abcd"), {4, 1}));
}

TEST(PadValue, RefusalsOfTheArgumentsAndTheLibrary) {
    ScratchCdf cdf(ROW_MAJOR);
    // clang-format off
    expectHostError([&] { embedded::call("getVarPadValue", {cdf.id(), Array::text("0")}); },
                    validateId("argumentNotDoubleScalar"), {std::string("VARNUM")});
    expectHostError([&] { embedded::call("setVarPadValue", {cdf.id(), Array::int64(0), Array::scalar(1)}); },
                    validateId("argumentNotDoubleScalar"), {std::string("VARNUM")});
    // clang-format on
    expectHostError([&] { getPad(cdf, 3); }, cdflibId("libraryFailure"),
                    failure("CDFinquirezVar", NO_SUCH_VAR));
    expectHostError([&] { setPad(cdf, 3, Array::scalar(1)); }, cdflibId("libraryFailure"),
                    failure("CDFinquirezVar", NO_SUCH_VAR));
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
