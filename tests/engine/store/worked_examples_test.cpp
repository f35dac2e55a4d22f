// Files written through the C interface match the reference samples byte for
// byte when made with the same calls.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

using cdfgate::test::shared_data;

class WorkedExample : public cdfgate::test::ReferenceFiles {};

long global_attr(const char* name) {
    long attr = -1;
    EXPECT_EQ(CDFlib(CREATE_, ATTR_, name, GLOBAL_SCOPE, &attr, NULL_), CDF_OK) << name;
    return attr;
}

CDFstatus put_text(CDFid id, long attr, long entry, std::string text) {
    return CDFputAttrEntry(id, 1, attr, entry, CDF_CHAR, static_cast<long>(text.size()),
                           text.data());
}

// Attribute entries of every datatype and two variables, in one encoding.
void encoded_values(CDFid id, long encoding) {
    ASSERT_EQ(CDFlib(PUT_, CDF_ENCODING_, encoding, NULL_), CDF_OK);
    const long attr = global_attr("A");
    float r4[] = {1.0f, -2.5f, 3.0e-39f, 1.0e30f};
    double r8[] = {1.0, -2.5, 1.0e-300, 0.1};
    short i2 = 0x0102;
    int i4 = 0x01020304;
    long long i8 = 0x0102030405060708LL, tt2000 = 0;
    double epoch = 63113904000000.0, epoch16[] = {63113904000.0, 1.0};
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 0, CDF_REAL4, 4, r4), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 1, CDF_REAL8, 4, r8), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 2, CDF_INT2, 1, &i2), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 3, CDF_INT4, 1, &i4), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 4, CDF_INT8, 1, &i8), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 5, CDF_EPOCH, 1, &epoch), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 6, CDF_EPOCH16, 1, epoch16), CDF_OK);
    ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 7, CDF_TIME_TT2000, 1, &tt2000), CDF_OK);
    cdfgate::test::make_zvar("R4", CDF_REAL4);
    cdfgate::test::make_zvar("R8", CDF_REAL8);
}

// Each row's calls, made in a new file (and in a version 2.7 file where the row names
// a second sample), give the sample's bytes.
TEST_F(WorkedExample, SameCallsGiveTheSampleBytes) {
    const struct {
        const char* sample;
        const char* sample_v27;
        std::function<void(CDFid)> make;
    } rows[] = {
        {"empty.cdf", "empty_v27.cdf", [](CDFid) {}},
        {"gattr.cdf", "gattr_v27.cdf",
         [](CDFid id) {
             const long attr = global_attr("Project");
             double reals[] = {1.5, -2.25};
             ASSERT_EQ(put_text(id, attr, 0, "Hello CDF"), CDF_OK);
             ASSERT_EQ(CDFputAttrEntry(id, 1, attr, 1, CDF_REAL8, 2, reals), CDF_OK);
         }},
        {"vattr.cdf", "vattr_v27.cdf",
         [](CDFid id) {
             const long var = cdfgate::test::make_zvar("Temp", CDF_REAL4);
             long attr = -1;
             ASSERT_EQ(CDFlib(CREATE_, ATTR_, "UNITS", VARIABLE_SCOPE, &attr, NULL_), CDF_OK);
             char text[] = "Kelvin";
             ASSERT_EQ(CDFputAttrEntry(id, 3, attr, var, CDF_CHAR, 6, text), CDF_OK);
         }},
        {"uir_entry_grown.cdf", nullptr,  // the grown entry leaves an unused record
         [](CDFid id) {
             const long attr = global_attr("A");
             ASSERT_EQ(put_text(id, attr, 0, "abc"), CDF_OK);
             ASSERT_EQ(put_text(id, attr, 1, "xyz"), CDF_OK);
             ASSERT_EQ(put_text(id, attr, 0, "abcdefghij"), CDF_OK);
         }},
        {"uir_attr_deleted.cdf", nullptr,  // the deleted attribute leaves unused records
         [](CDFid id) {
             const long a = global_attr("A"), b = global_attr("B");
             ASSERT_EQ(put_text(id, a, 0, "abc"), CDF_OK);
             ASSERT_EQ(put_text(id, b, 0, "def"), CDF_OK);
             ASSERT_EQ(CDFlib(SELECT_, ATTR_, a, DELETE_, ATTR_, NULL_), CDF_OK);
         }},
        {"checksum_md5.cdf", nullptr,
         [](CDFid id) {
             ASSERT_EQ(CDFlib(PUT_, CDF_CHECKSUM_, MD5_CHECKSUM, NULL_), CDF_OK);
             ASSERT_EQ(put_text(id, global_attr("A"), 0, "hi"), CDF_OK);
         }},
        {"encoding_network.cdf", nullptr, [](CDFid id) { encoded_values(id, NETWORK_ENCODING); }},
        {"encoding_vax.cdf", nullptr, [](CDFid id) { encoded_values(id, VAX_ENCODING); }},
        {"encoding_alphavmsg.cdf", nullptr,
         [](CDFid id) { encoded_values(id, ALPHAVMSg_ENCODING); }},
    };
    for (const auto& row : rows) {
        for (const char* sample : {row.sample, row.sample_v27}) {
            if (sample == nullptr) continue;
            SCOPED_TRACE(sample);
            const std::string name = std::string(sample).substr(0, std::strlen(sample) - 4);
            CDFid id = create(name, sample == row.sample_v27);
            row.make(id);
            close_and_compare(id, name, sample);
        }
    }
}

// The attribute entries and the pads of the two variables written above.
TEST_F(WorkedExample, ValuesReadBackFromOtherEncodings) {
    for (const char* sample :
         {"encoding_network.cdf", "encoding_vax.cdf", "encoding_alphavmsg.cdf"}) {
        SCOPED_TRACE(sample);
        CDFid id = nullptr;
        const std::string file = shared_data(std::string("format/") + sample).string();
        ASSERT_EQ(CDFlib(OPEN_, CDF_, file.c_str(), &id, NULL_), CDF_OK);
        std::vector<float> r4(4);
        std::vector<double> r8(4), epoch16(2);
        long long i8 = 0;
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 0, r4.data()), CDF_OK);
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 1, r8.data()), CDF_OK);
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 4, &i8), CDF_OK);
        ASSERT_EQ(CDFgetAttrEntry(id, 1, 0, 6, epoch16.data()), CDF_OK);
        EXPECT_EQ(r4, (std::vector<float>{1.0f, -2.5f, 3.0e-39f, 1.0e30f}));
        // The smallest D_FLOAT magnitude stands in for 1.0e-300 in the VAX file.
        const double tiny =
            std::string(sample) == "encoding_vax.cdf" ? 2.9387358770557188e-39 : 1.0e-300;
        EXPECT_EQ(r8, (std::vector<double>{1.0, -2.5, tiny, 0.1}));
        EXPECT_EQ(i8, 0x0102030405060708LL);
        EXPECT_EQ(epoch16, (std::vector<double>{63113904000.0, 1.0}));
        float pad4 = 0;
        double pad8 = 0;
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, 0, &pad4), VIRTUAL_RECORD_DATA);
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 1, 0, &pad8), VIRTUAL_RECORD_DATA);
        EXPECT_EQ(pad4, -1.0e30f);
        EXPECT_EQ(pad8, -1.0e30);
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

}  // namespace
