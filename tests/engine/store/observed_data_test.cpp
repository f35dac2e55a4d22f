// The reference library's observed behaviour for reading and writing values
// (vectors SS35-SS42, SS74-SS77, PV, RA and DA of the interface observations).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

constexpr int kPad4 = -2147483647;
constexpr short kPad2 = -32767;

class ObservedData : public cdfgate::test::ScratchDir {
  protected:
    void SetUp() override {
        ScratchDir::SetUp();
        ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("d").c_str()), &id_), CDF_OK);
    }
    void TearDown() override {
        if (id_ != nullptr) CDFlib(SELECT_, CDF_, id_, CLOSE_, CDF_, NULL_);
        ScratchDir::TearDown();
    }

    long make(const char* name, long type, long elems, std::vector<long> dims,
              long rec_vary = VARY) {
        std::vector<long> varys(dims.size(), VARY);
        long num = -1;
        EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, type, elems, static_cast<long>(dims.size()),
                         dims.data(), rec_vary, varys.data(), &num, NULL_),
                  CDF_OK);
        return num;
    }

    // Selects records first.. (count, interval) of variable var.
    static void records(long var, long first, long count, long interval = 1) {
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                         zVAR_RECINTERVAL_, interval, NULL_),
                  CDF_OK);
    }

    static long get_long(long item) {
        long v = -9;
        EXPECT_EQ(CDFlib(GET_, item, &v, NULL_), CDF_OK);
        return v;
    }

    struct Counts {
        long max_rec, num_recs, num_alloc, max_alloc;
    };
    static Counts counts() {
        return {get_long(zVAR_MAXREC_), get_long(zVAR_NUMRECS_), get_long(zVAR_NUMallocRECS_),
                get_long(zVAR_MAXallocREC_)};
    }

    template <typename T>
    static long put_value(long var, long record, T value) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, record, PUT_, zVAR_DATA_, &value,
                      NULL_);
    }
    template <typename T>
    static long get_value(long var, long record, T& value) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, record, GET_, zVAR_DATA_, &value,
                      NULL_);
    }

    CDFid id_ = nullptr;
};

TEST_F(ObservedData, HyperslabsOfATwoDimensionalVariable) {
    const long v0 = make("v0", CDF_INT4, 1, {3, 4});
    long zeros[] = {0, 0}, full[] = {3, 4}, ones[] = {1, 1};
    int values[12];
    for (int i = 0; i < 12; ++i) values[i] = 100 + i;
    records(v0, 0, 1);  // SS35
    ASSERT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, full, zVAR_DIMINTERVALS_,
                     ones, PUT_, zVAR_HYPERDATA_, values, NULL_),
              CDF_OK);
    long rec = -9, count = -9, sel[2] = {-9, -9};  // SS36: selections unchanged
    ASSERT_EQ(CDFlib(CONFIRM_, zVAR_RECNUMBER_, &rec, CONFIRM_, zVAR_RECCOUNT_, &count, CONFIRM_,
                     zVAR_DIMCOUNTS_, sel, NULL_),
              CDF_OK);
    EXPECT_EQ(rec, 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(sel[0], 3);
    EXPECT_EQ(sel[1], 4);

    int one = 0;  // SS37
    long at[] = {1, 2};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, at, GET_, zVAR_DATA_, &one, NULL_), CDF_OK);
    EXPECT_EQ(one, 106);

    int box[4] = {-1, -1, -1, -1};  // SS39: box runs past dimension 0
    long from20[] = {2, 0}, c24[] = {2, 4};
    EXPECT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, from20, zVAR_DIMCOUNTS_, c24, GET_, zVAR_HYPERDATA_,
                     box, NULL_),
              BAD_DIM_INDEX);
    EXPECT_EQ(box[0], -1);

    long c22[] = {2, 2}, i23[] = {2, 3}, i24[] = {2, 4};  // SS40, SS41
    ASSERT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, c22, zVAR_DIMINTERVALS_,
                     i23, GET_, zVAR_HYPERDATA_, box, NULL_),
              CDF_OK);
    EXPECT_EQ(std::vector<int>(box, box + 4), (std::vector<int>{100, 103, 108, 111}));
    EXPECT_EQ(CDFlib(SELECT_, zVAR_DIMINTERVALS_, i24, GET_, zVAR_HYPERDATA_, box, NULL_),
              BAD_DIM_INDEX);
    long intervals[2] = {};  // SS42: selections of a failing call stay
    ASSERT_EQ(CDFlib(CONFIRM_, zVAR_DIMINTERVALS_, intervals, NULL_), CDF_OK);
    EXPECT_EQ(intervals[1], 4);
}

