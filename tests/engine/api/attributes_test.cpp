// Attributes and their entries through the standard interface and CDFlib:
// scopes, inquiries, entry kinds, replacement, deletion and renumbering.
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <utility>

#include "cdf_fixture.h"

namespace {

class Attributes : public cdfgate::test::CdfTest {
  protected:
    void SetUp() override {
        CdfTest::SetUp();
        id_ = create("at");
        create_zvar("x0", CDF_INT4, 1);
        create_zvar("x1", CDF_INT4, 1);
        ASSERT_EQ(create_attr("G1", GLOBAL_SCOPE), 0);
        ASSERT_EQ(create_attr("V1", VARIABLE_SCOPE), 1);
    }
    CDFid id_ = nullptr;
};

TEST_F(Attributes, ScopesAreStoredAsGlobalOrVariable) {
    const struct {
        const char* name;
        long scope;
        long status;
        long stored;
    } rows[] = {{"B3", 3, CDF_OK, GLOBAL_SCOPE},
                {"s4", 4, CDF_OK, VARIABLE_SCOPE},
                {"s5", 5, BAD_SCOPE, 0},
                {"B0", 0, BAD_SCOPE, 0},
                {"G1", VARIABLE_SCOPE, ATTR_EXISTS, 0},
                {"x0", GLOBAL_SCOPE, CDF_OK, GLOBAL_SCOPE}};
    for (const auto& row : rows) {
        long num = -9, scope = -9;
        EXPECT_EQ(CDFlib(CREATE_, ATTR_, row.name, row.scope, &num, NULL_), row.status) << row.name;
        if (row.status != CDF_OK) {
            EXPECT_EQ(num, -9);
            continue;
        }
        ASSERT_EQ(CDFlib(GET_, ATTR_SCOPE_, &scope, NULL_), CDF_OK);
        EXPECT_EQ(scope, row.stored) << row.name;
    }
    EXPECT_EQ((std::array{get(CDF_NUMATTRS_), get(CDF_NUMgATTRS_), get(CDF_NUMvATTRS_)}),
              (std::array{5L, 3L, 2L}));
}

TEST_F(Attributes, InquireReportsInapplicableMaximaAsMinusOne) {
    char name[CDF_ATTR_NAME_LEN256 + 1];
    long scope = 0, g = 0, r = 0, z = 0;
    int values[] = {7, 8, 9};
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 3, CDF_INT4, 3, values), CDF_OK);
    ASSERT_EQ(CDFinquireAttr(id_, 0, name, &scope, &g, &r, &z), CDF_OK);
    EXPECT_STREQ(name, "G1");
    EXPECT_EQ((std::array{scope, g, r, z}), (std::array{GLOBAL_SCOPE, 3L, -1L, -1L}));
    ASSERT_EQ(CDFinquireAttr(id_, 1, name, &scope, &g, &r, &z), CDF_OK);
    EXPECT_EQ((std::array{scope, g, z}), (std::array{VARIABLE_SCOPE, -1L, -1L}));
    EXPECT_EQ(CDFinquireAttr(id_, 9, name, &scope, &g, &r, &z), NO_SUCH_ATTR);
    EXPECT_EQ(CDFinquireAttr(id_, -1, name, &scope, &g, &r, &z), BAD_ATTR_NUM);
}

