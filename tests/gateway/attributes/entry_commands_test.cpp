// Writing entries by the attribute's scope, the datatype and class checks, the
// preparation of EPOCH16 and character values, and deleting entries.
#include <cstdint>
#include <string>
#include <vector>

#include "variables/scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using embedded::call;

Array number(double value) {
    return Array::scalar(value);
}

// Attribute 9 does not exist.
class EntryCommands : public AttributeFileTest {
  protected:
    void put(const char* command, double attr, double entry, long datatype, Array value) {
        call(command, {id(), number(attr), number(entry), number(static_cast<double>(datatype)),
                       std::move(value)});
    }
    Array get(const char* command, double attr, double entry) {
        return call(command, {id(), number(attr), number(entry)}).at(0);
    }
    std::vector<Array> inquire(const char* command, double attr, double entry) {
        return call(command, {id(), number(attr), number(entry)}, 2);
    }
};

TEST_F(EntryCommands, TheAttributesScopeDecidesTheEntryKindForBothCommands) {
    for (const char* command : {"putAttrEntry", "putAttrgEntry"}) {
        SCOPED_TRACE(command);
        put(command, 0, 4, CDF_INT4, Array::of<std::int32_t>({1, 2, 3}));
        EXPECT_EQ(get("getAttrgEntry", 0, 4), Array::of<std::int32_t>({1, 2, 3}));
        put(command, 1, 0, CDF_INT4, Array::of<std::int32_t>({7}));
        EXPECT_EQ(get("getAttrEntry", 1, 0), Array::of<std::int32_t>({7}));
        call("deleteAttrgEntry", {id(), number(0), number(4)});
        call("deleteAttrEntry", {id(), number(1), number(0)});
    }
    EXPECT_EQ(call("getNumAttrgEntries", {id(), number(0)}).at(0), Array::scalar(0));
    EXPECT_EQ(call("getNumAttrEntries", {id(), number(1)}).at(0), Array::scalar(0));
}

// A command on attribute `attr`, entry `entry`, and the failure it reports.
struct EntryFailure {
    const char* command;
    double attr;
    double entry;
    const char* function;
    CDFstatus status;
};

// gEntry 0 of "G" and zEntry 0 of "V" exist. A read fails at its inquiry, before the get.
constexpr EntryFailure kEntryFailures[] = {
    {"getAttrEntry", 0, 0, "CDFinquireAttrzEntry", ILLEGAL_FOR_SCOPE},
    {"getAttrgEntry", 1, 0, "CDFinquireAttrgEntry", ILLEGAL_FOR_SCOPE},
    {"inquireAttrEntry", 0, 0, "CDFinquireAttrzEntry", ILLEGAL_FOR_SCOPE},
    {"inquireAttrgEntry", 1, 0, "CDFinquireAttrgEntry", ILLEGAL_FOR_SCOPE},
    {"deleteAttrEntry", 0, 0, "CDFdeleteAttrzEntry", ILLEGAL_FOR_SCOPE},
    {"deleteAttrgEntry", 1, 0, "CDFdeleteAttrgEntry", ILLEGAL_FOR_SCOPE},
    {"getAttrEntry", 1, 5, "CDFinquireAttrzEntry", NO_SUCH_ENTRY},
    {"getAttrgEntry", 0, 5, "CDFinquireAttrgEntry", NO_SUCH_ENTRY},
    {"getAttrgEntry", 9, 0, "CDFinquireAttrgEntry", NO_SUCH_ATTR},
    {"deleteAttrgEntry", 0, 5, "CDFdeleteAttrgEntry", NO_SUCH_ENTRY},
    {"deleteAttrEntry", 1, 5, "CDFdeleteAttrzEntry", NO_SUCH_ENTRY},
};

TEST_F(EntryCommands, LibraryRefusalsNameTheEntryKindsFunction) {
    put("putAttrEntry", 0, 0, CDF_INT4, Array::of<std::int32_t>({1}));
    put("putAttrgEntry", 1, 0, CDF_INT4, Array::of<std::int32_t>({1}));
    for (const EntryFailure& row : kEntryFailures) {
        SCOPED_TRACE(std::string(row.command) + " reported as " + row.function);
        expectHostError(
            [&] {
                call(row.command, {id(), number(row.attr), number(row.entry)}, 2);
            },
            cdflibId("libraryFailure"), failure(row.function, row.status));
    }
}

TEST_F(EntryCommands, ValueOfTheWrongClassIsRefusedWithBothNames) {
    struct Case {
        long datatype;
        Array value;
        const char* datatypeName;
        const char* className;
    };
    const Case cases[] = {
        {CDF_INT4, Array::scalar(1), "CDF_INT4", "double"},
        {CDF_EPOCH, Array::int64(1), "CDF_EPOCH", "int64"},
        {CDF_TIME_TT2000, Array::scalar(1), "CDF_TIME_TT2000", "double"},
        {CDF_UINT1, Array::of<std::int8_t>({1}), "CDF_UINT1", "int8"},
        {CDF_CHAR, Array::of<std::uint16_t>({65}), "CDF_CHAR", "uint16"},
        {CDF_REAL8, Array::text("1"), "CDF_REAL8", "char"},
        {CDF_INT1, Array::logical({true}), "CDF_INT1", "logical"},
        {CDF_FLOAT, Array::scalar(1), "CDF_FLOAT", "double"},
    };
    for (const Case& row : cases) {
        for (const char* command : {"putAttrEntry", "putAttrgEntry"}) {
            SCOPED_TRACE(std::string(command) + " " + row.datatypeName);
            // Attribute 9 does not exist: the class is checked before the scope inquiry.
            for (const double attr : {0.0, 9.0}) {
                expectHostError([&] { put(command, attr, 0, row.datatype, row.value); },
                                cdflibId("badPutAttrEntryDatatype"),
                                {std::string(row.datatypeName), std::string(row.className)});
            }
        }
    }
    EXPECT_EQ(call("getNumAttrgEntries", {id(), number(0)}).at(0), Array::scalar(0));
}

