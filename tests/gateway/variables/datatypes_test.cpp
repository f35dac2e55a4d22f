#include "variables/datatypes.h"

#include <climits>
#include <cstring>

#include "cdf.h"
#include "gateway_test_support.h"
#include "variables/character_data.h"

namespace cdfgate::testing {
namespace {

using gateway::ByteBuffer;

struct DatatypeCase {
    long code;
    hvClassID classId;
    std::size_t elementSize;
    const char* lowerName;
};

constexpr DatatypeCase kDatatypes[] = {
    {CDF_INT1, hvINT8_CLASS, 1, "cdf_int1"},
    {CDF_INT2, hvINT16_CLASS, 2, "cdf_int2"},
    {CDF_INT4, hvINT32_CLASS, 4, "cdf_int4"},
    {CDF_INT8, hvINT64_CLASS, 8, "cdf_int8"},
    {CDF_UINT1, hvUINT8_CLASS, 1, "cdf_uint1"},
    {CDF_UINT2, hvUINT16_CLASS, 2, "cdf_uint2"},
    {CDF_UINT4, hvUINT32_CLASS, 4, "cdf_uint4"},
    {CDF_REAL4, hvSINGLE_CLASS, 4, "cdf_real4"},
    {CDF_REAL8, hvDOUBLE_CLASS, 8, "cdf_real8"},
    {CDF_EPOCH, hvDOUBLE_CLASS, 8, "cdf_epoch"},
    {CDF_EPOCH16, hvDOUBLE_CLASS, 16, "cdf_epoch16"},
    {CDF_TIME_TT2000, hvINT64_CLASS, 8, "cdf_time_tt2000"},
    {CDF_BYTE, hvINT8_CLASS, 1, "cdf_byte"},
    {CDF_FLOAT, hvSINGLE_CLASS, 4, "cdf_float"},
    {CDF_DOUBLE, hvDOUBLE_CLASS, 8, "cdf_double"},
    {CDF_CHAR, hvCHAR_CLASS, 1, "cdf_char"},
    {CDF_UCHAR, hvCHAR_CLASS, 1, "cdf_uchar"},
};

TEST(Datatypes, EverySupportedCodeHasItsClassSizeAndName) {
    for (const DatatypeCase& row : kDatatypes) {
        SCOPED_TRACE(row.lowerName);
        EXPECT_NO_THROW(gateway::checkDatatype(row.code));
        EXPECT_EQ(gateway::datatypeClass(row.code), row.classId);
        EXPECT_EQ(gateway::datatypeElementSize(row.code), row.elementSize);
        const Array lower(gateway::datatypeNameLower(row.code));
        EXPECT_EQ(lower.text(), row.lowerName);
        EXPECT_EQ(lower.dims(), (std::vector<std::size_t>{1, std::strlen(row.lowerName)}));
        std::string upper = row.lowerName;
        for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        EXPECT_EQ(gateway::datatypeName(row.code), upper);
    }
}

TEST(Datatypes, RefusesEveryOtherCodeNamingDatatype) {
    const long refused[] = {0, 3, 5, 42, 50, 53, 63, 64, 200, -1, -4, LONG_MIN, LONG_MAX};
    for (const long code : refused) {
        SCOPED_TRACE(code);
        const Arguments expected{std::int64_t{code}, std::string("DATATYPE")};
        expectHostError([&] { gateway::checkDatatype(code); }, cdflibId("unrecognizedValue"),
                        expected);
        expectHostError([&] { gateway::datatypeClass(code); }, cdflibId("unrecognizedValue"),
                        expected);
        expectHostError([&] { (void)gateway::datatypeName(code); }, cdflibId("unrecognizedValue"),
                        expected);
        ByteBuffer buffer(4);
        expectHostError([&] { gateway::resizeBuffer(buffer, code, 1); },
                        cdflibId("unrecognizedValue"), expected);
    }
}

TEST(ResizeBuffer, SizesForElementsWithRoomForTheTextTerminator) {
    struct Case {
        long code;
        std::size_t n;
        std::size_t bytes;
    };
    const Case cases[] = {{CDF_EPOCH16, 5, 80},     {CDF_CHAR, 5, 6}, {CDF_UCHAR, 0, 1},
                          {CDF_TIME_TT2000, 5, 40}, {CDF_INT2, 3, 6}, {CDF_UINT1, 0, 0}};
    for (const Case& c : cases) {
        ByteBuffer buffer;
        gateway::resizeBuffer(buffer, c.code, c.n);
        EXPECT_EQ(buffer.size(), c.bytes) << "datatype " << c.code;
    }
}

TEST(ResizeBuffer, GrowsWithZerosAndShrinksByTruncation) {
    ByteBuffer buffer{'\x7f', '\x7e'};
    gateway::resizeBuffer(buffer, CDF_INT4, 2);
    EXPECT_EQ(buffer, (ByteBuffer{'\x7f', '\x7e', 0, 0, 0, 0, 0, 0}));
    gateway::resizeBuffer(buffer, CDF_INT1, 1);
    EXPECT_EQ(buffer, ByteBuffer{'\x7f'});
}

template <typename T>
ByteBuffer bytesOf(std::initializer_list<T> values) {
    ByteBuffer bytes(values.size() * sizeof(T));
    std::memcpy(bytes.data(), std::data(values), bytes.size());
    return bytes;
}

TEST(BufferToArray, EpochSixteenValuesBecomeColumnsOfTwoDoubles) {
    const Array array(gateway::bufferToArray(bytesOf<double>({1.5, 2.5, 3.5, 4.5}), CDF_EPOCH16));
    EXPECT_EQ(array, Array::of<double>({1.5, 2.5, 3.5, 4.5}, {2, 2}));
}

TEST(BufferToArray, NumericBytesBecomeARowOfTheDatatypesClass) {
    EXPECT_EQ(Array(gateway::bufferToArray(bytesOf<std::uint16_t>({1, 65535, 7, 300}), CDF_UINT2)),
              Array::of<std::uint16_t>({1, 65535, 7, 300}));
    EXPECT_EQ(Array(gateway::bufferToArray(bytesOf<std::int64_t>({-5}), CDF_TIME_TT2000)),
              Array::of<std::int64_t>({-5}));
    EXPECT_EQ(Array(gateway::bufferToArray(bytesOf<std::int8_t>({-1, 2}), CDF_BYTE)),
              Array::of<std::int8_t>({-1, 2}));
    EXPECT_EQ(Array(gateway::bufferToArray({}, CDF_REAL4)), Array::zeros(hvSINGLE_CLASS, {1, 0}));
}

TEST(BufferToArray, TextEndsAtTheFirstZeroByte) {
    const ByteBuffer text{'a', 'b', '\0', 'c', 'd'};
    EXPECT_EQ(Array(gateway::bufferToArray(text, CDF_CHAR)), Array::text("ab"));
    EXPECT_EQ(Array(gateway::bufferToArray({'x', 'y'}, CDF_UCHAR)), Array::text("xy"));
    EXPECT_EQ(Array(gateway::bufferToArray({}, CDF_CHAR)).numel(), 0u);
}

TEST(ClassRule, AcceptsOnlyTheDatatypesOwnClass) {
    EXPECT_NO_THROW(gateway::checkValueClass(Array::scalar(1).get(), CDF_EPOCH));
    EXPECT_NO_THROW(gateway::checkValueClass(Array::text("a").get(), CDF_UCHAR));
    EXPECT_NO_THROW(gateway::checkValueClass(Array::of<std::int32_t>({5}).get(), CDF_INT4));
    struct Case {
        Array value;
        long code;
        const char* datatype;
        const char* className;
    };
    const Case cases[] = {
        {Array::int64(1), CDF_EPOCH, "CDF_EPOCH", "int64"},
        {Array::scalar(5), CDF_INT4, "CDF_INT4", "double"},
        {Array::scalar(-1), CDF_INT1, "CDF_INT1", "double"},
        {Array::of<std::uint8_t>({1}), CDF_CHAR, "CDF_CHAR", "uint8"},
        {Array::text("a"), CDF_UINT1, "CDF_UINT1", "char"},
        {Array::logical({true}), CDF_INT1, "CDF_INT1", "logical"},
        {Array::of<float>({1}), CDF_REAL8, "CDF_REAL8", "single"},
        {Array::uint64(1), CDF_TIME_TT2000, "CDF_TIME_TT2000", "uint64"},
    };
    for (const Case& c : cases) {
        expectHostError([&] { gateway::checkValueClass(c.value.get(), c.code); },
                        cdflibId("datatypeMismatch"),
                        {std::string(c.datatype), std::string(c.className)});
    }
}

TEST(ClassRule, AnUnsupportedDatatypeIsReportedBeforeTheClass) {
    expectHostError([] { gateway::checkValueClass(Array::scalar(1).get(), 3); },
                    cdflibId("unrecognizedValue"), {std::int64_t{3}, std::string("DATATYPE")});
}

TEST(CharacterData, BytesAreSignExtendedIntoHostUnits) {
    const char bytes[] = {'A', '\xE9', '\x80', '\x7F', '\xFF', '\0'};
    const std::size_t dims[] = {3, 2};
    const Array array(gateway::createCharArray(dims, bytes));
    EXPECT_EQ(array.dims(), (std::vector<std::size_t>{3, 2}));
    EXPECT_EQ(array.utext(), (std::u16string{u'A', 0xFFE9, 0xFF80, 0x7F, 0xFFFF, 0}));
}

TEST(CharacterData, UnitsAreNarrowedToTheirLowByte) {
    const Array text = Array::text(std::u16string{0x0141, 0xFFE9, u'z', 0x1200});
    EXPECT_EQ(gateway::charsToBytes(text.get(), 4), (ByteBuffer{'\x41', '\xE9', 'z', '\0'}));
    EXPECT_EQ(gateway::charsToBytes(text.get(), 2), (ByteBuffer{'\x41', '\xE9'}));
}

}  // namespace
}  // namespace cdfgate::testing
