// Creating, opening, closing and deleting CDFs: names and extensions, refusals,
// and files that are not CDFs or are damaged.
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "../store/test_files.h"
#include "cdf_fixture.h"

namespace {

namespace fs = std::filesystem;

using cdfgate::test::file_bytes;
using cdfgate::test::write_bytes;

std::vector<std::uint8_t> magic_then_zeros(std::uint32_t m1, std::uint32_t m2, std::size_t size) {
    std::vector<std::uint8_t> bytes(size, 0);
    for (int i = 0; i < 4; ++i) {
        bytes[i] = static_cast<std::uint8_t>(m1 >> (24 - 8 * i));
        bytes[4 + i] = static_cast<std::uint8_t>(m2 >> (24 - 8 * i));
    }
    return bytes;
}

class Files : public cdfgate::test::CdfTest {
  protected:
    CDFstatus create_status(const std::string& name, CDFid& id) const {
        return CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id);
    }
};

TEST_F(Files, CreateAddsOrNormalisesTheExtension) {
    const struct {
        const char* given;
        const char* file;
        const char* confirmed;
    } rows[] = {{"t1", "t1.cdf", "t1"},
                {"t2.cdf", "t2.cdf", "t2"},
                {"t3.CDF", "t3.cdf", "t3"},
                {"t4.Cdf", "t4.cdf", "t4"}};
    for (const auto& row : rows) {
        CDFid id = nullptr;
        ASSERT_EQ(create_status(row.given, id), CDF_OK) << row.given;
        char name[CDF_PATHNAME_LEN + 1];
        ASSERT_EQ(CDFlib(CONFIRM_, CDF_NAME_, name, NULL_), CDF_OK);
        EXPECT_EQ(std::string(name), path(row.confirmed));
        EXPECT_TRUE(fs::exists(path(row.file))) << row.file;
        ASSERT_EQ(close(id), CDF_OK);
        EXPECT_EQ(fs::file_size(path(row.file)), 404u);
    }
}

TEST_F(Files, CreateRefusesExistingFilesAndBadNames) {
    CDFid id = create("t1");
    CDFid other = nullptr;
    EXPECT_EQ(create_status("t1", other), CDF_EXISTS);
    EXPECT_EQ(create_status("t1.cdf", other), CDF_EXISTS);
    write_bytes(path("jj.cdf"), {1, 2, 3, 4});
    EXPECT_EQ(create_status("jj", other), CDF_EXISTS);
    EXPECT_EQ(file_bytes(path("jj.cdf")).size(), 4u);
    EXPECT_EQ(CDFcreateCDF(const_cast<char*>(""), &other), BAD_CDF_NAME);
    EXPECT_EQ(create_status("nodir/x", other), CDF_CREATE_ERROR);
    const struct {
        std::string name;
        CDFstatus status;
    } long_names[] = {
        {std::string(512, 'a'), CDF_CREATE_ERROR},  // FL17
        {std::string(252, 'c'), CDF_CREATE_ERROR},  // FL19: 256 bytes with ".cdf"
        {std::string(251, 'b'), CDF_OK},            // FL18
        {std::string(600, 'p') + "/x", CDF_CREATE_ERROR},
        {std::string(40, 'q') + std::string(480, '/') + "q",
         BAD_CDF_NAME},  // over 512, parts short
    };
    for (const auto& row : long_names) {
        EXPECT_EQ(create_status(row.name, other), row.status) << row.name.size();
        if (row.status == CDF_OK) {
            EXPECT_EQ(close(other), CDF_OK);
        }
    }
    long dims[] = {0};
    EXPECT_EQ(CDFlib(CREATE_, CDF_, path("d").c_str(), 1L, dims, &other, NULL_), BAD_DIM_SIZE);
    EXPECT_EQ(CDFlib(CREATE_, CDF_, path("d").c_str(), 11L, dims, &other, NULL_), BAD_NUM_DIMS);
    EXPECT_EQ(close(id), CDF_OK);
}

TEST_F(Files, OpenTriesTheExtensionsThenTheBareName) {
    ASSERT_EQ(close(create("base")), CDF_OK);
    fs::copy_file(path("base.cdf"), path("UP.CDF"));
    fs::copy_file(path("base.cdf"), path("noext"));
    fs::copy_file(path("base.cdf"), path("Mx.Cdf"));
    const struct {
        const char* given;
        long status;
    } rows[] = {{"base", CDF_OK},    {"base.cdf", CDF_OK},    {"BASE", NO_SUCH_CDF},
                {"UP", CDF_OK},      {"UP.CDF", CDF_OK},      {"noext", CDF_OK},
                {"Mx", NO_SUCH_CDF}, {"Mx.Cdf", NO_SUCH_CDF}, {"missing", NO_SUCH_CDF}};
    for (const auto& row : rows) {
        CDFid id = nullptr;
        EXPECT_EQ(open(row.given, id), row.status) << row.given;
    }
    CDFid id = nullptr;
    EXPECT_EQ(CDFlib(OPEN_, CDF_, "", &id, NULL_), NO_SUCH_CDF);
    fs::create_directory(path("dir.cdf"));
    EXPECT_EQ(open("dir", id), NO_SUCH_CDF);
}