TEST_F(EntryCommands, UnknownDatatypesAreRefusedBeforeTheClassCheck) {
    for (const long code : {0L, 3L, 53L, -1L, 50L}) {
        SCOPED_TRACE(code);
        expectHostError([&] { put("putAttrEntry", 0, 0, code, Array::text("x")); },
                        cdflibId("unrecognizedValue"),
                        {std::int64_t{code}, std::string("DATATYPE")});
    }
}

TEST_F(EntryCommands, AMissingAttributeFailsAtTheScopeInquiry) {
    expectHostError([&] { put("putAttrgEntry", 9, 0, CDF_INT4, Array::of<std::int32_t>({1})); },
                    cdflibId("libraryFailure"), failure("CDFgetAttrScope", NO_SUCH_ATTR));
}

TEST_F(EntryCommands, LibraryRefusalsOfAPutNameTheEntryKind) {
    expectHostError([&] { put("putAttrEntry", 0, -1, CDF_INT4, Array::of<std::int32_t>({1})); },
                    cdflibId("libraryFailure"), failure("CDFputAttrgEntry", BAD_ENTRY_NUM));
    expectHostError([&] { put("putAttrgEntry", 1, -1, CDF_INT4, Array::of<std::int32_t>({1})); },
                    cdflibId("libraryFailure"), failure("CDFputAttrzEntry", BAD_ENTRY_NUM));
}

TEST_F(EntryCommands, EmptyValuesReachTheLibraryWithACountOfZero) {
    const Array empties[] = {Array::empty(), Array::empty(hvCHAR_CLASS),
                             Array::zeros(hvINT32_CLASS, {1, 0})};
    const long datatypes[] = {CDF_DOUBLE, CDF_CHAR, CDF_INT4};
    for (std::size_t i = 0; i < std::size(empties); ++i) {
        SCOPED_TRACE(i);
        expectHostError([&] { put("putAttrEntry", 0, 0, datatypes[i], empties[i]); },
                        cdflibId("libraryFailure"), failure("CDFputAttrgEntry", BAD_NUM_ELEMS));
        expectHostError([&] { put("putAttrEntry", 1, 0, datatypes[i], empties[i]); },
                        cdflibId("libraryFailure"), failure("CDFputAttrzEntry", BAD_NUM_ELEMS));
    }
    // A single EPOCH16 double is half a value: nothing is left to write.
    expectHostError([&] { put("putAttrEntry", 0, 0, CDF_EPOCH16, Array::scalar(1)); },
                    cdflibId("libraryFailure"), failure("CDFputAttrgEntry", BAD_NUM_ELEMS));
}

// Whole EPOCH16 values and character text round-trip in the datatype table of the
// round-trip suite; here, what is cut.
TEST_F(EntryCommands, AnOddLastEpoch16DoubleIsLeftOut) {
    put("putAttrgEntry", 0, 1, CDF_EPOCH16, Array::of<double>({1, 2, 3, 4, 5}));
    EXPECT_EQ(inquire("inquireAttrgEntry", 0, 1).at(1), Array::scalar(2));
    EXPECT_EQ(get("getAttrgEntry", 0, 1), Array::of<double>({1, 2, 3, 4}, {2, 2}));
}

TEST_F(EntryCommands, UnsignedCharacterValuesKeepTheLowByteOfEachUnit) {
    put("putAttrEntry", 1, 0, CDF_UCHAR, Array::text(u"\u0141b\u00e9"));
    EXPECT_EQ(inquire("inquireAttrEntry", 1, 0).at(0), Array::text("cdf_uchar"));
    // 0x141 is stored as 0x41; 0xE9 comes back sign-extended like every byte above 0x7F.
    EXPECT_EQ(get("getAttrEntry", 1, 0), Array::text("Ab\xe9"));
}

TEST_F(EntryCommands, CharacterMatricesAreWrittenInColumnOrder) {
    const Array matrix = Array::of<char16_t>({u'a', u'd', u'b', u'e', u'c', u'f'}, {2, 3});
    put("putAttrgEntry", 0, 0, CDF_CHAR, matrix);
    put("putAttrgEntry", 0, 1, CDF_UCHAR, matrix);
    EXPECT_EQ(get("getAttrgEntry", 0, 0), Array::text("adbecf"));
    EXPECT_EQ(get("getAttrgEntry", 0, 1), Array::text("adbecf"));
}

}  // namespace
}  // namespace cdfgate::testing
