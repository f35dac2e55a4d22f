#include "template_file.h"

#include <cstdint>
#include <cstring>

#include "cdf.h"

namespace cdfgate::fuzz {
namespace {

bool ok(CDFstatus status) {
    return status >= CDF_WARN;
}

bool create_var(const char* name, long type, long elems, long dims, const long* sizes,
                long recvary) {
    const long varys[CDF_MAX_DIMS] = {VARY, VARY, VARY, VARY, VARY, VARY, VARY, VARY, VARY, VARY};
    long num = 0;
    return ok(CDFlib(CREATE_, zVAR_, name, type, elems, dims, sizes, recvary, varys, &num, NULL_));
}

bool put_records(long var, long first, long count, const long* counts, const void* values) {
    const long zeros[CDF_MAX_DIMS] = {};
    const long ones[CDF_MAX_DIMS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    return ok(CDFlib(SELECT_, zVAR_, var, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count,
                     zVAR_RECINTERVAL_, 1L, zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, counts,
                     zVAR_DIMINTERVALS_, ones, PUT_, zVAR_HYPERDATA_, values, NULL_));
}

bool variables() {
    const long three[] = {3};
    const long two_by_two[] = {2, 2};
    const double temperature[] = {1.5, -2.25, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0};
    char label[9] = "celsius ";
    const double epochs[] = {63113904000.0, 1.0, 63113904001.0, 2.0};
    const std::uint16_t counts[] = {1, 2, 3, 65535};
    const long long tt[] = {0, 1000000000LL};
    return create_var("temperature", CDF_DOUBLE, 1, 1, three, VARY) &&
           put_records(0, 0, 3, three, temperature) &&
           create_var("label", CDF_CHAR, 8, 0, nullptr, NOVARY) &&
           put_records(1, 0, 1, nullptr, label) &&
           create_var("epoch", CDF_EPOCH16, 1, 0, nullptr, VARY) &&
           put_records(2, 0, 2, nullptr, epochs) &&
           create_var("counts", CDF_UINT2, 1, 2, two_by_two, VARY) &&
           put_records(3, 0, 1, two_by_two, counts) &&
           create_var("tt", CDF_TIME_TT2000, 1, 0, nullptr, VARY) &&
           put_records(4, 1, 2, nullptr, tt);
}

bool put_entry(long select_item, long data_item, long entry, long type, long elems,
               const void* value) {
    return ok(CDFlib(SELECT_, select_item, entry, PUT_, data_item, type, elems, value, NULL_));
}

bool attributes() {
    long num = 0;
    char title[] = "fuzz template";
    const int ints[] = {1, 2, 3};
    char units[] = "K";
    const float scale = 1.5f;
    return ok(CDFlib(CREATE_, ATTR_, "TITLE", GLOBAL_SCOPE, &num, NULL_)) &&
           put_entry(gENTRY_, gENTRY_DATA_, 0, CDF_CHAR, std::strlen(title), title) &&
           put_entry(gENTRY_, gENTRY_DATA_, 2, CDF_INT4, 3, ints) &&
           ok(CDFlib(CREATE_, ATTR_, "UNITS", VARIABLE_SCOPE, &num, NULL_)) &&
           put_entry(zENTRY_, zENTRY_DATA_, 0, CDF_CHAR, 1, units) &&
           put_entry(zENTRY_, zENTRY_DATA_, 3, CDF_REAL4, 1, &scale);
}

}  // namespace

bool write_template_file(const std::string& path, bool row_major) {
    CDFid id = nullptr;
    if (!ok(CDFlib(CREATE_, CDF_, path.c_str(), 0L, nullptr, &id, NULL_))) return false;
    const bool written =
        ok(CDFlib(PUT_, CDF_MAJORITY_, row_major ? ROW_MAJOR : COLUMN_MAJOR, NULL_)) &&
        variables() && attributes();
    const bool closed = ok(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_));
    return written && closed;
}

}  // namespace cdfgate::fuzz
