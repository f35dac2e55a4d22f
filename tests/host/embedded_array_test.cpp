#include <gtest/gtest.h>

#include <sstream>

#include "cdfgate/embedded.h"

namespace {

using cdfgate::embedded::Array;
using Dims = std::vector<std::size_t>;

TEST(EmbeddedArray, FactoriesMakeTheirClassesAndShapes) {
    struct Case {
        const char* label;
        Array array;
        const char* className;
        Dims dims;
    };
    const Case cases[] = {
        {"scalar", Array::scalar(2.5), "double", {1, 1}},
        {"int64", Array::int64(-3), "int64", {1, 1}},
        {"uint64", Array::uint64(7), "uint64", {1, 1}},
        {"text", Array::text("abc"), "char", {1, 3}},
        {"empty text", Array::text(""), "char", {1, 0}},
        {"row", Array::of<float>({1, 2, 3}), "single", {1, 3}},
        {"matrix", Array::of<std::int16_t>({1, 2, 3, 4, 5, 6}, {2, 3}), "int16", {2, 3}},
        {"column", Array::of<std::uint32_t>({1, 2}, {2, 1}), "uint32", {2, 1}},
        {"logical", Array::logical({true, false}), "logical", {1, 2}},
        {"cell", Array::cell({Array::scalar(1), Array::text("a")}), "cell", {1, 2}},
        {"empty double", Array::empty(), "double", {0, 0}},
        {"empty cell", Array::empty(hvCELL_CLASS), "cell", {0, 0}},
        {"empty int8", Array::empty(hvINT8_CLASS), "int8", {0, 0}},
        {"zeros", Array::zeros(hvUINT8_CLASS, {2, 2, 2}), "uint8", {2, 2, 2}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(c.array.className(), c.className);
        EXPECT_STREQ(hvGetClassName(c.array.get()), c.className);
        EXPECT_EQ(c.array.dims(), c.dims);
    }
}

TEST(EmbeddedArray, KeepsElementsInColumnOrder) {
    const Array matrix = Array::of<std::int32_t>({11, 21, 12, 22, 13, 23}, {2, 3});
    const auto elements = matrix.data<std::int32_t>();
    ASSERT_EQ(elements.size(), 6u);
    // Element (row 1, column 2), zero-based, sits at 1 + 2 * 2.
    EXPECT_EQ(elements[1 + 2 * 2], 23);
    EXPECT_EQ(hvGetTypedData<std::int32_t>(matrix.get())[2], 12);
}

TEST(EmbeddedArray, RefusesValuesThatDoNotFillTheShape) {
    EXPECT_THROW(Array::of<double>({1, 2, 3}, {2, 2}), std::invalid_argument);
    EXPECT_THROW(Array::cell({Array::scalar(1)}, {1, 2}), std::invalid_argument);
    EXPECT_NO_THROW(Array::of<double>({}, {0, 3}));
}

TEST(EmbeddedArray, DataOfTheWrongTypeIsRefused) {
    const Array number = Array::scalar(1);
    EXPECT_THROW(number.data<float>(), std::logic_error);
    EXPECT_THROW(number.data<std::int64_t>(), std::logic_error);
    EXPECT_THROW(number.text(), std::logic_error);
    EXPECT_THROW(Array::uint64(1).data<std::int64_t>(), std::logic_error);
}

TEST(EmbeddedArray, ScalarValueOfEachClass) {
    EXPECT_EQ(Array::scalar(-2.5).scalarValue(), -2.5);
    EXPECT_EQ(Array::of<float>({0.5f}).scalarValue(), 0.5);
    EXPECT_EQ(Array::of<std::int8_t>({-7}).scalarValue(), -7);
    EXPECT_EQ(Array::of<std::uint16_t>({65535}).scalarValue(), 65535);
    EXPECT_EQ(Array::uint64(1ull << 53).scalarValue(), 9007199254740992.0);
    EXPECT_EQ(Array::logical({true}).scalarValue(), 1.0);
    EXPECT_EQ(Array::text("A").scalarValue(), 65.0);
    EXPECT_THROW(Array::of<double>({1, 2}).scalarValue(), std::logic_error);
    EXPECT_THROW(Array::empty().scalarValue(), std::logic_error);
    EXPECT_THROW(Array::cell({Array::scalar(1)}).scalarValue(), std::logic_error);
}

TEST(EmbeddedArray, CopiesAreDeepAndIndependent) {
    Array original = Array::cell({Array::of<double>({1, 2}), Array(), Array::text("x")}, {3, 1});
    Array copy = original;
    EXPECT_EQ(copy, original);
    EXPECT_NE(copy.get(), original.get());
    EXPECT_NE(hvGetCell(copy.get(), 0), hvGetCell(original.get(), 0));
    EXPECT_EQ(hvGetCell(copy.get(), 1), nullptr);
    hvSetCell(copy.get(), 0, Array::scalar(5).release());
    EXPECT_NE(copy, original);
    EXPECT_EQ(original.cell(0), Array::of<double>({1, 2}));

    Array assigned = Array::scalar(0);
    assigned = original;
    EXPECT_EQ(assigned, original);
    assigned = std::as_const(assigned);
    EXPECT_EQ(assigned, original);
}

TEST(EmbeddedArray, EqualityComparesClassShapeAndElements) {
    EXPECT_EQ(Array::of<double>({1, 2}), Array::of<double>({1, 2}));
    EXPECT_NE(Array::of<double>({1, 2}), Array::of<double>({1, 2}, {2, 1}));
    EXPECT_NE(Array::of<double>({1}), Array::of<float>({1}));
    EXPECT_NE(Array::of<double>({1, 2}), Array::of<double>({1, 3}));
    EXPECT_NE(Array::cell({Array::scalar(1)}), Array::cell({Array()}));
    EXPECT_EQ(Array(), Array());
    EXPECT_NE(Array(), Array::empty());
}

TEST(EmbeddedArray, MovedFromArrayHoldsNothingAndSaysSo) {
    Array source = Array::text("abc");
    const Array target = std::move(source);
    EXPECT_EQ(target.text(), "abc");
    EXPECT_FALSE(source.hasArray());  // NOLINT(bugprone-use-after-move)
    EXPECT_THROW(source.classId(), std::logic_error);
    EXPECT_THROW(Array().numel(), std::logic_error);
}

TEST(EmbeddedArray, CellAccessCopiesElementsAndShowsEmptyCellsAsEmptyDouble) {
    const Array cell = Array::cell({Array::text("name"), Array()});
    EXPECT_EQ(cell.cell(0).text(), "name");
    EXPECT_EQ(cell.cell(1), Array::empty());
    EXPECT_THROW(cell.cell(2), std::out_of_range);
}

TEST(EmbeddedArray, DescribesItselfForDiagnostics) {
    const auto describe = [](const Array& array) {
        std::ostringstream out;
        out << array;
        return out.str();
    };
    EXPECT_EQ(describe(Array::of<std::int8_t>({-1, 2}, {2, 1})), "2x1 int8 [-1 2]");
    EXPECT_EQ(describe(Array::cell({Array::text("ab"), Array()})),
              "1x2 cell {1x2 char 'ab', 0x0 double []}");
    EXPECT_EQ(describe(Array::zeros(hvUINT8_CLASS, {1, 20})),
              "1x20 uint8 [0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 ...]");
    EXPECT_EQ(describe(Array()), "(no array)");
}

}  // namespace
