// File settings (format, majority, encoding, checksum, compression), read-only
// mode, cache sizes, reserve percentage and the CDF's version and notice.
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "cdf_fixture.h"

namespace {

class Settings : public cdfgate::test::CdfTest {};

TEST_F(Settings, NewCdfDefaults) {
    create("d");
    EXPECT_EQ(get(CDF_VERSION_) * 100 + get(CDF_RELEASE_) * 10 + get(CDF_INCREMENT_), 364);
    EXPECT_EQ(
        (std::array{get(CDF_FORMAT_), get(CDF_MAJORITY_), get(CDF_ENCODING_), get(CDF_CHECKSUM_)}),
        (std::array{SINGLE_FILE, ROW_MAJOR, IBMPC_ENCODING, NO_CHECKSUM}));
    EXPECT_EQ((std::array{confirm(CDF_READONLY_MODE_), confirm(CDF_zMODE_), confirm(CDF_DECODING_),
                          confirm(CDF_NEGtoPOSfp0_MODE_), confirm(CDF_CACHESIZE_),
                          confirm(STAGE_CACHESIZE_), confirm(COMPRESS_CACHESIZE_)}),
              (std::array{READONLYoff, zMODEoff, HOST_DECODING, NEGtoPOSfp0off, 300L, 125L, 80L}));
    long type = -9, parms[CDF_MAX_PARMS] = {-9}, pct = -9, sizes[CDF_MAX_DIMS] = {-9};
    ASSERT_EQ(CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, rVARs_DIMSIZES_, sizes, NULL_),
              CDF_OK);
    EXPECT_EQ((std::array{type, parms[0], pct, sizes[0]}),
              (std::array{NO_COMPRESSION, -9L, 100L, -9L}));
    char notice[CDF_COPYRIGHT_LEN + 1];
    ASSERT_EQ(CDFlib(GET_, CDF_COPYRIGHT_, notice, NULL_), CDF_OK);
    EXPECT_EQ(std::strlen(notice), 197u);
    EXPECT_EQ(notice[0], '\n');
}

TEST_F(Settings, CacheSizes) {
    create("c");
    const struct {
        long item, value, status, confirmed;
    } rows[] = {{CDF_CACHESIZE_, 50, CDF_OK, 50},
                {CDF_CACHESIZE_, 0, CDF_OK, 300},
                {CDF_CACHESIZE_, -3, BAD_CACHE_SIZE, 300},
                {STAGE_CACHESIZE_, 7, CDF_OK, 7},
                {STAGE_CACHESIZE_, 0, CDF_OK, 125},
                {COMPRESS_CACHESIZE_, 9, CDF_OK, 9},
                {COMPRESS_CACHESIZE_, -1, BAD_CACHE_SIZE, 9}};
    for (const auto& row : rows) {
        EXPECT_EQ(CDFlib(SELECT_, row.item, row.value, NULL_), row.status);
        EXPECT_EQ(confirm(row.item), row.confirmed) << row.item << " " << row.value;
    }
    create_zvar("v", CDF_INT4, 1);
    long n = -9;
    EXPECT_EQ(CDFlib(SELECT_, zVARs_CACHESIZE_, 5L, NULL_), SINGLE_FILE_FORMAT);
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_CACHESIZE_, &n, NULL_), SINGLE_FILE_FORMAT);
    EXPECT_EQ(n, -9);
    EXPECT_EQ(CDFlib(CLOSE_, zVAR_, NULL_), SINGLE_FILE_FORMAT);
    long p = -9;
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_RESERVEPERCENT_, &p, NULL_), NA_FOR_VARIABLE);
    EXPECT_EQ(p, 0);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RESERVEPERCENT_, -5L, NULL_), BAD_COMPRESSION_PARM);
}

TEST_F(Settings, FormatMajorityAndEncodingBecomeFixed) {
    create("f");
    const auto put = [](long item, long value) { return CDFlib(PUT_, item, value, NULL_); };
    EXPECT_EQ(put(CDF_FORMAT_, 3), BAD_FORMAT);
    EXPECT_EQ(put(CDF_MAJORITY_, 0), BAD_MAJORITY);
    EXPECT_EQ(put(CDF_ENCODING_, 10), BAD_ENCODING);
    EXPECT_EQ(put(CDF_ENCODING_, 17), BAD_ENCODING);
    EXPECT_EQ(put(CDF_ENCODING_, HOST_ENCODING), CDF_OK);
    EXPECT_EQ(get(CDF_ENCODING_), IBMPC_ENCODING);
    EXPECT_EQ(put(CDF_FORMAT_, MULTI_FILE), CDF_OK);
    EXPECT_EQ(put(CDF_CHECKSUM_, MD5_CHECKSUM), CANNOT_CHANGE);  // multi-file
    EXPECT_EQ(put(CDF_FORMAT_, SINGLE_FILE), CDF_OK);

    create_zvar("v", CDF_INT4, 1);
    EXPECT_EQ(put(CDF_FORMAT_, MULTI_FILE), CANNOT_CHANGE);
    EXPECT_EQ(put(CDF_ENCODING_, NETWORK_ENCODING), CANNOT_CHANGE);
    EXPECT_EQ(put(CDF_MAJORITY_, COLUMN_MAJOR), CDF_OK);  // no value written yet
    EXPECT_EQ(put(CDF_CHECKSUM_, OTHER_CHECKSUM), CDF_OK);
    EXPECT_EQ(put(CDF_CHECKSUM_, 7), BAD_CHECKSUM);
    EXPECT_EQ(get(CDF_CHECKSUM_), OTHER_CHECKSUM);
}

