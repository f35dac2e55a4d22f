// CDFlib call grammar, status texts and library items that need no open CDF, and how
// one call combines the statuses of its items: the first error stops it, otherwise the
// last warning wins over any information, and information over success.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "cdf_fixture.h"

namespace {

std::string textOf(long status) {
    char buf[CDF_STATUSTEXT_LEN + 1];
    std::memset(buf, 'x', sizeof buf);
    EXPECT_EQ(CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, buf, NULL_), CDF_OK);
    EXPECT_NE(std::memchr(buf, '\0', sizeof buf), nullptr);
    return buf;
}

TEST(CallGrammar, NullAloneSucceedsAndUnknownOperationsOrItemsAreRefused) {
    EXPECT_EQ(CDFlib(NULL_), CDF_OK);
    long x = -9;
    EXPECT_EQ(CDFlib(9999L, NULL_), BAD_FNC_OR_ITEM);
    EXPECT_EQ(CDFlib(GET_, 9999L, &x, NULL_), BAD_FNC_OR_ITEM);
    EXPECT_EQ(CDFlib(GET_, zVAR_RECNUMBER_, &x, NULL_), BAD_FNC_OR_ITEM);
    EXPECT_EQ(CDFlib(SELECT_, CDF_NAME_, "x", NULL_), BAD_FNC_OR_ITEM);
    EXPECT_EQ(x, -9);
}

TEST(CallGrammar, FirstErrorStopsTheCall) {
    // The unknown item stops the call before the later status selection runs.
    ASSERT_EQ(CDFlib(SELECT_, CDF_STATUS_, 7L, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(GET_, 9999L, SELECT_, CDF_STATUS_, 8L, NULL_), BAD_FNC_OR_ITEM);
    EXPECT_EQ(cdfgate::test::CdfTest::confirm(CDF_STATUS_), 7);
}

TEST(StatusSelection, AnyValueIsKeptAndConfirmed) {
    for (const long code : {NO_SUCH_VAR, -9999L, 5555L, CDF_OK}) {
        ASSERT_EQ(CDFlib(SELECT_, CDF_STATUS_, code, NULL_), CDF_OK);
        EXPECT_EQ(cdfgate::test::CdfTest::confirm(CDF_STATUS_), code);
    }
}

TEST(StatusText, KnownCodesBeginWithTheirName) {
    const struct {
        long code;
        const char* name;
    } rows[] = {{CDF_OK, "CDF_OK"},
                {NO_SUCH_VAR, "NO_SUCH_VAR"},
                {VIRTUAL_RECORD_DATA, "VIRTUAL_RECORD_DATA"},
                {VAR_NAME_TRUNC, "VAR_NAME_TRUNC"},
                {NOT_A_CDF_OR_NOT_SUPPORTED, "NOT_A_CDF_OR_NOT_SUPPORTED"},
                {CORRUPTED_V3_CDF, "CORRUPTED_V3_CDF"},
                {FUNCTION_NOT_SUPPORTED, "FUNCTION_NOT_SUPPORTED"},
                {ZLIB_UNCOMPRESS_ERROR, "ZLIB_UNCOMPRESS_ERROR"},
                {BLOCKINGFACTOR_TOO_SMALL2, "BLOCKINGFACTOR_TOO_SMALL2"}};
    for (const auto& row : rows) {
        const std::string text = textOf(row.code);
        EXPECT_EQ(text.rfind(std::string(row.name) + ": ", 0), 0u) << text;
        EXPECT_GT(text.size(), std::strlen(row.name) + 10) << text;
    }
}

TEST(StatusText, EveryCodeInRangeFitsTheLimit) {
    for (long code = -2300; code <= 1100; ++code) {
        EXPECT_LE(textOf(code).size(), static_cast<size_t>(CDF_STATUSTEXT_LEN)) << code;
    }
}

TEST(StatusText, UnknownCodesNameTheNumberInParentheses) {
    for (const long code : {-1L, -9999L, 5555L, -1500L, CDF_WARN}) {
        const std::string text = textOf(code);
        const std::string tail = "(" + std::to_string(code) + ").";
        ASSERT_GE(text.size(), tail.size());
        EXPECT_EQ(text.substr(text.size() - tail.size()), tail) << text;
    }
}

TEST(LibraryItems, VersionAndNotice) {
    long version = 0, release = 0, increment = 0;
    char sub = 'x';
    char notice[CDF_COPYRIGHT_LEN + 1];
    ASSERT_EQ(CDFlib(GET_, LIB_VERSION_, &version, LIB_RELEASE_, &release, LIB_INCREMENT_,
                     &increment, LIB_subINCREMENT_, &sub, LIB_COPYRIGHT_, notice, NULL_),
              CDF_OK);
    EXPECT_EQ((std::array{version, release, increment}), (std::array{3L, 6L, 4L}));
    EXPECT_EQ(sub, '0');
    const std::string text = notice;
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text.front(), '\n');
    EXPECT_EQ(text.back(), '\n');
    EXPECT_LE(text.size(), static_cast<size_t>(CDF_COPYRIGHT_LEN));
}

// Selecting an unknown or null id: Files.CloseAndDeleteNeedACurrentCdfAndEndTheId.
TEST(CdfSelection, NothingIsCurrentAtStart) {
    CDFid cur = reinterpret_cast<CDFid>(1);
    ASSERT_EQ(CDFlib(CONFIRM_, CDF_, &cur, NULL_), CDF_OK);
    EXPECT_EQ(cur, nullptr);
}

