// Library-wide modes and the library's own version and notice.
#include <array>

#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

// Restores the library-wide modes a test changes.
class LibraryModes : public ::testing::Test {
  protected:
    void TearDown() override {
        CDFsetFileBackward(backward_);
        CDFsetValidate(validate_ != 0 ? VALIDATEFILEon : VALIDATEFILEoff);
    }

  private:
    int backward_ = CDFgetFileBackward();
    int validate_ = CDFgetValidate();
};

TEST_F(LibraryModes, BackwardFileModeRoundTripsThroughItsNames) {
    call("setFileBackward", {number(BACKWARDFILEon)}, 0);
    EXPECT_EQ(CDFgetFileBackward(), 1);
    EXPECT_EQ(call1("getFileBackward", {}).text(), "BACKWARDFILEon");
    call("setFileBackward", {number(BACKWARDFILEoff)}, 0);
    EXPECT_EQ(CDFgetFileBackward(), 0);
    EXPECT_EQ(call1("getFileBackward", {}).text(), "BACKWARDFILEoff");
}

TEST_F(LibraryModes, BackwardFileModeRefusesValuesOtherThanZeroAndOne) {
    CDFsetFileBackward(1);
    for (const double mode : {-1.0, 2.0, 1e9}) {
        expectHostError([&] { call("setFileBackward", {number(mode)}, 0); },
                        cdflibId("unrecognizedValue"),
                        {static_cast<std::int64_t>(mode), std::string("BACKWARD MODE")});
    }
    EXPECT_EQ(CDFgetFileBackward(), 1) << "a refused mode must not reach the library";
    expectHostError([] { call("setFileBackward", {Array::text("1")}, 0); },
                    validateId("argumentNotDoubleScalar"), {std::string("MODE")});
}

TEST_F(LibraryModes, ValidationAcceptsOnlyOffAndTheConstantTablesOn) {
    call("setValidate", {number(VALIDATEFILEoff)}, 0);
    EXPECT_EQ(CDFgetValidate(), 0);
    EXPECT_EQ(call1("getValidate", {}).text(), "VALIDATEFILEoff");
    // -1 is the constant table's VALIDATEFILEON; the getter names the 1 read back.
    call("setValidate", {call1("getConstantValue", {Array::text("VALIDATEFILEON")})}, 0);
    EXPECT_EQ(CDFgetValidate(), 1);
    EXPECT_EQ(call1("getValidate", {}).text(), "VALIDATEFILEon");

    CDFsetValidate(VALIDATEFILEoff);
    for (const double mode : {1.0, 2.0, -2.0}) {
        expectHostError([&] { call("setValidate", {number(mode)}, 0); },
                        cdflibId("unrecognizedValue"),
                        {static_cast<std::int64_t>(mode), std::string("file validation mode")});
    }
    EXPECT_EQ(CDFgetValidate(), 0) << "a refused mode must not reach the library";
}

TEST(LibraryInformation, VersionIsThreeNumbersWithoutTheSubIncrement) {
    long version = -1;
    long release = -1;
    long increment = -1;
    ASSERT_EQ(CDFlib(GET_, LIB_VERSION_, &version, LIB_RELEASE_, &release, LIB_INCREMENT_,
                     &increment, NULL_),
              CDF_OK);
    const std::vector<Array> results = call("getLibraryVersion", {}, 4);
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[0], Array::scalar(static_cast<double>(version)));
    EXPECT_EQ(results[1], Array::scalar(static_cast<double>(release)));
    EXPECT_EQ(results[2], Array::scalar(static_cast<double>(increment)));
    // A host asking for one result gets the version alone.
    const std::vector<Array> one = call("getLibraryVersion", {}, 1);
    ASSERT_EQ(one.size(), 1u);
    EXPECT_EQ(one[0], results[0]);
}

TEST(LibraryInformation, CopyrightIsTheLibrarysWholeNotice) {
    std::array<char, CDF_COPYRIGHT_LEN + 1> notice{};
    ASSERT_EQ(CDFlib(GET_, LIB_COPYRIGHT_, notice.data(), NULL_), CDF_OK);
    const Array text = call1("getLibraryCopyright", {});
    EXPECT_EQ(text.classId(), hvCHAR_CLASS);
    EXPECT_EQ(text.dims(), (std::vector<std::size_t>{1, std::string(notice.data()).size()}));
    EXPECT_EQ(text.text(), std::string(notice.data()));
}

}  // namespace
}  // namespace cdfgate::testing
