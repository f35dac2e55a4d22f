// Files holding variable values, written through the C interface with the calls
// that made the reference samples, match them byte for byte; the samples read
// back the values they were made with.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "cdf.h"
#include "reference_files.h"
#include "test_files.h"

namespace {

using cdfgate::test::shared_data;

class DataLayout : public cdfgate::test::ReferenceFiles {};

// zVariable "Var" INT4 [2,3]: record r holds 100r + 10i + j at (i,j).
void write_int4_records(CDFid id, bool column_major) {
    long dims[] = {2, 3};
    long varys[] = {VARY, VARY};
    long var = -1;
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "Var", CDF_INT4, 1L, 2L, dims, VARY, varys, &var, NULL_),
              CDF_OK);
    for (long r = 0; r < 3; ++r) {
        int values[6];
        for (int i = 0; i < 2; ++i) {
            for (int j = 0; j < 3; ++j) {
                values[column_major ? i + 2 * j : 3 * i + j] =
                    static_cast<int>(100 * r + 10 * i + j);
            }
        }
        ASSERT_EQ(CDFputVarRecordData(id, 1, var, r, values), CDF_OK);
    }
}

TEST_F(DataLayout, RecordsWrittenOneAtATime) {
    struct Case {
        const char* sample;
        bool backward;
        bool column_major;
    };
    for (const Case c :
         {Case{"zvar_int4_row.cdf", false, false}, Case{"zvar_int4_col.cdf", false, true},
          Case{"zvar_int4_row_v27.cdf", true, false}}) {
        SCOPED_TRACE(c.sample);
        const std::string name =
            std::string("w") + (c.backward ? "27" : "3") + (c.column_major ? "c" : "r");
        CDFid id = create(name, c.backward);
        if (c.column_major) {
            ASSERT_EQ(CDFlib(PUT_, CDF_MAJORITY_, COLUMN_MAJOR, NULL_), CDF_OK);
        }
        write_int4_records(id, c.column_major);
        ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
        expect_same(name, c.sample);
    }
}

TEST_F(DataLayout, TwoLevelIndexOfInterleavedVariables) {
    CDFid id = create("tree", false);
    long a = -1, b = -1;
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "A", CDF_CHAR, 4L, 0L, nullptr, VARY, nullptr, &a, NULL_),
              CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 2L, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "B", CDF_CHAR, 4L, 0L, nullptr, VARY, nullptr, &b, NULL_),
              CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 2L, NULL_), CDF_OK);
    for (long r = 0; r < 30; ++r) {
        char text[8];
        std::snprintf(text, sizeof text, "a%03ld", r);
        ASSERT_EQ(CDFputVarRecordData(id, 1, a, r, text), CDF_OK);
        text[0] = 'b';
        ASSERT_EQ(CDFputVarRecordData(id, 1, b, r, text), CDF_OK);
    }
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    expect_same("tree", "vxr_tree.cdf");
}

TEST_F(DataLayout, SparseRecordsAllocateWhatIsWritten) {
    CDFid id = create("sparse", false);
    const auto make = [&](const char* name, long sparse) {
        long var = -1;
        EXPECT_EQ(
            CDFlib(CREATE_, zVAR_, name, CDF_INT4, 1L, 0L, nullptr, VARY, nullptr, &var, NULL_),
            CDF_OK);
        if (sparse != NO_SPARSERECORDS) {
            EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, sparse, NULL_), CDF_OK);
        }
        return var;
    };
    const auto put = [&](long var, long record) {
        int value = static_cast<int>(record + 1);
        ASSERT_EQ(CDFputVarRecordData(id, 1, var, record, &value), CDF_OK);
    };
    const long s = make("S", PAD_SPARSERECORDS);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 4L, NULL_), CDF_OK);
    put(s, 0);
    put(s, 1);  // merged into record 0's VVR, which ends the file
    put(s, 10);
    const long p = make("P", PREV_SPARSERECORDS);
    const long n = make("N", NO_SPARSERECORDS);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 4L, NULL_), CDF_OK);
    put(n, 0);
    put(n, 10);  // grows the block in place
    put(s, 5);   // a VVR of its own, its slot between the others
    put(p, 3);
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    expect_same("sparse", "sparse_records.cdf");
}

TEST_F(DataLayout, SparseRecordsWrittenBackwardsSplitFullLeaves) {
    CDFid id = create("backwards", false);
    long var = -1;
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "S", CDF_INT4, 1L, 0L, nullptr, VARY, nullptr, &var, NULL_),
              CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, NULL_), CDF_OK);
    // Every record below the last one gets its own block: 40 blocks, 6 leaves.
    for (long r = 78; r >= 0; r -= 2) {
        int value = static_cast<int>(1000 + r);
        ASSERT_EQ(CDFputVarRecordData(id, 1, var, r, &value), CDF_OK) << r;
    }
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("backwards").c_str(), &id, NULL_), CDF_OK);
    int all[80] = {};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 80L, GET_,
                     zVAR_HYPERDATA_, all, NULL_),
              VIRTUAL_RECORD_DATA);
    for (int r = 0; r < 80; ++r) {
        EXPECT_EQ(all[r], r % 2 == 0 ? 1000 + r : -2147483647) << r;
    }
    long records = 0;
    ASSERT_EQ(CDFlib(GET_, zVAR_NUMRECS_, &records, CLOSE_, CDF_, NULL_), CDF_OK);
    EXPECT_EQ(records, 40);
}

