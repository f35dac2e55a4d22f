// Variable and attribute names: accepted characters, truncation, comparison with
// trailing blanks ignored, and lookups by name.
#include <cstring>
#include <string>

#include "cdf_fixture.h"

namespace {

using cdfgate::test::CdfTest;

struct NameRow {
    const char* label;
    std::string name;
    long status;
    std::string stored;  // empty: not created
};

class Names : public CdfTest {};

TEST_F(Names, VariableNamesFollowTheRules) {
    create("n");
    const NameRow rows[] = {
        {"empty", "", BAD_VAR_NAME, ""},
        {"plain", "abc", CDF_OK, "abc"},
        {"again", "abc", VAR_EXISTS, ""},
        {"other case", "ABC", CDF_OK, "ABC"},
        {"trailing blanks", "abc  ", VAR_EXISTS, ""},
        {"leading blanks", "  lead", CDF_OK, "  lead"},
        {"inner blank", "a b", CDF_OK, "a b"},
        {"blanks only", "   ", CDF_OK, "   "},
        {"tab", "tab\there", BAD_VAR_NAME, ""},
        {"newline", "nl\n", BAD_VAR_NAME, ""},
        {"high byte", "caf\xE9", BAD_VAR_NAME, ""},
        {"punctuation", "x/y:z*?\"<>|", CDF_OK, "x/y:z*?\"<>|"},
        {"delete", "del\x7F", BAD_VAR_NAME, ""},
        {"leading digit", "9start", CDF_OK, "9start"},
        {"256 characters", std::string(256, 'q'), CDF_OK, std::string(256, 'q')},
        {"257 characters", std::string(257, 'r'), VAR_NAME_TRUNC, std::string(256, 'r')},
        {"equal to the cut name", std::string(256, 'r'), VAR_EXISTS, ""},
    };
    for (const NameRow& row : rows) {
        long num = -9;
        const long count_before = get(CDF_NUMzVARS_);
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, row.name.c_str(), CDF_INT4, 1L, 0L, nullptr, VARY, nullptr,
                         &num, NULL_),
                  row.status)
            << row.label;
        if (row.stored.empty()) {
            EXPECT_EQ(num, -9) << row.label;
            EXPECT_EQ(get(CDF_NUMzVARS_), count_before) << row.label;
            continue;
        }
        char stored[CDF_VAR_NAME_LEN256 + 1];
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, num, GET_, zVAR_NAME_, stored, NULL_), CDF_OK);
        EXPECT_EQ(std::string(stored), row.stored) << row.label;
    }
}

TEST_F(Names, LookupsIgnoreTrailingBlanksButNotCaseOrLeadingBlanks) {
    CDFid id = create("l");
    for (const char* name : {"abc", "ABC", "  lead", "   ", "tb  "}) create_zvar(name, CDF_INT4, 1);
    const struct {
        const char* name;
        long expected;
    } rows[] = {{"abc", 0}, {"abc ", 0}, {"Abc", NO_SUCH_VAR}, {"ABC", 1}, {"lead", NO_SUCH_VAR},
                {"", 3},    {"tb", 4}};
    for (const auto& row : rows) {
        EXPECT_EQ(var_num(id, row.name), row.expected) << row.name;
    }
}

TEST_F(Names, RenamingAVariable) {
    create("r");
    for (const char* name : {"abc", "ABC"}) create_zvar(name, CDF_INT4, 1);
    char name[CDF_VAR_NAME_LEN256 + 1];
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, 0L, PUT_, zVAR_NAME_, "ABC", NULL_), VAR_EXISTS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_NAME_, "abc", NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(PUT_, zVAR_NAME_, "", NULL_), BAD_VAR_NAME);
    EXPECT_EQ(CDFlib(PUT_, zVAR_NAME_, "x\ty", NULL_), BAD_VAR_NAME);
    EXPECT_EQ(CDFlib(PUT_, zVAR_NAME_, "new  ", GET_, zVAR_NAME_, name, NULL_), CDF_OK);
    EXPECT_STREQ(name, "new  ");
}

TEST_F(Names, AttributeNamesFollowTheSameRules) {
    CDFid id = create("a");
    create_zvar("abc", CDF_INT4, 1);
    long num = -9;
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, "", GLOBAL_SCOPE, &num, NULL_), BAD_ATTR_NAME);
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, "att  ", GLOBAL_SCOPE, &num, NULL_), CDF_OK);
    EXPECT_EQ(num, 0);
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, "att", GLOBAL_SCOPE, &num, NULL_), ATTR_EXISTS);
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, "a\tb", GLOBAL_SCOPE, &num, NULL_), BAD_ATTR_NAME);
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, "abc", GLOBAL_SCOPE, &num, NULL_), CDF_OK);  // own space
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, std::string(258, 'm').c_str(), GLOBAL_SCOPE, &num, NULL_),
              ATTR_NAME_TRUNC);
    EXPECT_EQ(num, 2);
    EXPECT_EQ(attr_num(id, "att "), 0);
    char name[CDF_ATTR_NAME_LEN256 + 1];
    EXPECT_EQ(CDFlib(SELECT_, ATTR_, 0L, PUT_, ATTR_NAME_, "", NULL_), BAD_ATTR_NAME);
    EXPECT_EQ(CDFlib(PUT_, ATTR_NAME_, "ren   ", GET_, ATTR_NAME_, name, NULL_), CDF_OK);
    EXPECT_STREQ(name, "ren   ");
    EXPECT_EQ(CDFlib(SELECT_, ATTR_, 2L, GET_, ATTR_NAME_, name, NULL_), CDF_OK);
    EXPECT_EQ(std::strlen(name), 256u);
}

}  // namespace
