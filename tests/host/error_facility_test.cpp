#include <gtest/gtest.h>

#include "cdfgate/host_error.h"
#include "hv/catalog.h"

namespace {

using foundation::core::msg::MessageArguments;
using foundation::core::msg::MessageId;

// An error class shaped like the gateway's own.
class sampleFailure : public foundation::core::except::Exception<sampleFailure, std::exception> {
  public:
    sampleFailure(const std::string& function, const std::string& status)
        : Exception(MessageId("QUORIN:imagesci:cdflib", "libraryFailure", 2), {function, status}) {}
};

TEST(HostError, CarriesIdentifierArgumentsAndFormattedText) {
    try {
        hvErrMsgId(sampleFailure("CDFcloseCDF", "NO_SUCH_CDF: the file is not open"));
        FAIL() << "hvErrMsgId returned";
    } catch (const cdfgate::embedded::HostError& error) {
        EXPECT_EQ(error.identifier(), "QUORIN:imagesci:cdflib:libraryFailure");
        const MessageArguments expected{std::string("CDFcloseCDF"),
                                        std::string("NO_SUCH_CDF: the file is not open")};
        EXPECT_EQ(error.arguments(), expected);
        EXPECT_EQ(error.what(), cdfgate::host::formatMessage(error.identifier(), expected));
        const cdfgate::embedded::HostError copy = error;
        EXPECT_EQ(copy.identifier(), error.identifier());
        EXPECT_EQ(copy.arguments(), expected);
        EXPECT_STREQ(copy.what(), error.what());
    }
}

class HostWarnings : public testing::Test {
  protected:
    void SetUp() override { cdfgate::embedded::clearWarnings(); }
    void TearDown() override { cdfgate::embedded::clearWarnings(); }
};

TEST_F(HostWarnings, AreRecordedInOrderPrintedAndCleared) {
    const MessageId closing("QUORIN:imagesci:cdflib", "closingFileHandle", 0);
    const MessageId parameter("QUORIN:imagesci:cdflib", "invalidCompressionParameter", 2);
    const MessageArguments arguments{std::int64_t{3}, std::string("HUFF")};
    testing::internal::CaptureStderr();
    hvWarningMsgId(closing, {});
    hvWarningMsgId(parameter, arguments);
    const std::string printed = testing::internal::GetCapturedStderr();

    const auto& recorded = cdfgate::embedded::warnings();
    ASSERT_EQ(recorded.size(), 2u);
    EXPECT_EQ(recorded[0].identifier, "QUORIN:imagesci:cdflib:closingFileHandle");
    EXPECT_TRUE(recorded[0].arguments.empty());
    EXPECT_EQ(recorded[1].identifier, "QUORIN:imagesci:cdflib:invalidCompressionParameter");
    EXPECT_EQ(recorded[1].arguments, arguments);
    EXPECT_EQ(recorded[1].text, cdfgate::host::formatMessage(recorded[1].identifier, arguments));
    EXPECT_EQ(printed, "Warning: " + recorded[0].text + "\nWarning: " + recorded[1].text + "\n");
    cdfgate::embedded::clearWarnings();
    EXPECT_TRUE(cdfgate::embedded::warnings().empty());
}

}  // namespace
