// What "inquire", "getVersion", "getCopyright", "getName" and
// "getVarsMaxWrittenRecNum" report about real files.
#include "file_test_support.h"

namespace cdfgate::testing {
namespace {

using embedded::Array;
using embedded::call;

long fileItem(CDFid id, long item) {
    long value = -12345;
    EXPECT_EQ(CDFlib(SELECT_, CDF_, id, GET_, item, &value, NULL_), CDF_OK);
    return value;
}

TEST(FileInquiry, InquireDescribesANewEmptyFile) {
    const ScratchDirectory scratch;
    const GatewayFile file = GatewayFile::create(scratch.file("empty"));
    const std::vector<Array> results = call("inquire", {file.id()}, 5);
    ASSERT_EQ(results.size(), 5u);
    EXPECT_EQ(results[1].text(), "ROW_MAJOR");
    // The maximum record number passes unchanged (-1: no records yet).
    EXPECT_EQ(results[2], number(static_cast<double>(fileItem(file.cdf(), zVARs_MAXREC_))));
    EXPECT_EQ(results[2], number(-1));
    EXPECT_EQ(results[3], number(0));
    EXPECT_EQ(results[4], number(0));
    file.close();
}

TEST(FileInquiry, InquireNamesEncodingsAndCountsOfRealFiles) {
    const struct {
        const char* file;
        const char* encoding;
        const char* majority;
        double maxRec;
        double variables;
        double attributes;
    } cases[] = {
        {"format/encoding_network.cdf", "NETWORK_ENCODING", "ROW_MAJOR", -1, 2, 1},
        {"format/encoding_vax.cdf", "VAX_ENCODING", "ROW_MAJOR", -1, 2, 1},
        {"format/encoding_alphavmsg.cdf", "ALPHAMVSG_ENCODING", "ROW_MAJOR", -1, 2, 1},
        {"format/zvar_int4_row.cdf", "IBMPC_ENCODING", "ROW_MAJOR", 2, 1, 0},
        {"format/zvar_int4_col.cdf", "IBMPC_ENCODING", "COLUMN_MAJOR", 2, 1, 0},
        {"format/vattr_v27.cdf", "IBMPC_ENCODING", "ROW_MAJOR", -1, 1, 1},
        // rVariables are seen as zVariables in zMode 2.
        {"format/rvars_network.cdf", "NETWORK_ENCODING", "ROW_MAJOR", 1, 2, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const GatewayFile file = GatewayFile::open(sharedData(c.file));
        const std::vector<Array> results = call("inquire", {file.id()}, 5);
        ASSERT_EQ(results.size(), 5u);
        EXPECT_EQ(results[0].text(), c.encoding);
        EXPECT_EQ(results[1].text(), c.majority);
        EXPECT_EQ(results[2], number(c.maxRec));
        EXPECT_EQ(results[3], number(c.variables));
        EXPECT_EQ(results[4], number(c.attributes));
        EXPECT_EQ(call1("getVarsMaxWrittenRecNum", {file.id()}), number(c.maxRec));
        file.close();
    }
}

TEST(FileInquiry, VersionIsTheFilesOwn) {
    const struct {
        const char* file;
        double version;
        double release;
    } cases[] = {
        {"format/empty.cdf", 3, 6},
        {"format/empty_v27.cdf", 2, 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const GatewayFile file = GatewayFile::open(sharedData(c.file));
        const std::vector<Array> results = call("getVersion", {file.id()}, 3);
        ASSERT_EQ(results.size(), 3u);
        EXPECT_EQ(results[0], number(c.version));
        EXPECT_EQ(results[1], number(c.release));
        EXPECT_EQ(results[2], number(static_cast<double>(fileItem(file.cdf(), CDF_INCREMENT_))));
        file.close();
    }
}

TEST(FileInquiry, CopyrightAndNameAreWholeTexts) {
    const ScratchDirectory scratch;
    const std::string base = scratch.file("named");
    const GatewayFile file = GatewayFile::create(base);
    std::array<char, CDF_COPYRIGHT_LEN + 1> notice{};
    ASSERT_EQ(CDFlib(SELECT_, CDF_, file.cdf(), GET_, CDF_COPYRIGHT_, notice.data(), NULL_),
              CDF_OK);
    const Array copyright = call1("getCopyright", {file.id()});
    EXPECT_EQ(copyright.classId(), hvCHAR_CLASS);
    EXPECT_FALSE(copyright.isEmpty());
    EXPECT_EQ(copyright.text(), std::string(notice.data()));
    // The name is the path as given, without the extension.
    EXPECT_EQ(call1("getName", {file.id()}).text(), base);
    file.close();
}

}  // namespace
}  // namespace cdfgate::testing
