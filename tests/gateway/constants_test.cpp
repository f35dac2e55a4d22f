#include <algorithm>
#include <string>
#include <utility>

#include "constants/constant_table.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::call;

TEST(GetConstantNames, ListsSixtyOneNamesInByteOrder) {
    const std::vector<Array> result = call("getConstantNames");
    ASSERT_EQ(result.size(), 1u);
    const Array& names = result[0];
    EXPECT_EQ(names.classId(), hvCELL_CLASS);
    ASSERT_EQ(names.dims(), (std::vector<std::size_t>{61, 1}));
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < names.numel(); ++i) texts.push_back(names.cell(i).text());
    EXPECT_EQ(texts.front(), "AHUFF_COMPRESSION");
    EXPECT_EQ(texts.back(), "VAX_ENCODING");
    EXPECT_TRUE(std::is_sorted(texts.begin(), texts.end()));
    const auto position = [&](const std::string& name) {
        return std::find(texts.begin(), texts.end(), name) - texts.begin();
    };
    EXPECT_LT(position("NOVARY"), position("NO_CHECKSUM"));
}

TEST(GetConstantValue, IsCaseInsensitiveAndDouble) {
    for (const auto& [name, value] :
         {std::pair{"cdf_int4", 4.0}, std::pair{"Cdf_Int4", 4.0}, std::pair{"CDF_INT4", 4.0},
          std::pair{"gzip_compression", 5.0}, std::pair{"readonlyon", -1.0},
          std::pair{"READONLYon", -1.0}, std::pair{"VALIDATEFILEON", -1.0},
          std::pair{"cdf_time_tt2000", 33.0}, std::pair{"ARM_BIG_ENCODING", 18.0}}) {
        const std::vector<Array> result = call("getConstantValue", {Array::text(name)});
        ASSERT_EQ(result[0].classId(), hvDOUBLE_CLASS) << name;
        EXPECT_EQ(result[0].scalarValue(), value) << name;
    }
}

TEST(GetConstantValue, UnknownNamesReportTheUpperCasedName) {
    for (const char* name : {"CDF_INT16", "cdf_int16", "Cdf_Int16"}) {
        expectHostError([&] { call("getConstantValue", {Array::text(name)}); },
                        cdflibId("unrecognizedConstantName"), {std::string("CDF_INT16")});
    }
    expectHostError([] { call("getConstantValue", {Array::text("CDF_INT4 ")}); },
                    cdflibId("unrecognizedConstantName"), {std::string("CDF_INT4 ")});
}

TEST(GetConstantValue, FillsTheFirstSlotEvenWhenNoOutputIsRequested) {
    const std::vector<Array> result = call("getConstantValue", {Array::text("cdf_real8")}, 0);
    ASSERT_FALSE(result.empty());
    EXPECT_EQ(result[0].scalarValue(), 22);
}

TEST(ModeNames, UnknownValuesNameTheirDescription) {
    using constants::lookupModeName;
    EXPECT_EQ(lookupModeName(constants::checksumNames(), 1, "CHECKSUM"), "MD5_CHECKSUM");
    EXPECT_EQ(lookupModeName(constants::validationModeNames(), 1, "VALIDATION MODE"),
              "VALIDATEFILEon");
    EXPECT_EQ(lookupModeName(constants::readOnlyModeNames(), -1, "READONLY MODE"), "READONLYon");
    expectHostError([] { lookupModeName(constants::checksumNames(), 7, "CHECKSUM"); },
                    cdflibId("unrecognizedValue"), {std::int64_t{7}, std::string("CHECKSUM")});
    expectHostError([] { lookupModeName(constants::validationModeNames(), -1, "VALIDATION MODE"); },
                    cdflibId("unrecognizedValue"),
                    {std::int64_t{-1}, std::string("VALIDATION MODE")});
}

}  // namespace
}  // namespace cdfgate::testing