TEST_F(Files, OneFileMayBeOpenTwice) {
    ASSERT_EQ(close(create("twice")), CDF_OK);
    CDFid a = nullptr, b = nullptr;
    ASSERT_EQ(open("twice", a), CDF_OK);
    ASSERT_EQ(open("twice", b), CDF_OK);
    EXPECT_NE(a, b);
    for (CDFid id : {a, b}) {
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, NULL_), CDF_OK);
        EXPECT_EQ(get(CDF_FORMAT_), SINGLE_FILE);
    }
}

TEST_F(Files, WrongContentsGiveTheReferenceStatuses) {
    ASSERT_EQ(close(create("valid")), CDF_OK);
    const std::vector<std::uint8_t> valid = file_bytes(path("valid.cdf"));
    const struct {
        const char* label;
        std::vector<std::uint8_t> bytes;
        long status;
    } rows[] = {
        {"empty", {}, CDF_READ_ERROR},
        {"three bytes", {0xCD, 0xF3, 0x00}, CDF_READ_ERROR},
        {"text", std::vector<std::uint8_t>(46, 'a'), NOT_A_CDF_OR_NOT_SUPPORTED},
        {"netCDF",
         {'C', 'D', 'F', 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
         NOT_A_CDF_OR_NOT_SUPPORTED},
        {"magic only", std::vector<std::uint8_t>(valid.begin(), valid.begin() + 8), CDF_READ_ERROR},
        {"first 200 bytes", std::vector<std::uint8_t>(valid.begin(), valid.begin() + 200),
         CDF_READ_ERROR},
        {"v2 magic then zeros", magic_then_zeros(0xCDF26002, 0x0000FFFF, 308), CORRUPTED_V2_CDF},
        {"bad second magic", magic_then_zeros(0xCDF30001, 0x00FFFFFF, 308), NOT_A_CDF},
        {"v3 magic then zeros", magic_then_zeros(0xCDF30001, 0x0000FFFF, 408), CORRUPTED_V3_CDF},
    };
    for (const auto& row : rows) {
        write_bytes(path("bad.cdf"), row.bytes);
        CDFid id = nullptr;
        EXPECT_EQ(open("bad", id), row.status) << row.label;
    }
}

TEST_F(Files, CloseAndDeleteNeedACurrentCdfAndEndTheId) {
    EXPECT_EQ(CDFlib(SELECT_, CDF_, static_cast<CDFid>(nullptr), NULL_), CDF_OK);
    long format = 0;
    EXPECT_EQ(CDFlib(GET_, CDF_FORMAT_, &format, NULL_), NO_CDF_SELECTED);
    EXPECT_EQ(CDFlib(CLOSE_, CDF_, NULL_), NO_CDF_SELECTED);
    EXPECT_EQ(CDFlib(DELETE_, CDF_, NULL_), NO_CDF_SELECTED);
    char name[] = "v";
    int buffer[1] = {};
    EXPECT_EQ(CDFgetVarNum(nullptr, name), NO_CDF_SELECTED);
    EXPECT_EQ(CDFgetVarRecordData(nullptr, 1, 0, 0, buffer), NO_CDF_SELECTED);
    EXPECT_EQ(CDFputVarRecordData(nullptr, 1, 0, 0, buffer), NO_CDF_SELECTED);

    CDFid id = create("gone");
    ASSERT_EQ(close(id), CDF_OK);
    EXPECT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), BAD_CDF_ID);
    EXPECT_EQ(
        CDFlib(SELECT_, CDF_, reinterpret_cast<CDFid>(0x12345), GET_, CDF_FORMAT_, &format, NULL_),
        BAD_CDF_ID);

    CDFid fresh = create("t5");  // deleted before it was ever closed
    std::erase(open_, fresh);
    ASSERT_EQ(CDFlib(SELECT_, CDF_, fresh, DELETE_, CDF_, NULL_), CDF_OK);
    EXPECT_FALSE(fs::exists(path("t5.cdf")));
    EXPECT_EQ(CDFlib(GET_, CDF_FORMAT_, &format, NULL_), NO_CDF_SELECTED);

    CDFid reopened = nullptr;
    ASSERT_EQ(open("gone", reopened), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, CDF_READONLY_MODE_, READONLYon, NULL_), CDF_OK);
    std::erase(open_, reopened);
    EXPECT_EQ(CDFlib(DELETE_, CDF_, NULL_), CDF_OK);  // allowed in read-only mode
    EXPECT_FALSE(fs::exists(path("gone.cdf")));
}