TEST_F(ObservedData, ZeroDimensionalVariableTakesNullArrays) {
    long num = -1;  // SS74 to SS76
    ASSERT_EQ(CDFlib(CREATE_, zVAR_, "s", CDF_INT4, 1L, 0L, nullptr, VARY, nullptr, &num, NULL_),
              CDF_OK);
    int five = 5, back = 0;
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, num, zVAR_RECNUMBER_, 0L, zVAR_DIMINDICES_, nullptr, PUT_,
                     zVAR_DATA_, &five, NULL_),
              CDF_OK);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, nullptr, zVAR_DIMCOUNTS_, nullptr,
                     zVAR_DIMINTERVALS_, nullptr, GET_, zVAR_HYPERDATA_, &back, NULL_),
              CDF_OK);
    EXPECT_EQ(back, 5);
}

TEST_F(ObservedData, PadValuesOfRecordsNeverWritten) {
    const long i1 = make("i1", CDF_INT1, 1, {});  // PV19 to PV22
    signed char b = 0;
    EXPECT_EQ(get_value(i1, 0, b), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(b, -127);
    signed char five = 5;
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, i1, PUT_, zVAR_PADVALUE_, &five, NULL_), CDF_OK);
    EXPECT_EQ(get_value(i1, 7, b), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(b, 5);

    const long c3 = make("c3", CDF_CHAR, 3, {});  // PV23, PV24
    char xyz[] = "xyz";
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, c3, PUT_, zVAR_PADVALUE_, xyz, NULL_), CDF_OK);
    char text[4] = "###";
    EXPECT_EQ(get_value(c3, 0, text), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::string(text, 3), "xyz");
}

TEST_F(ObservedData, GapsAreWrittenWithThePadOfTheirTime) {
    const long v = make("v", CDF_INT4, 1, {});  // PV25 to PV32
    ASSERT_EQ(put_value(v, 0, 10), CDF_OK);
    ASSERT_EQ(put_value(v, 3, 13), CDF_OK);
    const Counts c = counts();
    EXPECT_EQ(c.max_rec, 3);
    EXPECT_EQ(c.num_recs, 4);
    EXPECT_EQ(c.num_alloc, 2048);
    EXPECT_EQ(c.max_alloc, 2047);
    int x = 0;
    EXPECT_EQ(get_value(v, 1, x), CDF_OK);
    EXPECT_EQ(x, kPad4);
    EXPECT_EQ(get_value(v, 4, x), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(x, kPad4);
    int six[6];
    records(v, 0, 6);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, six, NULL_), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::vector<int>(six, six + 6),
              (std::vector<int>{10, kPad4, kPad4, 13, kPad4, kPad4}));
    records(v, 0, 4);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, six, NULL_), CDF_OK);
    int seventy_seven = 77;
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, &seventy_seven, NULL_), CDF_OK);
    EXPECT_EQ(get_value(v, 1, x), CDF_OK);
    EXPECT_EQ(x, kPad4);
    EXPECT_EQ(get_value(v, 9, x), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(x, 77);
    // A later record pads the records it skips with the pad now in force.
    ASSERT_EQ(put_value(v, 6, 16), CDF_OK);
    EXPECT_EQ(get_value(v, 5, x), CDF_OK);
    EXPECT_EQ(x, 77);
}

