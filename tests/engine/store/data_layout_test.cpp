// Files holding variable values, written through the C interface with the calls
// that made the reference samples, match them byte for byte; the samples read
// back the values they were made with.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

using cdfgate::test::get_records;
using cdfgate::test::make_zvar;
using cdfgate::test::shared_data;
using I4 = std::vector<int>;

constexpr int kPad4 = -2147483647;

class DataLayout : public cdfgate::test::ReferenceFiles {};

// Record r of zVariable "Var" INT4 [2,3] holds 100r + 10i + j at (i,j).
I4 int4_record(long r, bool column_major) {
    I4 values(6);
    for (int i = 0; i < 2; ++i) {
        for (int j = 0; j < 3; ++j) {
            values[column_major ? i + 2 * j : 3 * i + j] = static_cast<int>(100 * r + 10 * i + j);
        }
    }
    return values;
}

// Four-character records "a000", "a001", ... of one letter.
std::string lettered(char letter, long count) {
    std::string all;
    for (long r = 0; r < count; ++r) {
        char text[24];
        std::snprintf(text, sizeof text, "%c%03ld", letter, r);
        all += text;
    }
    return all;
}

// Opens format/name of the shared data, current.
CDFid open_sample(const std::string& name) {
    CDFid id = nullptr;
    EXPECT_EQ(CDFlib(OPEN_, CDF_, shared_data("format/" + name).string().c_str(), &id, NULL_),
              CDF_OK)
        << name;
    return id;
}

TEST_F(DataLayout, RecordsWrittenOneAtATimeAndReadBack) {
    const struct {
        const char* sample;
        bool backward, column_major;
    } rows[] = {{"zvar_int4_row.cdf", false, false},
                {"zvar_int4_col.cdf", false, true},
                {"zvar_int4_row_v27.cdf", true, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sample);
        const std::string name = std::string(row.sample).substr(0, std::strlen(row.sample) - 4);
        CDFid id = create(name, row.backward);
        if (row.column_major) {
            ASSERT_EQ(CDFlib(PUT_, CDF_MAJORITY_, COLUMN_MAJOR, NULL_), CDF_OK);
        }
        const long var = make_zvar("Var", CDF_INT4, {2, 3});
        for (long r = 0; r < 3; ++r) {
            ASSERT_EQ(CDFputVarRecordData(id, 1, var, r, int4_record(r, row.column_major).data()),
                      CDF_OK);
        }
        close_and_compare(id, name, row.sample);

        // The sample reads back: one value at (1, 2) of record 2, and record 3 never written.
        id = open_sample(row.sample);
        ASSERT_NE(id, nullptr);
        I4 values(6);
        for (long r = 0; r < 3; ++r) {
            ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, r, values.data()), CDF_OK);
            EXPECT_EQ(values, int4_record(r, row.column_major)) << "record " << r;
        }
        int one = 0;
        long indices[] = {1, 2};
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 2L, zVAR_DIMINDICES_, indices, GET_,
                         zVAR_DATA_, &one, NULL_),
                  CDF_OK);
        EXPECT_EQ(one, 212);
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, 3, values.data()), VIRTUAL_RECORD_DATA);
        EXPECT_EQ(values, I4(6, row.backward ? 0 : kPad4));
        ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
    }
}

TEST_F(DataLayout, TwoLevelIndexOfInterleavedVariables) {
    CDFid id = create("tree", false);
    for (const char* name : {"A", "B"}) {
        make_zvar(name, CDF_CHAR, {}, VARY, 4);
        ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 2L, NULL_), CDF_OK);
    }
    std::string a = lettered('a', 30), b = lettered('b', 30);
    for (long r = 0; r < 30; ++r) {
        ASSERT_EQ(CDFputVarRecordData(id, 1, 0L, r, a.data() + 4 * r), CDF_OK);
        ASSERT_EQ(CDFputVarRecordData(id, 1, 1L, r, b.data() + 4 * r), CDF_OK);
    }
    close_and_compare(id, "tree", "vxr_tree.cdf");
}

TEST_F(DataLayout, SparseRecordsAllocateWhatIsWritten) {
    CDFid id = create("sparse", false);
    const auto make = [&](const char* name, long sparse) {
        const long var = make_zvar(name, CDF_INT4);
        EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, sparse, NULL_), CDF_OK);
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
    close_and_compare(id, "sparse", "sparse_records.cdf");
}

TEST_F(DataLayout, SparseRecordsWrittenBackwardsSplitFullLeaves) {
    CDFid id = create("backwards", false);
    const long var = make_zvar("S", CDF_INT4);
    ASSERT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, NULL_), CDF_OK);
    // Every record below the last one gets its own block: 40 blocks, 6 leaves.
    I4 want(80, kPad4);
    for (long r = 78; r >= 0; r -= 2) {
        want[static_cast<std::size_t>(r)] = static_cast<int>(1000 + r);
        ASSERT_EQ(CDFputVarRecordData(id, 1, var, r, &want[static_cast<std::size_t>(r)]), CDF_OK)
            << r;
    }
    ASSERT_EQ(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(OPEN_, CDF_, path("backwards").c_str(), &id, NULL_), CDF_OK);
    EXPECT_EQ(get_records<int>(0, 0, 80, VIRTUAL_RECORD_DATA), want);
    EXPECT_EQ(cdfgate::test::get_long(zVAR_NUMRECS_), 40);
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST(DataSamples, IndexTreeAndFragmentsReadInRecordOrder) {
    ASSERT_NE(open_sample("vxr_tree.cdf"), nullptr);
    for (long var = 0; var < 2; ++var) {
        const auto all = get_records<char>(var, 0, 30, CDF_OK, 4);
        EXPECT_EQ(std::string(all.begin(), all.end()), lettered(var == 0 ? 'a' : 'b', 30));
    }
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST(DataSamples, SparseRecordsReadAsPadOrPrevious) {
    ASSERT_NE(open_sample("sparse_records.cdf"), nullptr);
    const int pad = kPad4;
    EXPECT_EQ(get_records<int>(0, 0, 12, VIRTUAL_RECORD_DATA),
              (I4{1, 2, pad, pad, pad, 6, pad, pad, pad, pad, 11, pad}));
    EXPECT_EQ(get_records<int>(1, 0, 6, VIRTUAL_RECORD_DATA), (I4{pad, pad, pad, 4, 4, 4}));
    EXPECT_EQ(get_records<int>(2, 0, 11, CDF_OK),
              (I4{1, pad, pad, pad, pad, pad, pad, pad, pad, pad, 11}));
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

TEST(DataSamples, BigEndianRVariableShowsOnlyItsVaryingDimension) {
    CDFid id = open_sample("rvars_network.cdf");
    ASSERT_NE(id, nullptr);
    ASSERT_EQ(CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_), CDF_OK);
    std::vector<short> r0(2);
    for (long r = 0; r < 3; ++r) {
        ASSERT_EQ(CDFgetVarRecordData(id, 1, 0, r, r0.data()),
                  r < 2 ? CDF_OK : VIRTUAL_RECORD_DATA);
        EXPECT_EQ(r0, r < 2 ? (std::vector<short>{1, 2}) : (std::vector<short>{-32767, -32767}));
    }
    std::vector<unsigned char> r1(6);
    ASSERT_EQ(CDFgetVarRecordData(id, 1, 1, 0, r1.data()), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(r1, std::vector<unsigned char>(6, 254));
    ASSERT_EQ(CDFlib(CLOSE_, CDF_, NULL_), CDF_OK);
}

}  // namespace