TEST_F(Settings, AnEntryFixesTheEncodingButNotTheMajority) {
    CDFid id = create("e");
    const long g = create_attr("g", GLOBAL_SCOPE);
    char x = 'x';
    ASSERT_EQ(CDFputAttrEntry(id, 1, g, 0, CDF_CHAR, 1, &x), CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, CDF_ENCODING_, NETWORK_ENCODING, NULL_), CANNOT_CHANGE);
    EXPECT_EQ(CDFlib(PUT_, CDF_MAJORITY_, COLUMN_MAJOR, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, CDF_FORMAT_, MULTI_FILE, NULL_), CDF_OK);
}

TEST_F(Settings, ReadOnlyModeRefusesChangesButStaysOffOnAChangedCdf) {
    CDFid id = create("ro");
    // A CDF created in this session stays writable.
    ASSERT_EQ(CDFlib(SELECT_, CDF_READONLY_MODE_, READONLYon, NULL_), CDF_OK);
    EXPECT_EQ(confirm(CDF_READONLY_MODE_), READONLYoff);
    EXPECT_EQ(create_attr("a", GLOBAL_SCOPE), 0);
    create_zvar("v", CDF_INT4, 1);
    ASSERT_EQ(close(id), CDF_OK);
    ASSERT_EQ(open("ro", id), CDF_OK);
    EXPECT_EQ(CDFlib(SELECT_, CDF_READONLY_MODE_, 1L, NULL_), BAD_READONLY_MODE);
    ASSERT_EQ(CDFlib(SELECT_, CDF_READONLY_MODE_, READONLYon, NULL_), CDF_OK);
    EXPECT_EQ(confirm(CDF_READONLY_MODE_), READONLYon);
    long num = -9;
    int pad = 5;
    const struct {
        const char* label;
        CDFstatus status;
    } rows[] = {
        {"create variable",
         CDFlib(CREATE_, zVAR_, "w", CDF_INT4, 1L, 0L, nullptr, VARY, nullptr, &num, NULL_)},
        {"create attribute", CDFlib(CREATE_, ATTR_, "b", GLOBAL_SCOPE, &num, NULL_)},
        {"pad value", CDFlib(SELECT_, zVAR_, 0L, PUT_, zVAR_PADVALUE_, &pad, NULL_)},
        {"rename", CDFlib(SELECT_, zVAR_, 0L, PUT_, zVAR_NAME_, "w", NULL_)},
        {"checksum", CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_)},
        {"delete variable", CDFlib(SELECT_, zVAR_, 0L, DELETE_, zVAR_, NULL_)},
        {"compression", CDFlib(SELECT_, zVAR_, 0L, PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION,
                               std::array<long, 1>{6}.data(), NULL_)},
        {"entry", CDFputAttrEntry(id, 1, 0, 0, CDF_INT4, 1, &pad)},
    };
    for (const auto& row : rows) EXPECT_EQ(row.status, READ_ONLY_MODE) << row.label;
    EXPECT_EQ(num, -9);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, NULL_), CDF_OK);
    EXPECT_EQ(get(zVAR_DATATYPE_), CDF_INT4);
}

TEST_F(Settings, VariableSettingsBeforeAnyRecord) {
    create("vs");
    create_zvar("v", CDF_INT4, 1);
    EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, 3L, NULL_), UNKNOWN_SPARSENESS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, -1L, NULL_), UNKNOWN_SPARSENESS);
    ASSERT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, PREV_SPARSERECORDS, NULL_), CDF_OK);
    EXPECT_EQ(get(zVAR_SPARSERECORDS_), PREV_SPARSERECORDS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, -1L, NULL_), BAD_BLOCKING_FACTOR);
    long parms[] = {10};
    EXPECT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, 4L, parms, NULL_), UNKNOWN_COMPRESSION);
    EXPECT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_),
              BAD_COMPRESSION_PARM);
    parms[0] = 6;
    ASSERT_EQ(CDFlib(PUT_, zVAR_COMPRESSION_, GZIP_COMPRESSION, parms, NULL_), CDF_OK);
    long type = -9, got[CDF_MAX_PARMS] = {}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, got, &pct, NULL_), CDF_OK);
    EXPECT_EQ((std::array{type, got[0]}), (std::array{GZIP_COMPRESSION, 6L}));
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RESERVEPERCENT_, 20L, NULL_), CDF_OK);
    EXPECT_EQ(confirm(zVAR_RESERVEPERCENT_), 20);

    long nrv = -1;
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "n", CDF_INT4, 1L, 0L, nullptr, NOVARY, nullptr, &nrv, NULL_),
              CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_), FORCED_PARAMETER);
    EXPECT_EQ(get(zVAR_BLOCKINGFACTOR_), 1);
}

