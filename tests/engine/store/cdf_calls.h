// Call sequences the engine tests repeat through the C interface: making a zVariable,
// moving whole records of the current CDF, and the record counts of a variable.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "cdf.h"

namespace cdfgate::test {

// A zVariable of the current CDF, varying in every dimension; its number.
inline long make_zvar(const char* name, long type, std::vector<long> dims = {},
                      long rec_vary = VARY, long elems = 1) {
    std::vector<long> varys(dims.size(), VARY);
    long num = -1;
    EXPECT_EQ(CDFlib(CREATE_, zVAR_, name, type, elems, static_cast<long>(dims.size()), dims.data(),
                     rec_vary, varys.data(), &num, NULL_),
              CDF_OK)
        << name;
    return num;
}

// Selects records first, first + interval, ... (count of them) of variable var.
inline CDFstatus select_records(long var, long first, long count, long interval = 1) {
    return CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                  zVAR_RECINTERVAL_, interval, NULL_);
}

// count whole records (per_record values each) of var from first, read with the
// status expected.
template <typename T>
std::vector<T> get_records(long var, long first, long count, CDFstatus expected,
                           long per_record = 1, long interval = 1) {
    std::vector<T> out(static_cast<std::size_t>(count * per_record));
    EXPECT_EQ(select_records(var, first, count, interval), CDF_OK);
    EXPECT_EQ(CDFlib(GET_, zVAR_HYPERDATA_, out.data(), NULL_), expected)
        << "records " << first << ".." << count;
    return out;
}

template <typename T>
CDFstatus put_records(long var, long first, const std::vector<T>& values, long interval = 1) {
    const CDFstatus selected =
        select_records(var, first, static_cast<long>(values.size()), interval);
    if (selected != CDF_OK) return selected;
    return CDFlib(PUT_, zVAR_HYPERDATA_, values.data(), NULL_);
}

// The record counts of the current zVariable.
struct Counts {
    long max_rec, num_recs, num_alloc, max_alloc;
    bool operator==(const Counts&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Counts& c) {
        return out << "{max " << c.max_rec << ", recs " << c.num_recs << ", alloc " << c.num_alloc
                   << ", max alloc " << c.max_alloc << "}";
    }
};

inline Counts counts() {
    Counts c{-9, -9, -9, -9};
    EXPECT_EQ(
        CDFlib(GET_, zVAR_MAXREC_, &c.max_rec, GET_, zVAR_NUMRECS_, &c.num_recs, GET_,
               zVAR_NUMallocRECS_, &c.num_alloc, GET_, zVAR_MAXallocREC_, &c.max_alloc, NULL_),
        CDF_OK);
    return c;
}

inline long get_long(long item) {
    long v = -9;
    EXPECT_EQ(CDFlib(GET_, item, &v, NULL_), CDF_OK);
    return v;
}

}  // namespace cdfgate::test