CDFid open_sample(const std::string& relative) {
    CDFid id = nullptr;
    EXPECT_EQ(CDFlib(OPEN_, CDF_, shared_data(relative).string().c_str(), &id, NULL_), CDF_OK)
        << relative;
    return id;
}

TEST(DataSamples, RecordsReadBackInEitherMajority) {
    for (const char* sample :
         {"format/zvar_int4_row.cdf", "format/zvar_int4_col.cdf", "format/zvar_int4_row_v27.cdf"}) {
        SCOPED_TRACE(sample);
        CDFid id = open_sample(sample);
        ASSERT_NE(id, nullptr);
        const bool column = std::strstr(sample, "col") != nullptr;
        for (long r = 0; r < 3; ++r) {
            int values[6] = {};
            ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, r, values), CDF_OK);
            for (int i = 0; i < 2; ++i) {
                for (int j = 0; j < 3; ++j) {
                    EXPECT_EQ(values[column ? i + 2 * j : 3 * i + j], 100 * r + 10 * i + j);
                }
            }
        }
        // One value at (1, 2) of record 2, and record 3: never written.
        int one = 0;
        long indices[] = {1, 2};
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 2L, zVAR_DIMINDICES_, indices, GET_,
                         zVAR_DATA_, &one, NULL_),
                  CDF_OK);
        EXPECT_EQ(one, 212);
        int pads[6] = {};
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, 3, pads), VIRTUAL_RECORD_DATA);
        const int pad = std::strstr(sample, "v27") ? 0 : -2147483647;
        for (const int v : pads) EXPECT_EQ(v, pad);
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

TEST(DataSamples, IndexTreeAndFragmentsReadInRecordOrder) {
    CDFid id = open_sample("format/vxr_tree.cdf");
    ASSERT_NE(id, nullptr);
    for (long var = 0; var < 2; ++var) {
        char all[30 * 4];
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 30L,
                         zVAR_RECINTERVAL_, 1L, GET_, zVAR_HYPERDATA_, all, NULL_),
                  CDF_OK);
        for (long r = 0; r < 30; ++r) {
            char want[8];
            std::snprintf(want, sizeof want, "%c%03ld", var == 0 ? 'a' : 'b', r);
            EXPECT_EQ(std::string(all + 4 * r, 4), want);
        }
    }
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST(DataSamples, SparseRecordsReadAsPadOrPrevious) {
    CDFid id = open_sample("format/sparse_records.cdf");
    ASSERT_NE(id, nullptr);
    int s[12] = {};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 12L, GET_,
                     zVAR_HYPERDATA_, s, NULL_),
              VIRTUAL_RECORD_DATA);
    const int pad = -2147483647;
    const int want_s[12] = {1, 2, pad, pad, pad, 6, pad, pad, pad, pad, 11, pad};
    for (int r = 0; r < 12; ++r) EXPECT_EQ(s[r], want_s[r]) << "S record " << r;
    int p[6] = {};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 1L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 6L, GET_,
                     zVAR_HYPERDATA_, p, NULL_),
              VIRTUAL_RECORD_DATA);
    const int want_p[6] = {pad, pad, pad, 4, 4, 4};
    for (int r = 0; r < 6; ++r) EXPECT_EQ(p[r], want_p[r]) << "P record " << r;
    int n[11] = {};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, 2L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, 11L, GET_,
                     zVAR_HYPERDATA_, n, NULL_),
              CDF_OK);
    EXPECT_EQ(n[0], 1);
    for (int r = 1; r < 10; ++r) EXPECT_EQ(n[r], pad) << "N record " << r;
    EXPECT_EQ(n[10], 11);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST(DataSamples, BigEndianRVariableShowsOnlyItsVaryingDimension) {
    CDFid id = open_sample("format/rvars_network.cdf");
    ASSERT_NE(id, nullptr);
    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_), CDF_OK);
    short r0[2] = {};
    for (long r = 0; r < 2; ++r) {
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, r, r0), CDF_OK);
        EXPECT_EQ(r0[0], 1);
        EXPECT_EQ(r0[1], 2);
    }
    ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, 2, r0), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(r0[0], -32767);
    unsigned char r1[6] = {};
    ASSERT_EQ(CDFgetVarRecordData(id, 1, 1, 0, r1), VIRTUAL_RECORD_DATA);
    for (const unsigned char v : r1) EXPECT_EQ(v, 254);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST(DataSamples, PadsOfEveryFloatEncodingReadAsHostValues) {
    for (const char* sample : {"format/encoding_network.cdf", "format/encoding_vax.cdf",
                               "format/encoding_alphavmsg.cdf"}) {
        SCOPED_TRACE(sample);
        CDFid id = open_sample(sample);
        ASSERT_NE(id, nullptr);
        float r4 = 0;
        double r8 = 0;
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, 0, &r4), VIRTUAL_RECORD_DATA);
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 1, 0, &r8), VIRTUAL_RECORD_DATA);
        EXPECT_EQ(r4, -1.0e30f);
        EXPECT_EQ(r8, -1.0e30);
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

}  // namespace