// Inquiring or deleting an entry of the wrong kind is refused in the gateway's entry
// command table (tests/gateway/attributes/entry_commands_test.cpp).
TEST_F(Attributes, EntryKindMustFitTheScope) {
    int v = 1;
    long max = -9, n = -9, type = -9, elems = -9;
    const struct {
        const char* label;
        CDFstatus status;
        long expected;
    } rows[] = {
        {"max z of global", CDFgetAttrMaxEntry(id_, 3, 0, &max), ILLEGAL_FOR_SCOPE},
        {"count z of global", CDFgetNumAttrEntries(id_, 3, 0, &n), ILLEGAL_FOR_SCOPE},
        {"max g of variable", CDFgetAttrMaxEntry(id_, 1, 1, &max), ILLEGAL_FOR_SCOPE},
        {"put g on variable", CDFputAttrEntry(id_, 1, 1, 0, CDF_INT4, 1, &v), ILLEGAL_FOR_SCOPE},
        {"put z on global", CDFputAttrEntry(id_, 3, 0, 0, CDF_INT4, 1, &v), ILLEGAL_FOR_SCOPE},
        {"kind 4", CDFputAttrEntry(id_, 4, 0, 0, CDF_INT4, 1, &v), ILLEGAL_FOR_SCOPE},
        {"data type 3", CDFputAttrEntry(id_, 1, 0, 4, 3L, 1, &v), BAD_DATA_TYPE},
        {"zero elements", CDFputAttrEntry(id_, 1, 0, 4, CDF_INT4, 0, &v), BAD_NUM_ELEMS},
        {"negative elements", CDFputAttrEntry(id_, 1, 0, 4, CDF_INT4, -1, &v), BAD_NUM_ELEMS},
        {"negative entry", CDFputAttrEntry(id_, 1, 0, -1, CDF_INT4, 1, &v), BAD_ENTRY_NUM},
        {"no attribute", CDFputAttrEntry(id_, 1, 9, 0, CDF_INT4, 1, &v), NO_SUCH_ATTR},
        {"inquire negative entry", CDFinquireAttrEntry(id_, 1, 0, -2, &type, &elems),
         BAD_ENTRY_NUM},
        {"inquire missing entry", CDFinquireAttrEntry(id_, 1, 0, 1, &type, &elems), NO_SUCH_ENTRY},
    };
    for (const auto& row : rows) EXPECT_EQ(row.status, row.expected) << row.label;
    EXPECT_EQ((std::array{max, n, type, elems}), (std::array{-9L, -9L, -9L, -9L}));
}

TEST_F(Attributes, EntriesAreReplacedDeletedAndCounted) {
    int ints[] = {7, 8, 9};
    char text[] = "hello";
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 3, CDF_INT4, 3, ints), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 0, CDF_CHAR, 5, text), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 1000000, CDF_INT4, 1, ints), CDF_OK);
    long max = 0, n = 0, type = 0, elems = 0;
    ASSERT_EQ(CDFgetAttrMaxEntry(id_, 1, 0, &max), CDF_OK);
    ASSERT_EQ(CDFgetNumAttrEntries(id_, 1, 0, &n), CDF_OK);
    EXPECT_EQ((std::array{max, n}), (std::array{1000000L, 3L}));
    std::string buf(6, '#');
    ASSERT_EQ(CDFgetAttrEntry(id_, 1, 0, 0, buf.data()), CDF_OK);
    EXPECT_EQ(buf, "hello#");  // no terminating zero

    char ok[] = "ok";
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 3, CDF_CHAR, 2, ok), CDF_OK);
    ASSERT_EQ(CDFinquireAttrEntry(id_, 0, 0, 3, &type, &elems), CDF_OK);  // kind 0 fits
    EXPECT_EQ((std::array{type, elems}), (std::array{CDF_CHAR, 2L}));
    ASSERT_EQ(CDFdeleteAttrEntry(id_, 1, 0, 1000000), CDF_OK);
    ASSERT_EQ(CDFgetAttrMaxEntry(id_, 1, 0, &max), CDF_OK);
    EXPECT_EQ(max, 3);
    EXPECT_EQ(CDFdeleteAttrEntry(id_, 1, 0, 2), NO_SUCH_ENTRY);
}

TEST_F(Attributes, CharacterValuesAreBlankFilledFromTheFirstZero) {
    const struct {
        long type;
        std::string in;
        std::string out;
    } rows[] = {{CDF_CHAR, std::string("a\0b", 3), "a  "},
                {CDF_CHAR, std::string("ab\0xy", 5), "ab   "},
                {CDF_UCHAR, std::string("q\0z", 3), "q  "},
                {CDF_INT1, std::string("q\0z", 3), std::string("q\0z", 3)}};
    long entry = 0;
    for (const auto& row : rows) {
        std::string in = row.in;
        ASSERT_EQ(
            CDFputAttrEntry(id_, 1, 0, entry, row.type, static_cast<long>(in.size()), in.data()),
            CDF_OK);
        std::string out(in.size() + 1, '#');
        ASSERT_EQ(CDFgetAttrEntry(id_, 1, 0, entry, out.data()), CDF_OK);
        EXPECT_EQ(out, row.out + "#") << entry;
        ++entry;
    }
}

