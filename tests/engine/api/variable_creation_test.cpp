// Creating zVariables: data types, element counts, dimensions and variances are
// checked; accepted definitions read back as given. Variable and attribute names:
// accepted characters, truncation, trailing blanks ignored, lookups by name.
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "cdf_fixture.h"

namespace {

class VariableCreation : public cdfgate::test::CdfTest {};

TEST_F(VariableCreation, DefinitionsAreChecked) {
    create("vc");
    const struct {
        const char* label;
        long type, elems;
        std::vector<long> dims;
        long status;
    } rows[] = {
        {"type 3", 3, 1, {}, BAD_DATA_TYPE},
        {"INT4 with 0 elements", CDF_INT4, 0, {}, BAD_NUM_ELEMS},
        {"INT4 with 2 elements", CDF_INT4, 2, {}, BAD_NUM_ELEMS},
        {"CHAR with 0 elements", CDF_CHAR, 0, {}, BAD_NUM_ELEMS},
        {"UCHAR with 300 elements", CDF_UCHAR, 300, {}, CDF_OK},
        {"11 dimensions", CDF_INT4, 1, std::vector<long>(11, 1), BAD_NUM_DIMS},
        {"a zero size", CDF_INT4, 1, {2, 0}, BAD_DIM_SIZE},
        {"10 dimensions", CDF_INT4, 1, {1, 1, 1, 1, 1, 1, 1, 1, 1, 2}, CDF_OK},
        {"40 GB records", CDF_DOUBLE, 1, {100000, 100000}, CDF_OK},
    };
    int n = 0;
    for (const auto& row : rows) {
        const std::string name = "v" + std::to_string(n++);
        std::vector<long> varys(row.dims.size(), VARY);
        long num = -9;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name.c_str(), row.type, row.elems,
                         static_cast<long>(row.dims.size()), row.dims.data(), VARY, varys.data(),
                         &num, NULL_),
                  row.status)
            << row.label;
        if (row.status != CDF_OK) {
            EXPECT_EQ(num, -9) << row.label;
        }
    }
    long num = -9;
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, "neg", CDF_INT4, 1L, -1L, nullptr, VARY, nullptr, &num, NULL_),
              BAD_NUM_DIMS);
}

TEST_F(VariableCreation, AnyNonZeroVarianceIsStoredAsVary) {
    create("vv");
    long dims[] = {2, 3}, varys[] = {5, 0};
    long num = -1;
    std::array<long, 2> got{};
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "v", CDF_INT4, 1L, 2L, dims, 7L, varys, &num, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(GET_, zVAR_DIMVARYS_, got.data(), NULL_), CDF_OK);
    EXPECT_EQ(got, (std::array{VARY, NOVARY}));
    EXPECT_EQ(get(zVAR_RECVARY_), VARY);
}

TEST_F(VariableCreation, NewVariablesHaveNoRecordsAndDefaults) {
    create("vd");
    create_zvar("v", CDF_REAL8, 1, {4});
    EXPECT_EQ((std::array{get(zVAR_MAXREC_), get(zVAR_NUMRECS_), get(zVAR_NUMallocRECS_),
                          get(zVAR_BLOCKINGFACTOR_), get(zVAR_SPARSERECORDS_)}),
              (std::array{-1L, 0L, 0L, 0L, NO_SPARSERECORDS}));
    long type = -9, parms[1] = {-9}, pct = -9;
    ASSERT_EQ(CDFlib(GET_, zVAR_COMPRESSION_, &type, parms, &pct, NULL_), CDF_OK);
    EXPECT_EQ((std::array{type, pct}), (std::array{NO_COMPRESSION, 100L}));
    double pad = 0;
    ASSERT_EQ(CDFlib(GET_, zVAR_PADVALUE_, &pad, NULL_), CDF_OK);
    EXPECT_EQ(pad, -1.0e30);
}

TEST_F(VariableCreation, VersionTwoFilesRefuseTheNewerTypes) {
    CDFsetFileBackward(BACKWARDFILEon);
    create("old");
    EXPECT_EQ(get(CDF_VERSION_) * 100 + get(CDF_RELEASE_) * 10 + get(CDF_INCREMENT_), 272);
    for (const long type : {CDF_INT8, CDF_TIME_TT2000, CDF_EPOCH16}) {
        long num = -9;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, "n", type, 1L, 0L, nullptr, VARY, nullptr, &num, NULL_),
                  BAD_DATA_TYPE)
            << type;
    }
    EXPECT_EQ(create_zvar("ok", CDF_INT4, 1), 0);
    int pad = -1;
    ASSERT_EQ(CDFlib(GET_, zVAR_PADVALUE_, &pad, NULL_), CDF_OK);
    EXPECT_EQ(pad, 0);  // version 2 default
}

struct NameRow {
    const char* label;
    std::string name;
    long status;
    std::string stored;  // empty: not created
};

class Names : public cdfgate::test::CdfTest {};

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
