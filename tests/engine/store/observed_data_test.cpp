// The reference library's observed behaviour for reading and writing values
// (vectors SS35-SS42, SS74-SS77, PV, RA and DA of the interface observations).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "test_files.h"

namespace {

using cdfgate::test::Counts;
using cdfgate::test::counts;
using cdfgate::test::get_long;
using cdfgate::test::get_records;
using cdfgate::test::make_zvar;
using I2 = std::vector<short>;
using I4 = std::vector<int>;

constexpr int kPad4 = -2147483647;
constexpr short kPad2 = -32767;

class ObservedData : public cdfgate::test::ScratchCdf {
  protected:
    static long sparse(long var, long mode) {
        return CDFlib(SELECT_, zVAR_, var, PUT_, zVAR_SPARSERECORDS_, mode, NULL_);
    }

    template <typename T>
    static long put_value(long var, long record, T value) {
        return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, record, PUT_, zVAR_DATA_, &value,
                      NULL_);
    }
    // Reads one value of a record: the status and the value expected.
    template <typename T>
    static void expect_value(long var, long record, long status, T want) {
        T got{};
        EXPECT_EQ(
            CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, record, GET_, zVAR_DATA_, &got, NULL_),
            status)
            << "record " << record;
        EXPECT_EQ(got, want) << "record " << record;
    }
};

TEST_F(ObservedData, HyperslabsOfATwoDimensionalVariable) {
    const long v0 = make_zvar("v0", CDF_INT4, {3, 4});
    // Selects a box of dimension indices, counts and intervals and moves it.
    const auto box = [](long op, std::vector<long> at, std::vector<long> n, std::vector<long> every,
                        int* values) {
        return CDFlib(SELECT_, zVAR_DIMINDICES_, at.data(), zVAR_DIMCOUNTS_, n.data(),
                      zVAR_DIMINTERVALS_, every.data(), op, zVAR_HYPERDATA_, values, NULL_);
    };
    I4 values(12);
    for (int i = 0; i < 12; ++i) values[i] = 100 + i;
    ASSERT_EQ(cdfgate::test::select_records(v0, 0, 1), CDF_OK);  // SS35
    ASSERT_EQ(box(PUT_, {0, 0}, {3, 4}, {1, 1}, values.data()), CDF_OK);
    long rec = -9, count = -9, sel[2] = {-9, -9};  // SS36: selections unchanged
    ASSERT_EQ(CDFlib(CONFIRM_, zVAR_RECNUMBER_, &rec, CONFIRM_, zVAR_RECCOUNT_, &count, CONFIRM_,
                     zVAR_DIMCOUNTS_, sel, NULL_),
              CDF_OK);
    EXPECT_EQ((std::vector<long>{rec, count, sel[0], sel[1]}), (std::vector<long>{0, 1, 3, 4}));

    int one = 0;  // SS37
    long at[] = {1, 2};
    ASSERT_EQ(CDFlib(SELECT_, zVAR_DIMINDICES_, at, GET_, zVAR_DATA_, &one, NULL_), CDF_OK);
    EXPECT_EQ(one, 106);

    I4 got(4, -1);  // SS39: box runs past dimension 0
    EXPECT_EQ(box(GET_, {2, 0}, {2, 4}, {1, 1}, got.data()), BAD_DIM_INDEX);
    EXPECT_EQ(got[0], -1);
    ASSERT_EQ(box(GET_, {0, 0}, {2, 2}, {2, 3}, got.data()), CDF_OK);  // SS40, SS41
    EXPECT_EQ(got, (I4{100, 103, 108, 111}));
    EXPECT_EQ(box(GET_, {0, 0}, {2, 2}, {2, 4}, got.data()), BAD_DIM_INDEX);
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
    const long i1 = make_zvar("i1", CDF_INT1);  // PV19 to PV22
    expect_value<signed char>(i1, 0, VIRTUAL_RECORD_DATA, -127);
    signed char five = 5;
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, i1, PUT_, zVAR_PADVALUE_, &five, NULL_), CDF_OK);
    expect_value<signed char>(i1, 7, VIRTUAL_RECORD_DATA, 5);

    const long c3 = make_zvar("c3", CDF_CHAR, {}, VARY, 3);  // PV23, PV24
    char xyz[] = "xyz";
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, c3, PUT_, zVAR_PADVALUE_, xyz, NULL_), CDF_OK);
    char text[4] = "###";
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, GET_, zVAR_DATA_, text, NULL_),
              VIRTUAL_RECORD_DATA);
    EXPECT_EQ(std::string(text, 3), "xyz");
}