TEST(ProcessModes, BackwardAndValidate) {
    EXPECT_EQ((std::array{CDFgetFileBackward(), CDFgetValidate()}), (std::array{0, 1}));
    CDFsetFileBackward(5);
    CDFsetValidate(1);  // only VALIDATEFILEon turns it on
    EXPECT_EQ((std::array{CDFgetFileBackward(), CDFgetValidate()}), (std::array{1, 0}));
    CDFsetFileBackward(0);
    CDFsetValidate(VALIDATEFILEon);
    EXPECT_EQ((std::array{CDFgetFileBackward(), CDFgetValidate()}), (std::array{0, 1}));
}

class StatusCombination : public cdfgate::test::CdfTest {
  protected:
    void SetUp() override {
        CdfTest::SetUp();
        create("c");
        create_zvar("v0", CDF_INT4, 1);
    }
    const std::string long_name_ = std::string(259, 'w');
};

TEST_F(StatusCombination, WarningSurvivesLaterSuccess) {
    long num = -1;
    unsigned char pad[4];
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, std::string(260, 'v').c_str(), CDF_INT4, 1L, 0L, nullptr, VARY,
                     nullptr, &num, GET_, zVAR_PADVALUE_, pad, NULL_),
              VAR_NAME_TRUNC);
    EXPECT_EQ(num, 1);
}

TEST_F(StatusCombination, WarningOutranksInformationInEitherOrderAndTheLastWarningWins) {
    long num = -1, p = 0;
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, 0L, CONFIRM_, zVAR_RESERVEPERCENT_, &p, CLOSE_, zVAR_, NULL_),
              NA_FOR_VARIABLE);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, 0L, CLOSE_, zVAR_, CONFIRM_, zVAR_RESERVEPERCENT_, &p, NULL_),
              NA_FOR_VARIABLE);
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, long_name_.c_str(), CDF_INT4, 1L, 0L, nullptr, VARY, nullptr,
                     &num, SELECT_, zVAR_, 0L, CONFIRM_, zVAR_RESERVEPERCENT_, &p, NULL_),
              NA_FOR_VARIABLE);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, 0L, CONFIRM_, zVAR_RESERVEPERCENT_, &p, SELECT_, zVAR_, 1L,
                     PUT_, zVAR_NAME_, long_name_.c_str(), NULL_),
              VAR_NAME_TRUNC);
}

TEST_F(StatusCombination, ErrorStopsTheCallAndKeepsEarlierEffects) {
    long p = 0;
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_RESERVEPERCENT_, &p, SELECT_, zVAR_, 5L, PUT_, zVAR_NAME_, "x",
                     NULL_),
              NO_SUCH_VAR);
    char name[CDF_VAR_NAME_LEN256 + 1];
    EXPECT_EQ(confirm(zVAR_), 0);
    ASSERT_EQ(CDFlib(GET_, zVAR_NAME_, name, NULL_), CDF_OK);
    EXPECT_STREQ(name, "v0");
    // The selection made before the failing item stays.
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 4L, zVAR_RECCOUNT_, 0L, NULL_), BAD_REC_COUNT);
    EXPECT_EQ(confirm(zVAR_RECNUMBER_), 4);
}

TEST_F(StatusCombination, InformationIsReturnedWhenNothingElseHappens) {
    EXPECT_EQ(CDFlib(SELECT_, zVARs_CACHESIZE_, 5L, CONFIRM_, zVAR_EXISTENCE_, "v0", NULL_),
              SINGLE_FILE_FORMAT);
}

// A null pointer where an item reads or writes is an error like any other: the
// call stops with BAD_ARGUMENT. Empty arrays (0 dimensions) may still be null.
TEST_F(StatusCombination, NullPointersWhereValuesGoAreRefused) {
    long* const none = nullptr;
    const long dims[] = {2};
    long num = -9;
    const struct {
        const char* label;
        CDFstatus status;
    } rows[] = {
        {"variable name", CDFlib(CREATE_, zVAR_, static_cast<char*>(nullptr), CDF_INT4, 1L, 0L,
                                 none, VARY, none, &num, NULL_)},
        {"dimension sizes",
         CDFlib(CREATE_, zVAR_, "d", CDF_INT4, 1L, 1L, none, VARY, dims, &num, NULL_)},
        {"variable number out",
         CDFlib(CREATE_, zVAR_, "n", CDF_INT4, 1L, 0L, none, VARY, none, none, NULL_)},
        {"count out", CDFlib(GET_, CDF_NUMzVARS_, none, NULL_)},
        {"value in", CDFlib(SELECT_, zVAR_, 0L, PUT_, zVAR_DATA_, none, NULL_)},
        {"value out", CDFlib(SELECT_, zVAR_, 0L, GET_, zVAR_DATA_, none, NULL_)},
        {"pad in", CDFlib(SELECT_, zVAR_, 0L, PUT_, zVAR_PADVALUE_, none, NULL_)},
        {"status text", CDFlib(GET_, STATUS_TEXT_, none, NULL_)},
        {"entry value", CDFputAttrEntry(open_.front(), 1, create_attr("g", GLOBAL_SCOPE), 0,
                                        CDF_CHAR, 3, nullptr)},
        {"entry type out", CDFinquireAttrEntry(open_.front(), 1, 0, 0, none, &num)},
    };
    for (const auto& row : rows) EXPECT_EQ(row.status, BAD_ARGUMENT) << row.label;
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, "s", CDF_INT4, 1L, 0L, none, VARY, none, &num, NULL_), CDF_OK);
    EXPECT_EQ(num, 1);
    EXPECT_EQ(CDFlib(CONFIRM_, zVAR_DIMINDICES_, none, NULL_), CDF_OK);
}

}  // namespace
