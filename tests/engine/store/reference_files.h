// Fixture of the tests that write files through the C interface with the calls that
// made a reference sample, and compare the bytes.
#pragma once

#include <algorithm>
#include <string>

#include "cdf.h"
#include "test_files.h"

namespace cdfgate::test {

class ReferenceFiles : public ScratchDir {
  protected:
    void TearDown() override {
        CDFsetFileBackward(BACKWARDFILEoff);
        ScratchDir::TearDown();
    }

    CDFid create(const std::string& name, bool backward) {
        CDFsetFileBackward(backward ? BACKWARDFILEon : BACKWARDFILEoff);
        CDFid id = nullptr;
        EXPECT_EQ(CDFcreateCDF(const_cast<char*>(path(name).c_str()), &id), CDF_OK);
        return id;
    }

    // Closes CDF id, whose file name.cdf must have the bytes of format/sample.
    void close_and_compare(CDFid id, const std::string& name, const std::string& sample) {
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, sample);
    }

    // name.cdf of the scratch folder has the bytes of format/sample.
    void expect_same(const std::string& name, const std::string& sample) {
        const auto written = file_bytes(path(name + ".cdf"));
        const auto expected = file_bytes(shared_data("format/" + sample));
        ASSERT_FALSE(expected.empty()) << "missing sample " << sample;
        ASSERT_EQ(written.size(), expected.size()) << sample;
        const auto diff = std::mismatch(written.begin(), written.end(), expected.begin());
        EXPECT_EQ(diff.first, written.end())
            << sample << " differs at offset " << (diff.first - written.begin());
    }
};

}  // namespace cdfgate::test