TEST_F(ObservedData, GapsAreWrittenWithThePadOfTheirTime) {
    const long v = make_zvar("v", CDF_INT4);  // PV25 to PV32
    ASSERT_EQ(put_value(v, 0, 10), CDF_OK);
    ASSERT_EQ(put_value(v, 3, 13), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2048, 2047}));
    expect_value(v, 1, CDF_OK, kPad4);
    expect_value(v, 4, VIRTUAL_RECORD_DATA, kPad4);
    EXPECT_EQ(get_records<int>(v, 0, 6, VIRTUAL_RECORD_DATA),
              (I4{10, kPad4, kPad4, 13, kPad4, kPad4}));
    get_records<int>(v, 0, 4, CDF_OK);
    int seventy_seven = 77;
    ASSERT_EQ(CDFlib(PUT_, zVAR_PADVALUE_, &seventy_seven, NULL_), CDF_OK);
    expect_value(v, 1, CDF_OK, kPad4);
    expect_value(v, 9, VIRTUAL_RECORD_DATA, 77);
    // A later record pads the records it skips with the pad now in force.
    ASSERT_EQ(put_value(v, 6, 16), CDF_OK);
    expect_value(v, 5, CDF_OK, 77);
}

TEST_F(ObservedData, SparseRecordsReadAsPadOrTheRecordBefore) {
    const long pad = make_zvar("pad", CDF_INT4);  // PV34 to PV39, PV42 to PV48
    ASSERT_EQ(sparse(pad, PAD_SPARSERECORDS), CDF_OK);
    ASSERT_EQ(put_value(pad, 0, 20), CDF_OK);
    ASSERT_EQ(put_value(pad, 3, 23), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 2, 2, 3}));
    expect_value(pad, 1, VIRTUAL_RECORD_DATA, kPad4);
    expect_value(pad, 3, CDF_OK, 23);
    expect_value(pad, 8, VIRTUAL_RECORD_DATA, kPad4);
    EXPECT_EQ(get_records<int>(pad, 0, 5, VIRTUAL_RECORD_DATA), (I4{20, kPad4, kPad4, 23, kPad4}));
    EXPECT_EQ(CDFlib(PUT_, zVAR_SPARSERECORDS_, NO_SPARSERECORDS, NULL_), CANNOT_SPARSERECORDS);

    const long prev = make_zvar("prev", CDF_INT4);
    ASSERT_EQ(sparse(prev, PREV_SPARSERECORDS), CDF_OK);
    ASSERT_EQ(put_value(prev, 5, 35), CDF_OK);
    ASSERT_EQ(put_value(prev, 2, 32), CDF_OK);  // below the last record: a slot between
    EXPECT_EQ(get_records<int>(prev, 0, 8, VIRTUAL_RECORD_DATA),
              (I4{kPad4, kPad4, 32, 32, 32, 35, 35, 35}));
    expect_value(prev, 9, VIRTUAL_RECORD_DATA, 35);
    expect_value(prev, 5, CDF_OK, 35);
    int x = 0;
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, prev, 3, &x), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(x, 32);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 5);
    EXPECT_EQ(get_long(zVAR_NUMRECS_), 2);
    // A partial write of a new sparse record leaves the pad elsewhere in it.
    const long box = make_zvar("box", CDF_INT2, {3});
    ASSERT_EQ(sparse(box, PAD_SPARSERECORDS), CDF_OK);
    ASSERT_EQ(put_value(box, 4, short{1}), CDF_OK);
    long at[] = {1};
    short seven = 7;
    ASSERT_EQ(
        CDFlib(SELECT_, zVAR_RECNUMBER_, 2L, zVAR_DIMINDICES_, at, PUT_, zVAR_DATA_, &seven, NULL_),
        CDF_OK);
    I2 three(3);
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, box, 2, three.data()), CDF_OK);
    EXPECT_EQ(three, (I2{kPad2, 7, kPad2}));
}

