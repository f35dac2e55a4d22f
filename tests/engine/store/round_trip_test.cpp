// Every datatype in every kind of encoding, scalar and two-dimensional, written
// record by record, read back the same after the file is closed and reopened.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

struct TypeCase {
    long type;
    std::size_t size;
};

constexpr TypeCase kTypes[] = {
    {CDF_INT1, 1},     {CDF_INT2, 2},        {CDF_INT4, 4},  {CDF_INT8, 8},  {CDF_UINT1, 1},
    {CDF_UINT2, 2},    {CDF_UINT4, 4},       {CDF_REAL4, 4}, {CDF_REAL8, 8}, {CDF_EPOCH, 8},
    {CDF_EPOCH16, 16}, {CDF_TIME_TT2000, 8}, {CDF_BYTE, 1},  {CDF_FLOAT, 4}, {CDF_DOUBLE, 8},
    {CDF_CHAR, 1},     {CDF_UCHAR, 1},
};

// The bytes of value number i of a type: values every encoding holds exactly.
void value_bytes(long type, std::size_t size, long i, std::uint8_t* out) {
    const double x = static_cast<double>(i);
    const float f = static_cast<float>(x * 0.5 - 3.0);
    const double d[2] = {type == CDF_EPOCH16 ? 63113904000.0 + x : x * 1024.25 - 7.0, 0.5 * x};
    const auto c = static_cast<std::uint8_t>('A' + i % 26);
    // Integers: a pattern that fills every byte of the width.
    const std::uint64_t n = 0x0102030405060708ULL * static_cast<std::uint64_t>(i + 1);
    const void* from = &n;
    if (type == CDF_REAL4 || type == CDF_FLOAT) {
        from = &f;
    } else if (type == CDF_REAL8 || type == CDF_DOUBLE || type == CDF_EPOCH ||
               type == CDF_EPOCH16) {
        from = d;
    } else if (type == CDF_CHAR || type == CDF_UCHAR) {
        from = &c;
    }
    std::memcpy(out, from, size);
}

class RoundTrip : public cdfgate::test::ScratchDir {
  protected:
    void check(long encoding, bool row_major) {
        const std::string name = path("rt" + std::to_string(encoding) + (row_major ? "r" : "c"));
        CDFid id = nullptr;
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), CDF_OK);
        ASSERT_EQ(CDFlib(PUT_, CDF_ENCODING_, encoding, PUT_, CDF_MAJORITY_,
                         row_major ? ROW_MAJOR : COLUMN_MAJOR, NULL_),
                  CDF_OK);
        long dims[] = {2, 3}, varys[] = {VARY, VARY};
        std::vector<std::vector<std::uint8_t>> written;
        long number = 0;
        for (const TypeCase& t : kTypes) {
            for (const long ndims : {0L, 2L}) {
                long var = -1;
                const std::string var_name = "v" + std::to_string(number++);
                ASSERT_EQ(CDFlib(CREATE_, zVAR_, var_name.c_str(), t.type, 1L, ndims, dims, VARY,
                                 varys, &var, NULL_),
                          CDF_OK);
                const long values = ndims == 0 ? 1 : 6;
                std::vector<std::uint8_t> all(static_cast<std::size_t>(3 * values) * t.size);
                for (long i = 0; i < 3 * values; ++i) {
                    value_bytes(t.type, t.size, i,
                                all.data() + static_cast<std::size_t>(i) * t.size);
                }
                for (long r = 0; r < 3; ++r) {
                    ASSERT_EQ(CDFputVarRecordData(
                                  id, 1, var, r,
                                  all.data() + static_cast<std::size_t>(r * values) * t.size),
                              CDF_OK);
                }
                written.push_back(all);
            }
        }
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
        ASSERT_EQ(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), CDF_OK);
        for (long var = 0; var < number; ++var) {
            const auto& want = written[static_cast<std::size_t>(var)];
            std::vector<std::uint8_t> got(want.size(), 0xEE);
            ASSERT_EQ(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 3L, GET_,
                             zVAR_HYPERDATA_, got.data(), NULL_),
                      CDF_OK);
            EXPECT_EQ(got, want) << "encoding " << encoding << " variable " << var;
        }
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    }
};

TEST_F(RoundTrip, EveryTypeInEveryFamilyOfEncodings) {
    for (const long encoding :
         {IBMPC_ENCODING, NETWORK_ENCODING, VAX_ENCODING, ALPHAVMSg_ENCODING, ALPHAVMSd_ENCODING}) {
        check(encoding, true);
        check(encoding, false);
    }
}

}  // namespace
