// Fixture of the tests that write files through the C interface with the calls that
// made a reference sample, and compare the bytes.
#pragma once

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

    // name.cdf of the scratch folder has the bytes of format/sample.
    void expect_same(const std::string& name, const std::string& sample) {
        const auto written = file_bytes(path(name + ".cdf"));
        const auto expected = file_bytes(shared_data("format/" + sample));
        ASSERT_FALSE(expected.empty()) << "missing sample " << sample;
        ASSERT_EQ(written.size(), expected.size()) << sample;
        for (std::size_t i = 0; i < written.size(); ++i) {
            ASSERT_EQ(written[i], expected[i]) << sample << " differs at offset " << i;
        }
    }
};

}  // namespace cdfgate::test