TEST_F(ObservedData, NonRecordVariantVariableLivesInRecordZero) {
    const long v = make_zvar("nrv", CDF_INT2, {}, NOVARY);  // PV49 to PV60
    short s = 0;
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, 3, &s), VIRTUAL_RECORD_DATA);
    EXPECT_EQ(s, kPad2);
    expect_value(v, 0, VIRTUAL_RECORD_DATA, kPad2);
    ASSERT_EQ(put_value(v, 0, short{42}), CDF_OK);
    expect_value<short>(v, 6, CDF_OK, 42);
    EXPECT_EQ(get_records<short>(v, 2, 1, CDF_OK), I2{42});
    EXPECT_EQ(get_records<short>(v, 2, 2, VIRTUAL_RECORD_DATA), (I2{42, kPad2}));
    EXPECT_EQ(get_records<short>(v, 0, 2, VIRTUAL_RECORD_DATA, 1, 3), (I2{42, kPad2}));
    ASSERT_EQ(put_value(v, 4, short{43}), CDF_OK);
    expect_value<short>(v, 0, CDF_OK, 43);
    EXPECT_EQ(CDFgetVarRecordData(id_, 1, v, 9, &s), CDF_OK);
    EXPECT_EQ(s, 43);
    ASSERT_EQ(cdfgate::test::put_records(v, 0, I2{7, 8, 9}), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 0);
    EXPECT_EQ(get_long(zVAR_NUMRECS_), 1);
    expect_value<short>(v, 0, CDF_OK, 9);
}

TEST_F(ObservedData, AllocationInBlocksOfEightKilobytes) {
    const struct {
        const char* name;
        long type, elems;
        std::vector<long> dims;
        long allocated;
    } cases[] = {
        {"int4", CDF_INT4, 1, {}, 2048},       {"real8x100", CDF_REAL8, 1, {10, 10}, 11},
        {"int2", CDF_INT2, 1, {}, 4096},       {"char3", CDF_CHAR, 3, {}, 2731},
        {"real8x3", CDF_REAL8, 1, {3}, 342},   {"real8x1024", CDF_REAL8, 1, {1024}, 1},
        {"int1x9000", CDF_INT1, 1, {9000}, 1},
    };
    for (const auto& c : cases) {  // RA01, RA02, RA05 to RA10
        SCOPED_TRACE(c.name);
        const long v = make_zvar(c.name, c.type, c.dims, VARY, c.elems);
        EXPECT_EQ(counts().num_alloc, 0);
        ASSERT_EQ(put_value(v, 0, 0.0), CDF_OK);  // 8 bytes fill the smallest record
        EXPECT_EQ(counts(), (Counts{0, 1, c.allocated, c.allocated - 1}));
    }
}

TEST_F(ObservedData, BlockingFactorAppliesToLaterAllocations) {
    const long v = make_zvar("bf", CDF_INT4);  // RA11 to RA14
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_), CDF_OK);
    ASSERT_EQ(put_value(v, 0, 1), CDF_OK);
    EXPECT_EQ(counts().num_alloc, 10);
    ASSERT_EQ(CDFlib(PUT_, zVAR_BLOCKINGFACTOR_, 20L, NULL_), CDF_OK);
    ASSERT_EQ(put_value(v, 10, 2), CDF_OK);
    EXPECT_EQ(counts(), (Counts{10, 11, 30, 29}));
    const long late = make_zvar("late", CDF_INT4);
    ASSERT_EQ(put_value(late, 3, 1), CDF_OK);
    EXPECT_EQ(counts(), (Counts{3, 4, 2048, 2047}));
    const long nrv = make_zvar("nrv", CDF_INT4, {}, NOVARY);  // RA16, RA17
    EXPECT_EQ(CDFlib(SELECT_, zVAR_, nrv, PUT_, zVAR_BLOCKINGFACTOR_, 10L, NULL_),
              FORCED_PARAMETER);
    ASSERT_EQ(put_value(nrv, 0, 1), CDF_OK);
    EXPECT_EQ(counts().num_alloc, 1);
}