TEST_F(Attributes, ZEntriesNeedNoVariableAndFollowVariableDeletion) {
    double v20 = 20, v22 = 22, v7 = 7;
    ASSERT_EQ(CDFputAttrEntry(id_, 3, 1, 0, CDF_DOUBLE, 1, &v20), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 3, 1, 2, CDF_DOUBLE, 1, &v22), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 3, 1, 7, CDF_DOUBLE, 1, &v7), CDF_OK);  // no variable 7
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 1L, DELETE_, zVAR_, NULL_), CDF_OK);
    long max = 0;
    double got = 0;
    ASSERT_EQ(CDFgetAttrMaxEntry(id_, 3, 1, &max), CDF_OK);
    EXPECT_EQ(max, 6);
    for (const auto& [entry, value] : {std::pair{1L, 22.0}, std::pair{0L, 20.0}}) {
        ASSERT_EQ(CDFgetAttrEntry(id_, 3, 1, entry, &got), CDF_OK);
        EXPECT_EQ(got, value) << entry;
    }
}

TEST_F(Attributes, DeletingAnAttributeRenumbersTheLaterOnes) {
    create_attr("x0", GLOBAL_SCOPE);
    EXPECT_EQ(attr_num(id_, "x0"), 2);
    long cur = -9;
    ASSERT_EQ(CDFlib(SELECT_, ATTR_, 0L, DELETE_, ATTR_, NULL_), CDF_OK);
    EXPECT_EQ(CDFlib(CONFIRM_, ATTR_, &cur, NULL_), NO_ATTR_SELECTED);
    EXPECT_EQ(cur, -9);
    EXPECT_EQ(attr_num(id_, "x0"), 1);
    EXPECT_EQ(attr_num(id_, "G1"), NO_SUCH_ATTR);
    EXPECT_EQ(attr_num(id_, "v1"), NO_SUCH_ATTR);  // case counts
}

TEST_F(Attributes, EverythingSurvivesCloseAndReopen) {
    int ints[] = {1, -2, 3};
    double reals[] = {1.5, -0.0};
    char text[] = "Kelvin";
    long long big = -9223372036854775807LL;
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 5, CDF_INT4, 3, ints), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 1, 0, 6, CDF_TIME_TT2000, 1, &big), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 3, 1, 1, CDF_REAL8, 2, reals), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id_, 3, 1, 0, CDF_CHAR, 6, text), CDF_OK);
    ASSERT_EQ(close(id_), CDF_OK);

    CDFid id = nullptr;
    ASSERT_EQ(open("at", id), CDF_OK);
    int got_ints[3] = {};
    double got_reals[2] = {};
    char got_text[7] = {};
    long long got_big = 0;
    ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 5, got_ints), CDF_OK);
    ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 6, &got_big), CDF_OK);
    ASSERT_EQ(CDFgetAttrEntry(id, 3, 1, 1, got_reals), CDF_OK);
    ASSERT_EQ(CDFgetAttrEntry(id, 3, 1, 0, got_text), CDF_OK);
    EXPECT_EQ(std::to_array(got_ints), std::to_array(ints));
    EXPECT_EQ(got_big, big);
    EXPECT_EQ(got_reals[0], 1.5);
    EXPECT_TRUE(std::signbit(got_reals[1]));
    EXPECT_STREQ(got_text, "Kelvin");
    long n = 0;
    ASSERT_EQ(CDFgetNumAttrEntries(id, 3, 1, &n), CDF_OK);
    EXPECT_EQ(n, 2);
    EXPECT_EQ(attr_num(id, "V1"), 1);
}

}  // namespace