TEST_F(ObservedData, SparseRecordsReadAsPadOrTheRecordBefore) {
    const long pad = make("pad", CDF_INT4, 1, {});  // PV34 to PV39, PV42 to PV48
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, pad, PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, NULL_),
              CDF_OK);
    ASSERT_EQ(put_value(pad, 0, 20), CDF_OK);
    ASSERT_EQ(put_value(pad, 3, 23), CDF_OK);
    const Counts c = counts();
    EXPECT_EQ(c.max_rec, 3);
    EXPECT_EQ(c.num_recs, 2);
    EXPECT_EQ(c.num_alloc, 2);
    int x = 0;
    EXPECT_EQ(get_value(pad, 1, x), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(x, kPad4);
    EXPECT_EQ(get_value(pad, 3, x), CDF_OK);
    EXPECT_EQ(x, 23);
    EXPECT_EQ(get_value(pad, 8, x), VIRTUAL_RECORD_DATA);
    int five[5];
    records(pad, 0, 5);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, five, NULL_), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::vector<int>(five, five + 5), (std::vector<int>{20, kPad4, kPad4, 23, kPad4}));
    EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, NO_SPARSERECORDS, NULL_), CANNOT_SPARSERECORDS);

    const long prev = make("prev", CDF_INT4, 1, {});
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, prev, PUT_, zVAR_SPARSERECORDS_, PREV_SPARSERECORDS, NULL_),
              CDF_OK);
    ASSERT_EQ(put_value(prev, 5, 35), CDF_OK);
    ASSERT_EQ(put_value(prev, 2, 32), CDF_OK);  // below the last record: a slot between
    int eight[8];
    records(prev, 0, 8);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, eight, NULL_), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::vector<int>(eight, eight + 8),
              (std::vector<int>{kPad4, kPad4, 32, 32, 32, 35, 35, 35}));
    EXPECT_EQ(get_value(prev, 9, x), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(x, 35);
    EXPECT_EQ(get_value(prev, 5, x), CDF_OK);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, prev, 3, &x), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(x, 32);
    EXPECT_EQ(counts().max_rec, 5);
    EXPECT_EQ(counts().num_recs, 2);
    // A partial write of a new sparse record leaves the pad elsewhere in it.
    const long box = make("box", CDF_INT2, 1, {3});
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, box, PUT_, zVAR_SPARSERECORDS_, PAD_SPARSERECORDS, NULL_),
              CDF_OK);
    ASSERT_EQ(put_value(box, 4, short{1}), CDF_OK);
    long at[] = {1};
    short seven = 7;
    ASSERT_EQ(
        CDFlib(SELECT_, zVAR_RECNUMBER_, 2L, zVAR_DIMINDICES_, at, PUT_, zVAR_DATA_, &seven, NULL_),
        CDF_OK);
    short three[3] = {};
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, box, 2, three), CDF_OK);
    EXPECT_EQ(std::vector<short>(three, three + 3), (std::vector<short>{kPad2, 7, kPad2}));
}

TEST_F(ObservedData, NonRecordVariantVariableLivesInRecordZero) {
    const long v = make("nrv", CDF_INT2, 1, {}, NOVARY);  // PV49 to PV60
    short s = 0;
    short buffer[3] = {};
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, 3, &s), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(s, kPad2);
    EXPECT_EQ(get_value(v, 0, s), VIRTUAL_RECORD_DATA);
    ASSERT_EQ(put_value(v, 0, short{42}), CDF_OK);
    EXPECT_EQ(get_value(v, 6, s), CDF_OK);
    EXPECT_EQ(s, 42);
    records(v, 2, 1);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, buffer, NULL_), CDF_OK);
    EXPECT_EQ(buffer[0], 42);
    records(v, 2, 2);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, buffer, NULL_), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(buffer[1], kPad2);
    records(v, 0, 2, 3);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, buffer, NULL_), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(buffer[0], 42);
    EXPECT_EQ(buffer[1], kPad2);
    ASSERT_EQ(put_value(v, 4, short{43}), CDF_OK);
    EXPECT_EQ(get_value(v, 0, s), CDF_OK);
    EXPECT_EQ(s, 43);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, 9, &s), CDF_OK);
    EXPECT_EQ(s, 43);
    short seven_eight_nine[] = {7, 8, 9};
    records(v, 0, 3);
    ASSERT_EQ(CDFlib(PUT_, zVAR_HYPERDATA_, seven_eight_nine, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 0);
    EXPECT_EQ(get_long(zVAR_NUMRECS_), 1);
    EXPECT_EQ(get_value(v, 0, s), CDF_OK);
    EXPECT_EQ(s, 9);
}