// The element size of each type is the length of its pad.
TEST_F(Settings, PadValuesAreStoredForEveryNewVariableAndGiveTheElementSize) {
    create("p");
    // PV01 to PV15: the default pad of each type, in host (little-endian) byte order.
    const struct {
        long type;
        std::vector<unsigned char> bytes;
    } rows[] = {{CDF_INT1, {0x81}},
                {CDF_INT2, {0x01, 0x80}},
                {CDF_INT4, {0x01, 0, 0, 0x80}},
                {CDF_INT8, {0x01, 0, 0, 0, 0, 0, 0, 0x80}},
                {CDF_UINT1, {0xfe}},
                {CDF_UINT2, {0xfe, 0xff}},
                {CDF_UINT4, {0xfe, 0xff, 0xff, 0xff}},
                {CDF_REAL4, {0xca, 0xf2, 0x49, 0xf1}},
                {CDF_REAL8, {0xea, 0x8c, 0xa0, 0x39, 0x59, 0x3e, 0x29, 0xc6}},
                {CDF_EPOCH, std::vector<unsigned char>(8, 0)},
                {CDF_EPOCH16, std::vector<unsigned char>(16, 0)},
                {CDF_TIME_TT2000, {0x01, 0, 0, 0, 0, 0, 0, 0x80}},
                {CDF_BYTE, {0x81}},
                {CDF_FLOAT, {0xca, 0xf2, 0x49, 0xf1}},
                {CDF_DOUBLE, {0xea, 0x8c, 0xa0, 0x39, 0x59, 0x3e, 0x29, 0xc6}},
                {CDF_CHAR, {' '}},
                {CDF_UCHAR, {' '}}};
    for (const auto& row : rows) {
        create_zvar(("v" + std::to_string(row.type)).c_str(), row.type, 1);
        std::vector<unsigned char> pad(row.bytes.size() + 1, 0x99);
        ASSERT_EQ(CDFlib(GET_, zVAR_PADVALUE_, pad.data(), CONFIRM_, zVAR_PADVALUE_, NULL_), CDF_OK)
            << row.type;
        EXPECT_EQ(pad.back(), 0x99) << row.type;  // one value, nothing more
        pad.pop_back();
        EXPECT_EQ(pad, row.bytes) << row.type;
    }
    create_zvar("c", CDF_CHAR, 4);
    char pad[5] = "####";
    ASSERT_EQ(CDFlib(GET_, zVAR_PADVALUE_, pad, NULL_), CDF_OK);
    EXPECT_STREQ(pad, "    ");
    char set[] = {'a', 0, 'b', 'c'};
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, set, GET_, zVAR_PADVALUE_, pad, NULL_), CDF_OK);
    EXPECT_STREQ(pad, "a   ");

    ASSERT_EQ(CDFlib(SELECT_, CDF_, static_cast<CDFid>(nullptr), NULL_), CDF_OK);  // needs no CDF
    for (const auto& row : rows) {
        long size = -1;
        EXPECT_EQ(CDFlib(GET_, DATATYPE_SIZE_, row.type, &size, NULL_), CDF_OK) << row.type;
        EXPECT_EQ(size, static_cast<long>(row.bytes.size())) << row.type;
    }
    for (const long unknown : {0L, 3L, 42L, -1L}) {
        long size = -1;
        EXPECT_EQ(CDFlib(GET_, DATATYPE_SIZE_, unknown, &size, NULL_), BAD_DATA_TYPE) << unknown;
        EXPECT_EQ(size, -1);
    }
}

TEST_F(Settings, NegativeZeroIsKeptUnlessTheModeIsOn) {
    CDFid id = create("z");
    const long g = create_attr("g", GLOBAL_SCOPE);
    double values[] = {-0.0, -1.0};
    double back[2] = {};
    ASSERT_EQ(CDFputAttrEntry(id, 1, g, 0, CDF_DOUBLE, 2, values), CDF_OK);
    ASSERT_EQ(CDFgetAttrEntry(id, 1, g, 0, back), CDF_OK);
    EXPECT_TRUE(std::signbit(back[0]));
    EXPECT_EQ(CDFlib(SELECT_, CDF_NEGtoPOSfp0_MODE_, 5L, NULL_), BAD_NEGtoPOSfp0_MODE);
    ASSERT_EQ(CDFlib(SELECT_, CDF_NEGtoPOSfp0_MODE_, NEGtoPOSfp0on, NULL_), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, g, 1, CDF_DOUBLE, 2, values), CDF_OK);
    ASSERT_EQ(CDFgetAttrEntry(id, 1, g, 1, back), CDF_OK);
    EXPECT_FALSE(std::signbit(back[0]));
    EXPECT_EQ(back[1], -1.0);
}

}  // namespace
