// How one CDFlib call combines the statuses of its items: the first error stops
// it, otherwise the last warning wins over any information, and information
// over success.
#include <string>

#include "cdf_fixture.h"

namespace {

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