TEST_F(ObservedData, AllocationInBlocksOfEightKilobytes) {
    struct Case {
        const char* name;
        long type;
        long elems;
        std::vector<long> dims;
        long allocated;
    };
    const Case cases[] = {
        {"int4", CDF_INT4, 1, {}, 2048},       {"real8x100", CDF_REAL8, 1, {10, 10}, 11},
        {"int2", CDF_INT2, 1, {}, 4096},       {"char3", CDF_CHAR, 3, {}, 2731},
        {"real8x3", CDF_REAL8, 1, {3}, 342},   {"real8x1024", CDF_REAL8, 1, {1024}, 1},
        {"int1x9000", CDF_INT1, 1, {9000}, 1},
    };
    for (const Case& c : cases) {  // RA01, RA02, RA05 to RA10
        SCOPED_TRACE(c.name);
        const long v = make(c.name, c.type, c.elems, c.dims);
        EXPECT_EQ(counts().num_alloc, 0);
        std::vector<char> value(8, 0);
        ASSERT_EQ(
            CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, PUT_, zVAR_DATA_, value.data(), NULL_),
            CDF_OK);
        const Counts after = counts();
        EXPECT_EQ(after.max_rec, 0);
        EXPECT_EQ(after.num_alloc, c.allocated);
        EXPECT_EQ(after.max_alloc, c.allocated - 1);
    }
}

TEST_F(ObservedData, BlockingFactorAppliesToLaterAllocations) {
    const long v = make("bf", CDF_INT4, 1, {});  // RA11 to RA14
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_), CDF_OK);
    ASSERT_EQ(put_value(v, 0, 1), CDF_OK);
    EXPECT_EQ(counts().num_alloc, 10);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 20L, NULL_), CDF_OK);
    ASSERT_EQ(put_value(v, 10, 2), CDF_OK);
    const Counts c = counts();
    EXPECT_EQ(c.num_alloc, 30);
    EXPECT_EQ(c.max_alloc, 29);
    const long late = make("late", CDF_INT4, 1, {});
    ASSERT_EQ(put_value(late, 3, 1), CDF_OK);
    const Counts l = counts();
    EXPECT_EQ(l.max_rec, 3);
    EXPECT_EQ(l.num_recs, 4);
    EXPECT_EQ(l.num_alloc, 2048);
    const long nrv = make("nrv", CDF_INT4, 1, {}, NOVARY);  // RA16, RA17
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, nrv, PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_),
              FORCED_PARAMETER);
    ASSERT_EQ(put_value(nrv, 0, 1), CDF_OK);
    EXPECT_EQ(counts().num_alloc, 1);
}

TEST_F(ObservedData, ExplicitAllocationAndInitialRecords) {
    const long v = make("a", CDF_INT4, 1, {});  // RA19 to RA24
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, PUT_, zVAR_ALLOCATEBLOCK_, 0L, 9L, NULL_), CDF_OK);
    EXPECT_EQ(counts().num_alloc, 10);
    EXPECT_EQ(counts().max_rec, -1);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 20L, 29L, NULL_), PRECEEDING_RECORDS_ALLOCATED);
    EXPECT_EQ(counts().num_alloc, 30);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 5L, 14L, NULL_), SOME_ALREADY_ALLOCATED);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 40L, 35L, NULL_), BAD_ALLOCATE_RECS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, -1L, 3L, NULL_), BAD_ALLOCATE_RECS);
    const Counts c = counts();
    EXPECT_EQ(c.num_alloc, 30);
    EXPECT_EQ(c.max_alloc, 29);
    EXPECT_EQ(c.max_rec, -1);
    int x = 0;
    EXPECT_EQ(get_value(v, 3, x), VIRTUAL_RECORD_DATA);

    const long r = make("r", CDF_INT4, 1, {});
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, r, PUT_, zVAR_ALLOCATERECS_, 8L, NULL_), CDF_OK);
    EXPECT_EQ(counts().num_alloc, 8);
    EXPECT_EQ(counts().max_alloc, 7);

    const long i = make("i", CDF_INT2, 1, {});  // RA25 to RA28
    short minus_five = -5;
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, i, PUT_, zVAR_PADVALUE_, &minus_five, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 4L, NULL_), CDF_OK);
    EXPECT_EQ(counts().max_rec, 3);
    EXPECT_EQ(counts().num_recs, 4);
    short s = 0;
    EXPECT_EQ(get_value(i, 2, s), CDF_OK);
    EXPECT_EQ(s, -5);
    EXPECT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 6L, NULL_), CANNOT_CHANGE);
    make("j", CDF_INT2, 1, {});
    EXPECT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 0L, NULL_), BAD_INITIAL_RECS);
}

