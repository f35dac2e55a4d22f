// A damaged record index or value record makes reads return a status, never a
// crash, a hang or a huge allocation. Each row patches zvar_int4_row.cdf (VDR at
// 0x194, VXR at 0x300, VVR at 0x38C; see the worked example) and reads through
// the C interface with validation off, so that the damage reaches the data layer.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;
using cdfgate::test::write_bytes;

struct Patch {
    const char* what;
    std::size_t offset;
    std::vector<std::uint8_t> bytes;  // big-endian field values
};

std::vector<std::uint8_t> be64(std::uint64_t v) {
    std::vector<std::uint8_t> out(8);
    for (int i = 0; i < 8; ++i) out[i] = static_cast<std::uint8_t>(v >> (56 - 8 * i));
    return out;
}

std::vector<std::uint8_t> be32(std::uint32_t v) {
    return {static_cast<std::uint8_t>(v >> 24), static_cast<std::uint8_t>(v >> 16),
            static_cast<std::uint8_t>(v >> 8), static_cast<std::uint8_t>(v)};
}

const Patch kPatches[] = {
    {"VXRnext points at the VXR itself", 0x30C, be64(0x300)},
    {"slot points past the end of the file", 0x354, be64(0x10000000)},
    {"slot points at its own VXR", 0x354, be64(0x300)},
    {"slot points into the middle of a record", 0x354, be64(0x390)},
    {"slot's last record before its first", 0x338, be32(0xFFFFFFF0)},
    {"slot claims more records than its VVR holds", 0x338, be32(0x7FFFFFFF)},
    {"VVR too small for its slot", 0x38C, be64(100)},
    {"VVR larger than the file", 0x38C, be64(0x7FFFFFFFFFFF)},
    {"VVR of an unknown record type", 0x394, be32(99)},
    {"VXR with 2000 slots", 0x314, be32(2000)},
    {"VXR using more slots than it has", 0x318, be32(8)},
    {"VXRhead past the end of the file", 0x1B0, be64(0x7FFFFFFF0000)},
    {"VXRhead at offset 3", 0x1B0, be64(3)},
    {"dimension sizes that overflow a record", 0x2EC, be32(0x7FFFFFFF)},
};

class CorruptIndex : public cdfgate::test::ScratchDir {
  protected:
    void TearDown() override {
        CDFsetValidate(VALIDATEFILEon);
        ScratchDir::TearDown();
    }
};

TEST_F(CorruptIndex, ReadsReturnAStatus) {
    const auto original = file_bytes(shared_data("format/zvar_int4_row.cdf"));
    ASSERT_EQ(original.size(), 9128u) << "missing sample zvar_int4_row.cdf";
    CDFsetValidate(VALIDATEFILEoff);
    int n = 0;
    int reached = 0;
    for (const Patch& p : kPatches) {
        SCOPED_TRACE(p.what);
        auto bytes = original;
        std::copy(p.bytes.begin(), p.bytes.end(), bytes.begin() + static_cast<long>(p.offset));
        const std::string name = path("c" + std::to_string(n++));
        write_bytes(name + ".cdf", bytes);
        CDFid id = nullptr;
        const long opened = CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_);
        if (opened < CDF_WARN) continue;  // refused at open: also a status
        ++reached;
        int record[6] = {};
        long all = 0;
        const long status = CDFgetVarRecordData(id, 1, 0, 1, record);
        EXPECT_LT(status, CDF_WARN) << "status " << status;
        // Counting allocated records walks the same index.
        (void)CDFlib(SELECT_, zVAR_, 0L, GET_, zVAR_NUMallocRECS_, &all, NULL_);
        // Writing is refused as well, and the file still closes.
        EXPECT_LT(CDFputVarRecordData(id, 1, 0, 400, record), CDF_WARN);
        (void)CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
    }
    // The index is read only when values are; all but the record-size damage open.
    EXPECT_GE(reached, 13);
}

}  // namespace