TEST_F(ObservedData, ExplicitAllocationAndInitialRecords) {
    const long v = make_zvar("a", CDF_INT4);  // RA19 to RA24
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, PUT_, zVAR_ALLOCATEBLOCK_, 0L, 9L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{-1, 0, 10, 9}));
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 20L, 29L, NULL_), PRECEEDING_RECORDS_ALLOCATED);
    EXPECT_EQ(counts().num_alloc, 30);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 5L, 14L, NULL_), SOME_ALREADY_ALLOCATED);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, 40L, 35L, NULL_), BAD_ALLOCATE_RECS);
    EXPECT_EQ(CDFlib(PUT_, zVAR_ALLOCATEBLOCK_, -1L, 3L, NULL_), BAD_ALLOCATE_RECS);
    EXPECT_EQ(counts(), (Counts{-1, 0, 30, 29}));
    expect_value(v, 3, VIRTUAL_RECORD_DATA, kPad4);

    const long r = make_zvar("r", CDF_INT4);
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, r, PUT_, zVAR_ALLOCATERECS_, 8L, NULL_), CDF_OK);
    EXPECT_EQ(counts(), (Counts{-1, 0, 8, 7}));

    const long i = make_zvar("i", CDF_INT2);  // RA25 to RA28
    short minus_five = -5;
    ASSERT_EQ(CDFlib(SELECT_, zVAR_, i, PUT_, zVAR_PADVALUE_, &minus_five, NULL_), CDF_OK);
    ASSERT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 4L, NULL_), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 3);
    EXPECT_EQ(get_long(zVAR_NUMRECS_), 4);
    expect_value<short>(i, 2, CDF_OK, -5);
    EXPECT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 6L, NULL_), CANNOT_CHANGE);
    make_zvar("j", CDF_INT2);
    EXPECT_EQ(CDFlib(PUT_, zVAR_INITIALRECS_, 0L, NULL_), BAD_INITIAL_RECS);
}

// The same six values in a 2x3 record, read at (1, 0) and as the box (0..1, 1..2).
TEST_F(ObservedData, ValuesFollowTheMajorityOfTheFile) {
    for (const bool column : {false, true}) {  // DA01 to DA07
        SCOPED_TRACE(column ? "column major" : "row major");
        CDFid id = id_;
        if (column) {
            ASSERT_EQ(CDFcreateCDF(const_cast<char*>(path("c").c_str()), &id), CDF_OK);
            ASSERT_EQ(CDFlib(PUT_, CDF_MAJORITY_, COLUMN_MAJOR, NULL_), CDF_OK);
        }
        const long v = make_zvar("v", CDF_INT2, {2, 3});
        short six[] = {1, 2, 3, 4, 5, 6};
        ASSERT_EQ(CDFputVarRecordData(id, 1, v, 0, six), CDF_OK);
        short one = 0;
        long at10[] = {1, 0}, at01[] = {0, 1}, c22[] = {2, 2}, ones[] = {1, 1};
        ASSERT_EQ(CDFlib(SELECT_, zVAR_, v, zVAR_RECNUMBER_, 0L, zVAR_DIMINDICES_, at10, GET_,
                         zVAR_DATA_, &one, NULL_),
                  CDF_OK);
        EXPECT_EQ(one, column ? 2 : 4);
        short back[6] = {};
        ASSERT_EQ(CDFgetVarRecordData(id, 1, v, 0, back), CDF_OK);
        EXPECT_EQ(std::memcmp(back, six, sizeof six), 0);
        short twelve[12] = {};
        ASSERT_EQ(CDFlib(SELECT_, zVAR_RECCOUNT_, column ? 1L : 3L, zVAR_RECINTERVAL_, 2L,
                         zVAR_RECNUMBER_, 0L, zVAR_DIMINDICES_, at01, zVAR_DIMCOUNTS_, c22,
                         zVAR_DIMINTERVALS_, ones, GET_, zVAR_HYPERDATA_, twelve, NULL_),
                  column ? CDF_OK : VIRTUAL_RECORD_DATA);
        EXPECT_EQ(I2(twelve, twelve + 4), column ? (I2{3, 4, 5, 6}) : (I2{2, 3, 5, 6}));
        if (column) {
            ASSERT_EQ(CDFcloseCDF(id), CDF_OK);
        } else {
            EXPECT_EQ(I2(twelve + 4, twelve + 12), I2(8, kPad2));
        }
    }
}