TEST_F(ObservedData, ValuesFollowTheMajorityOfTheFile) {
    const long v = make("v", CDF_INT2, 1, {2, 3});  // DA01 to DA04, DA07
    short six[] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(CDFputVarRecordData(id_, 1, v, 0, six), CDF_OK);
    short one = 0;
    long at10[] = {1, 0};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, zVAR_DIMINDICES_, at10, GET_,
                     zVAR_DATA_, &one, NULL_),
              CDF_OK);
    EXPECT_EQ(one, 4);
    short back[6] = {};
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, v, 0, back), CDF_OK);
    EXPECT_EQ(std::memcmp(back, six, sizeof six), 0);
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, v, 4, back), VIRTUAL_RECORD_DATA);
    for (const short x : back) EXPECT_EQ(x, kPad2);
    short twelve[12] = {};
    long at01[] = {0, 1}, c22[] = {2, 2}, ones[] = {1, 1};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECCOUNT_, 3L, zVAR_RECINTERVAL_, 2L, zVAR_RECNUMBER_, 0L,
                     zVAR_DIMINDICES_, at01, zVAR_DIMCOUNTS_, c22, zVAR_DIMINTERVALS_, ones, GET_,
                     zVAR_HYPERDATA_, twelve, NULL_),
              VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::vector<short>(twelve, twelve + 4), (std::vector<short>{2, 3, 5, 6}));
}

TEST_F(ObservedData, ColumnMajorFilesVaryTheFirstIndexFastest) {
    ASSERT_EQ(CDFlib(PUT_, CDF_MAJORITY_, COLUMN_MAJOR, NULL_), CDF_OK);  // DA05, DA06
    const long v = make("v", CDF_INT2, 1, {2, 3});
    short six[] = {1, 2, 3, 4, 5, 6};
    ASSERT_EQ(CDFputVarRecordData(id_, 1, v, 0, six), CDF_OK);
    short one = 0;
    long at10[] = {1, 0};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, zVAR_DIMINDICES_, at10, GET_,
                     zVAR_DATA_, &one, NULL_),
              CDF_OK);
    EXPECT_EQ(one, 2);
    short four[4] = {};
    long at01[] = {0, 1}, c22[] = {2, 2};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, at01, zVAR_DIMCOUNTS_, c22, GET_, zVAR_HYPERDATA_,
                     four, NULL_),
              CDF_OK);
    EXPECT_EQ(std::vector<short>(four, four + 4), (std::vector<short>{3, 4, 5, 6}));
}

TEST_F(ObservedData, StridedRecordWritesPadTheRecordsBetween) {
    const long v = make("v", CDF_INT4, 1, {});  // DA08
    int three[] = {10, 11, 12};
    records(v, 1, 3, 2);
    ASSERT_EQ(CDFlib(PUT_, zVAR_HYPERDATA_, three, NULL_), CDF_OK);
    EXPECT_EQ(counts().max_rec, 5);
    EXPECT_EQ(counts().num_recs, 6);
    int seven[7] = {};
    records(v, 0, 7);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, seven, NULL_), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::vector<int>(seven, seven + 7),
              (std::vector<int>{kPad4, 10, kPad4, 11, kPad4, 12, kPad4}));
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RECCOUNT_, 0L, GET_, zVAR_HYPERDATA_, seven, NULL_),
              BAD_REC_COUNT);  // DA09
}

TEST_F(ObservedData, CharactersBlankFromTheFirstZeroByteAndKeepHighBytes) {
    const long v = make("c", CDF_CHAR, 4, {});  // DA10, DA11
    char in[] = {'a', 0, 'b', 'c'};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, PUT_, zVAR_DATA_, in, NULL_), CDF_OK);
    char out[5] = {'#', '#', '#', '#', '#'};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, GET_, zVAR_DATA_, out, NULL_), CDF_OK);
    EXPECT_EQ(std::string(out, 5), "a   #");
    unsigned char high[] = {0xe9, 0x80, 0xff, 0x01};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 1L, PUT_, zVAR_DATA_, high, NULL_), CDF_OK);
    unsigned char got[4] = {};
    ASSERT_EQ(CDFlib(GET_, zVAR_DATA_, got, NULL_), CDF_OK);
    EXPECT_EQ(std::memcmp(got, high, 4), 0);
}