TEST_F(Files, ValidationOffOpensInconsistentFiles) {
    CDFid id = create("v");
    create_zvar("x", CDF_INT4, 1);
    ASSERT_EQ(close(id), CDF_OK);
    std::vector<std::uint8_t> bytes = file_bytes(path("v.cdf"));
    // The zVDR follows the GDR at 404; its data type is at offset 20 within it.
    ASSERT_GT(bytes.size(), 430u);
    bytes[404 + 23] = 99;
    write_bytes(path("v.cdf"), bytes);
    EXPECT_EQ(open("v", id), CORRUPTED_V3_CDF);
    CDFsetValidate(VALIDATEFILEoff);
    ASSERT_EQ(open("v", id), CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(get(zVAR_DATATYPE_), 99);
    int value = 0;
    EXPECT_EQ(CDFlib(GET_, zVAR_DATA_, &value, NULL_), BAD_DATA_TYPE);  // SE101
}

// Files from other writers may leave a variable's pad unstored (VDR flag bit 1 clear).
TEST_F(Files, VariableWithoutAStoredPadGivesTheDefault) {
    const struct {
        const char* label;
        long type, elems;
        std::int32_t stored_elems;  // written into the VDR
        CDFstatus pad_status;
        std::vector<std::uint8_t> pad;    // the pad item's output over a buffer of '#'
        std::vector<std::uint8_t> value;  // a record never written
    } rows[] = {
        {"PV61 to PV63",
         CDF_REAL4,
         1,
         1,
         NO_PADVALUE_SPECIFIED,
         {0xca, 0xf2, 0x49, 0xf1},
         {0xca, 0xf2, 0x49, 0xf1}},
        // One blank in the first byte only, as the sample dumps show.
        {"characters",
         CDF_CHAR,
         5,
         5,
         NO_PADVALUE_SPECIFIED,
         {' ', '#', '#', '#', '#'},
         {' ', ' ', ' ', ' ', ' '}},
        {"no elements", CDF_CHAR, 5, -1, CORRUPTED_V3_CDF, {}, {}},
    };
    CDFsetValidate(VALIDATEFILEoff);
    for (const auto& row : rows) {
        CDFid id = create(row.label);
        create_zvar("x", row.type, row.elems);
        ASSERT_EQ(close(id), CDF_OK);
        std::vector<std::uint8_t> bytes = file_bytes(path(std::string(row.label) + ".cdf"));
        ASSERT_GT(bytes.size(), 404u + 68u);
        bytes[404 + 47] &= static_cast<std::uint8_t>(~2u);  // Flags: pad not present
        for (int i = 0; i < 4; ++i) {
            bytes[404 + 64 + i] = static_cast<std::uint8_t>(
                static_cast<std::uint32_t>(row.stored_elems) >> (24 - 8 * i));
        }
        write_bytes(path(std::string(row.label) + ".cdf"), bytes);
        ASSERT_EQ(open(row.label, id), CDF_OK) << row.label;
        std::vector<std::uint8_t> pad(row.pad.size() + 1, '#');
        EXPECT_EQ(CDFlib(SELECT_, zVAR_, 0L, GET_, zVAR_PADVALUE_, pad.data(), NULL_),
                  row.pad_status)
            << row.label;
        EXPECT_EQ(pad.back(), '#') << row.label;
        pad.pop_back();
        if (row.pad_status == NO_PADVALUE_SPECIFIED) {
            EXPECT_EQ(pad, row.pad) << row.label;
            EXPECT_EQ(CDFlib(CONFIRM_, zVAR_PADVALUE_, NULL_), NO_PADVALUE_SPECIFIED);
            std::vector<std::uint8_t> value(row.value.size());
            EXPECT_EQ(CDFlib(GET_, zVAR_DATA_, value.data(), NULL_), VIRTUAL_RECORD_DATA);
            EXPECT_EQ(value, row.value) << row.label;
        }
        ASSERT_EQ(close(id), CDF_OK);
    }
}

TEST_F(Files, ChecksumIsWrittenAndVerified) {
    CDFid id = create("sum");
    ASSERT_EQ(CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_), CDF_OK);
    ASSERT_EQ(close(id), CDF_OK);
    EXPECT_EQ(fs::file_size(path("sum.cdf")), 420u);
    ASSERT_EQ(open("sum", id), CDF_OK);
    EXPECT_EQ(get(CDF_CHECKSUM_), MD5_CHECKSUM);
    ASSERT_EQ(close(id), CDF_OK);
    std::vector<std::uint8_t> bytes = file_bytes(path("sum.cdf"));
    bytes[100] ^= 0x20;
    write_bytes(path("sum.cdf"), bytes);
    EXPECT_EQ(open("sum", id), CHECKSUM_ERROR);
}

}  // namespace
