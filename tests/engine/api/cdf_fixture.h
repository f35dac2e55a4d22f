// A scratch directory and a freshly created CDF for tests of the C interface.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cdf.h"

namespace cdfgate::test {

class CdfTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        dir_ = std::filesystem::temp_directory_path() /
               (std::string("cdfgate-api-") + info->test_suite_name() + "-" + info->name());
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override {
        CDFsetFileBackward(BACKWARDFILEoff);
        CDFsetValidate(VALIDATEFILEon);
        for (CDFid id : open_) {
            CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
        }
        std::filesystem::remove_all(dir_);
    }

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

    // Creates name.cdf in the scratch directory; it is closed at the end of the test.
    CDFid create(const std::string& name) {
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        open_.push_back(id);
        return id;
    }
    CDFstatus open(const std::string& name, CDFid& id) {
        const CDFstatus status = CDFlib(OPEN_, CDF_, path(name).c_str(), &id, NULL_);
        if (status >= CDF_OK) open_.push_back(id);
        return status;
    }
    CDFstatus close(CDFid id) {
        std::erase(open_, id);
        return CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
    }
    long create_zvar(const char* name, long type, long elems, std::vector<long> dims = {}) {
        std::vector<long> varys(dims.size(), VARY);
        long num = -1;
        EXPECT_GE(CDFlib(CREATE_, zVAR_, name, type, elems, static_cast<long>(dims.size()),
                         dims.data(), VARY, varys.data(), &num, NULL_),
                  CDF_WARN);
        return num;
    }
    long create_attr(const char* name, long scope) {
        long num = -1;
        EXPECT_GE(CDFlib(CREATE_, ATTR_, name, scope, &num, NULL_), CDF_WARN);
        return num;
    }

  public:
    // One long read by GET_ or CONFIRM_ on the current selections (-9 if refused).
    static long get(long item, long op = GET_) {
        long value = -9;
        EXPECT_EQ(CDFlib(op, item, &value, NULL_), CDF_OK) << "item " << item;
        return value;
    }
    static long confirm(long item) { return get(item, CONFIRM_); }
    static long var_num(CDFid id, const char* name) {
        return CDFgetVarNum(id, const_cast<char*>(name));
    }
    static long attr_num(CDFid id, const char* name) {
        return CDFgetAttrNum(id, const_cast<char*>(name));
    }

  protected:
    std::filesystem::path dir_;
    std::vector<CDFid> open_;
};

}  // namespace cdfgate::test