TEST_F(ObservedData, NegativeZeroAndGapRecordsOfEpoch16) {
    const long r8 = make("r8", CDF_REAL8, 1, {});  // DA12, DA13
    ASSERT_EQ(put_value(r8, 0, -0.0), CDF_OK);
    double d = 1;
    ASSERT_EQ(get_value(r8, 0, d), CDF_OK);
    EXPECT_TRUE(std::signbit(d));
    // With the negative-to-positive zero mode on, -0.0 is stored as +0.0.
    ASSERT_EQ(CDFlib(SELECT_, CDF_NEGtoPOSfp0_MODE_, NEGtoPOSfp0on, NULL_), CDF_OK);
    ASSERT_EQ(put_value(r8, 1, -0.0), CDF_OK);
    ASSERT_EQ(get_value(r8, 1, d), CDF_OK);
    EXPECT_FALSE(std::signbit(d));
    ASSERT_EQ(CDFlib(SELECT_, CDF_NEGtoPOSfp0_MODE_, NEGtoPOSfp0off, NULL_), CDF_OK);
    const long e16 = make("e16", CDF_EPOCH16, 1, {});
    double pair[] = {6.3e10, 5.0};
    ASSERT_EQ(CDFputVarRecordData(id_, 1, e16, 2, pair), CDF_OK);
    double back[2] = {-1, -1};
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, e16, 2, back), CDF_OK);
    EXPECT_EQ(back[0], 6.3e10);
    EXPECT_EQ(back[1], 5.0);
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, e16, 0, back), CDF_OK);
    EXPECT_EQ(back[0], 0.0);
    EXPECT_EQ(back[1], 0.0);
}

TEST_F(ObservedData, PartlyWrittenRecordHoldsPadElsewhere) {
    const long v = make("v", CDF_INT2, 1, {2, 3});  // DA14 to DA18
    short box[9] = {};
    long zeros[] = {0, 0}, c33[] = {3, 3};
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, c33, GET_,
                     zVAR_HYPERDATA_, box, NULL_),
              BAD_DIM_INDEX);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, -1L, NULL_), BAD_REC_NUM);
    short seventy_seven = 77;
    long at12[] = {1, 2};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 3L, zVAR_DIMINDICES_, at12, PUT_, zVAR_DATA_,
                     &seventy_seven, NULL_),
              CDF_OK);
    short record[6] = {};
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, v, 3, record), CDF_OK);
    EXPECT_EQ(std::vector<short>(record, record + 6),
              (std::vector<short>{kPad2, kPad2, kPad2, kPad2, kPad2, 77}));
    const long w = make("w", CDF_INT4, 1, {});
    ASSERT_EQ(put_value(w, 5, 1), CDF_OK);
    EXPECT_EQ(get_long(zVARs_MAXREC_), 5);
}

TEST_F(ObservedData, BufferTooLargeToAddressIsRefused) {
    const long v = make("v", CDF_REAL8, 1, {1000});
    double x = 7;
    records(v, 0, 0x7FFFFFFFFFFFFFFFL / 4);  // 8000-byte records: past 2^63 bytes
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, &x, NULL_), BAD_REC_COUNT);
    EXPECT_EQ(CDFlib(PUT_, zVAR_HYPERDATA_, &x, NULL_), BAD_REC_COUNT);
    EXPECT_EQ(x, 7);
    EXPECT_EQ(get_long(zVAR_MAXREC_), -1);
}

TEST_F(ObservedData, RecordFunctionsCheckVariableAndRecord) {
    const long v = make("v", CDF_INT2, 1, {2, 3});  // DA19 to DA28
    short six[] = {1, 2, 3, 4, 5, 6}, buf[6] = {};
    ASSERT_EQ(CDFputVarRecordData(id_, 1, v, 0, six), CDF_OK);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, 9, 0, buf), NO_SUCH_VAR);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, -1, 0, buf), NO_SUCH_VAR);
    EXPECT_EQ(CDFgetVarRecordData(id_, 0, 0, 0, buf), NO_SUCH_VAR);
    EXPECT_EQ(CDFputVarRecordData(id_, 1, 7, 0, buf), NO_SUCH_VAR);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, -1, buf), NO_SUCH_RECORD);
    EXPECT_EQ(CDFputVarRecordData(id_, 1, v, -3, buf), NO_SUCH_RECORD);
    // Unlike the reference, the CDF stays usable after a negative record number.
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, 0, buf), CDF_OK);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, 100000, buf), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(buf[0], kPad2);
    ASSERT_EQ(CDFputVarRecordData(id_, 1, v, 1, six), CDF_OK);
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, v, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 1);
}

}  // namespace