TEST_F(ObservedData, StridedRecordWritesPadTheRecordsBetween) {
    const long v = make_zvar("v", CDF_INT4);  // DA08
    ASSERT_EQ(cdfgate::test::put_records(v, 1, I4{10, 11, 12}, 2), CDF_OK);
    EXPECT_EQ(get_long(zVAR_MAXREC_), 5);
    EXPECT_EQ(get_long(zVAR_NUMRECS_), 6);
    EXPECT_EQ(get_records<int>(v, 0, 7, VIRTUAL_RECORD_DATA),
              (I4{kPad4, 10, kPad4, 11, kPad4, 12, kPad4}));
    int seven[7] = {};
    EXPECT_EQ(CDFlib(SELECT_, zVAR_RECCOUNT_, 0L, GET_, zVAR_HYPERDATA_, seven, NULL_),
              BAD_REC_COUNT);  // DA09
}

TEST_F(ObservedData, CharactersBlankFromTheFirstZeroByteAndKeepHighBytes) {
    const long v = make_zvar("c", CDF_CHAR, {}, VARY, 4);  // DA10, DA11
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
    const long r8 = make_zvar("r8", CDF_REAL8);  // DA12, DA13
    // With the negative-to-positive zero mode on (record 1), -0.0 is stored as +0.0.
    for (const long record : {0L, 1L}) {
        if (record == 1) {
            ASSERT_EQ(CDFlib(SELECT_, CDF_NEGtoPOSfp0_MODE_, NEGtoPOSfp0on, NULL_), CDF_OK);
        }
        ASSERT_EQ(put_value(r8, record, -0.0), CDF_OK);
        double d = 1;
        ASSERT_EQ(CDFgetVarRecordData(id_, 1, r8, record, &d), CDF_OK);
        EXPECT_EQ(std::signbit(d), record == 0);
    }
    ASSERT_EQ(CDFlib(SELECT_, CDF_NEGtoPOSfp0_MODE_, NEGtoPOSfp0off, NULL_), CDF_OK);
    const long e16 = make_zvar("e16", CDF_EPOCH16);
    double pair[] = {6.3e10, 5.0};
    ASSERT_EQ(CDFputVarRecordData(id_, 1, e16, 2, pair), CDF_OK);
    EXPECT_EQ(get_records<double>(e16, 0, 3, CDF_OK, 2),
              (std::vector<double>{0, 0, 0, 0, 6.3e10, 5.0}));
}

TEST_F(ObservedData, PartlyWrittenRecordHoldsPadElsewhere) {
    const long v = make_zvar("v", CDF_INT2, {2, 3});  // DA14 to DA18
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
    I2 record(6);
    ASSERT_EQ(CDFgetVarRecordData(id_, 1, v, 3, record.data()), CDF_OK);
    EXPECT_EQ(record, (I2{kPad2, kPad2, kPad2, kPad2, kPad2, 77}));
    const long w = make_zvar("w", CDF_INT4);
    ASSERT_EQ(put_value(w, 5, 1), CDF_OK);
    EXPECT_EQ(get_long(zVARs_MAXREC_), 5);
}

TEST_F(ObservedData, BufferTooLargeToAddressIsRefused) {
    const long v = make_zvar("v", CDF_REAL8, {1000});
    double x = 7;
    // 8000-byte records: past 2^63 bytes.
    ASSERT_EQ(cdfgate::test::select_records(v, 0, 0x7FFFFFFFFFFFFFFFL / 4), CDF_OK);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, &x, NULL_), BAD_REC_COUNT);
    EXPECT_EQ(CDFlib(PUT_, zVAR_HYPERDATA_, &x, NULL_), BAD_REC_COUNT);
    EXPECT_EQ(x, 7);
    EXPECT_EQ(get_long(zVAR_MAXREC_), -1);
}

TEST_F(ObservedData, RecordFunctionsCheckVariableAndRecord) {
    const long v = make_zvar("v", CDF_INT2, {2, 3});  // DA19 to DA28
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
