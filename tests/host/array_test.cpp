#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "cdfgate/embedded.h"

namespace {

using cdfgate::embedded::Array;
using Dims = std::vector<std::size_t>;

std::vector<std::size_t> dimsOf(const hvArray* array) {
    const std::size_t* dims = hvGetDimensions(array);
    return {dims, dims + hvGetNumberOfDimensions(array)};
}

struct ClassRow {
    hvClassID classId;
    const char* name;
    std::size_t elementSize;
};

constexpr ClassRow kNumericClasses[] = {
    {hvDOUBLE_CLASS, "double", 8}, {hvSINGLE_CLASS, "single", 4},   {hvINT8_CLASS, "int8", 1},
    {hvUINT8_CLASS, "uint8", 1},   {hvINT16_CLASS, "int16", 2},     {hvUINT16_CLASS, "uint16", 2},
    {hvINT32_CLASS, "int32", 4},   {hvUINT32_CLASS, "uint32", 4},   {hvINT64_CLASS, "int64", 8},
    {hvUINT64_CLASS, "uint64", 8}, {hvLOGICAL_CLASS, "logical", 1},
};

TEST(HostArray, NumericClassesAreZeroFilledWithTheirNamesAndSizes) {
    for (const auto& row : kNumericClasses) {
        SCOPED_TRACE(row.name);
        const Dims dims{3, 2};
        const matrix::array_ptr array =
            matrix::detail::do_create_numeric(dims, row.classId, hvREAL);
        EXPECT_EQ(hvGetClassID(array.get()), row.classId);
        EXPECT_STREQ(hvGetClassName(array.get()), row.name);
        EXPECT_EQ(hvGetElementSize(array.get()), row.elementSize);
        EXPECT_EQ(hvGetNumberOfElements(array.get()), 6u);
        EXPECT_EQ(dimsOf(array.get()), dims);
        EXPECT_FALSE(hvIsComplex(array.get()));
        const auto* bytes = static_cast<const unsigned char*>(hvGetData(array.get()));
        ASSERT_NE(bytes, nullptr);
        for (std::size_t i = 0; i < 6 * row.elementSize; ++i) EXPECT_EQ(bytes[i], 0) << i;
    }
}

TEST(HostArray, OtherClassNamesAsTheHostReportsThem) {
    const Dims dims{1, 1};
    EXPECT_STREQ(hvGetClassName(matrix::detail::do_create_char(dims).get()), "char");
    EXPECT_STREQ(hvGetClassName(matrix::detail::do_create_cell(dims).get()), "cell");
    EXPECT_EQ(hvGetElementSize(matrix::detail::do_create_char(dims).get()), 2u);
}

TEST(HostArray, ShapeKeepsAtLeastTwoDimensionsAndDropsTrailingSingletons) {
    struct Case {
        Dims requested;
        Dims shape;
        std::size_t count;
    };
    const Case cases[] = {
        {{}, {1, 1}, 1},
        {{4}, {4, 1}, 4},
        {{0, 0}, {0, 0}, 0},
        {{1, 0}, {1, 0}, 0},
        {{2, 3, 1, 1}, {2, 3}, 6},
        {{2, 1, 4}, {2, 1, 4}, 8},
        {{2, 3, 4, 1}, {2, 3, 4}, 24},
        {{1, 1, 1}, {1, 1}, 1},
        {{3, 0, 5}, {3, 0, 5}, 0},
    };
    for (const auto& c : cases) {
        const matrix::array_ptr array =
            matrix::detail::do_create_numeric(c.requested, hvDOUBLE_CLASS, hvREAL);
        EXPECT_EQ(dimsOf(array.get()), c.shape);
        EXPECT_EQ(hvGetNumberOfElements(array.get()), c.count);
        EXPECT_NE(hvGetData(array.get()), nullptr);
    }
}

TEST(HostArray, RefusesWhatTheBuiltInHostCannotHold) {
    const Dims dims{1, 1};
    EXPECT_THROW(matrix::detail::do_create_numeric(dims, hvDOUBLE_CLASS, hvCOMPLEX),
                 std::invalid_argument);
    for (const hvClassID classId : {hvCELL_CLASS, hvCHAR_CLASS, hvSTRUCT_CLASS, hvUNKNOWN_CLASS,
                                    hvFUNCTION_CLASS, hvVOID_CLASS}) {
        EXPECT_THROW(matrix::detail::do_create_uninitnumeric(dims, classId, hvREAL),
                     std::invalid_argument)
            << classId;
    }
    const std::size_t huge = std::size_t{1} << 40;
    const Dims overflowing{huge, huge};
    EXPECT_THROW(matrix::detail::do_create_numeric(overflowing, hvUINT8_CLASS, hvREAL),
                 std::length_error);
    const Dims bytesOverflow{std::numeric_limits<std::size_t>::max() / 4};
    EXPECT_THROW(matrix::detail::do_create_numeric(bytesOverflow, hvDOUBLE_CLASS, hvREAL),
                 std::length_error);
}

TEST(HostArray, LogicalsAreReachableOnlyOnLogicalArrays) {
    const Array flags = Array::logical({true, false, true});
    ASSERT_NE(hvGetLogicals(flags.get()), nullptr);
    EXPECT_TRUE(hvGetLogicals(flags.get())[2]);
    EXPECT_FALSE(hvGetLogicals(flags.get())[1]);
    EXPECT_EQ(hvGetLogicals(Array::of<std::uint8_t>({1}).get()), nullptr);
}

TEST(HostText, CreateMakesARowOfSignExtendedUnits) {
    const char bytes[] = {
        'a', '\0', 'Z', static_cast<char>(0x80), static_cast<char>(0xE9), static_cast<char>(0xFF)};
    const Array text(matrix::create(bytes, sizeof bytes));
    EXPECT_EQ(text.dims(), (Dims{1, 6}));
    EXPECT_EQ(text.utext(), (std::u16string{u'a', 0, u'Z', 0xFF80, 0xFFE9, 0xFFFF}));
    EXPECT_EQ(text.text(), std::string(bytes, sizeof bytes));
    EXPECT_EQ(Array(matrix::create(nullptr, 0)).dims(), (Dims{1, 0}));
}

TEST(HostText, ArrayToStringNarrowsByteUnitsAndStopsAtNul) {
    const Array text = Array::text(u"ab\u00e9\uFF80c");
    const std::unique_ptr<char, decltype(&hvFree)> copy(hvArrayToString(text.get()), hvFree);
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy.get(),
                 "ab\xe9\x80"
                 "c");
    // A wider unit never narrows to an ASCII byte ("\u016Fpen" must not read as "open").
    const Array wide = Array::text(u"\u016Fpen\u4E2D");
    const std::unique_ptr<char, decltype(&hvFree)> wideCopy(hvArrayToString(wide.get()), hvFree);
    EXPECT_STREQ(wideCopy.get(),
                 "\xC5\xAF"
                 "pen\xE4\xB8\xAD");
    const Array withNul = Array::text(std::string_view("ab\0cd", 5));
    const std::unique_ptr<char, decltype(&hvFree)> cut(hvArrayToString(withNul.get()), hvFree);
    EXPECT_STREQ(cut.get(), "ab");
    const std::unique_ptr<char, decltype(&hvFree)> empty(hvArrayToString(Array::text("").get()),
                                                         hvFree);
    ASSERT_NE(empty, nullptr);
    EXPECT_STREQ(empty.get(), "");
}

TEST(HostText, NonCharacterArraysHaveNoText) {
    for (const Array& array : {Array::scalar(65), Array::of<std::uint16_t>({65}),
                               Array::cell({Array::text("A")}), Array::logical({true})}) {
        EXPECT_EQ(hvArrayToString(array.get()), nullptr) << array.className();
        EXPECT_TRUE(matrix::get_ustring(array.get()).empty()) << array.className();
    }
    EXPECT_EQ(matrix::get_ustring(Array::text(u"x\u00e9").get()), u"x\u00e9");
}

TEST(HostCells, StartEmptyAndOwnWhatIsStored) {
    const Dims dims{2, 2};
    matrix::array_ptr cell = matrix::detail::do_create_cell(dims);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(hvGetCell(cell.get(), i), nullptr);
    matrix::array_ptr element = Array::text("abc").release();
    const hvArray* const stored = element.get();
    hvSetCell(cell.get(), 3, std::move(element));
    EXPECT_EQ(hvGetCell(cell.get(), 3), stored);
    // Replacing and nesting must neither leak nor double free (checked under the sanitizers).
    hvSetCell(cell.get(), 3, Array::cell({Array::scalar(1), Array::text("x")}).release());
    hvSetCell(cell.get(), 0, Array::scalar(2).release());
    hvSetCell(cell.get(), 0, nullptr);
    EXPECT_EQ(hvGetCell(cell.get(), 0), nullptr);
    EXPECT_STREQ(hvGetClassName(hvGetCell(hvGetCell(cell.get(), 3), 1)), "char");
}

TEST(HostCells, RefuseBadIndexAndNonCellArrays) {
    Array cell = Array::cell({Array::scalar(1)});
    EXPECT_THROW(hvSetCell(cell.get(), 1, Array::scalar(2).release()), std::out_of_range);
    EXPECT_THROW(hvGetCell(cell.get(), 1), std::out_of_range);
    Array number = Array::scalar(1);
    EXPECT_THROW(hvSetCell(number.get(), 0, Array::scalar(2).release()), std::invalid_argument);
    EXPECT_THROW(hvGetCell(number.get(), 0), std::invalid_argument);
}

}  // namespace
