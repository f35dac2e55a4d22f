#include "exercise.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <vector>

#include "api/status_text.h"
#include "cdf.h"

namespace cdfgate::exercise {
namespace {

// An output buffer with guard bytes behind it: a call that writes past what it was
// asked for shows up even without a sanitizer.
class Buffer {
  public:
    explicit Buffer(std::size_t size) : size_(size), bytes_(size + kGuard, kFill) {}
    void* data() { return bytes_.data(); }
    char* text() { return reinterpret_cast<char*>(bytes_.data()); }
    bool intact() const {
        return std::all_of(bytes_.begin() + static_cast<std::ptrdiff_t>(size_), bytes_.end(),
                           [](std::uint8_t b) { return b == kFill; });
    }

  private:
    static constexpr std::size_t kGuard = 32;
    static constexpr std::uint8_t kFill = 0xA5;
    std::size_t size_;
    std::vector<std::uint8_t> bytes_;
};

// a * b, or false when it overflows or exceeds limit.
bool bounded_product(std::size_t a, std::size_t b, std::size_t limit, std::size_t& out) {
    if (a != 0 && b > limit / a) return false;
    out = a * b;
    return out <= limit;
}

struct Shape {
    long type = 0;
    long elems = 0;
    long dims = 0;
    std::array<long, CDF_MAX_DIMS> sizes{};
    long maxrec = -1;
    std::size_t value_bytes = 0;   // one value (all its elements)
    std::size_t record_bytes = 0;  // one whole record; 0 when beyond the limit
};

class Pass {
  public:
    Pass(const Limits& limits, Report& report) : limits_(limits), report_(report) {}

    void run(const std::string& path) {
        file_info(path);
        CDFid id = nullptr;
        report_.open_status = CDFlib(OPEN_, CDF_, path.c_str(), &id, NULL_);
        if (!report_.opened()) return;
        file_inquiries();
        select_zmode(zMODEoff);
        r_variables();
        attributes(false);
        select_zmode(zMODEon2);
        z_variables();
        attributes(true);
        track(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_));
    }

  private:
    CDFstatus track(CDFstatus status) {
        ++report_.calls;
        if (status < CDF_WARN) ++report_.errors;
        if (engine::api::status_name(status) == nullptr && report_.unnamed++ == 0) {
            report_.first_unnamed = status;
        }
        return status;
    }

    void check(const Buffer& buffer) {
        if (!buffer.intact()) ++report_.shape_faults;
    }

    long get_long(long item) {
        long value = 0;
        track(CDFlib(GET_, item, &value, NULL_));
        return value;
    }

    void select_zmode(long mode) { track(CDFlib(SELECT_, CDF_zMODE_, mode, NULL_)); }

    void file_info(const std::string& path) {
        long type = 0, parms[CDF_MAX_PARMS] = {};
        long long compressed = 0, uncompressed = 0;
        track(
            CDFlib(GET_, CDF_INFO_, path.c_str(), &type, parms, &compressed, &uncompressed, NULL_));
    }

    void file_inquiries() {
        for (const long item : {CDF_ENCODING_, CDF_MAJORITY_, CDF_FORMAT_, CDF_NUMrVARS_,
                                CDF_NUMzVARS_, CDF_NUMATTRS_, CDF_NUMgATTRS_, CDF_NUMvATTRS_,
                                CDF_VERSION_, CDF_RELEASE_, CDF_INCREMENT_, CDF_CHECKSUM_,
                                CDF_LEAPSECONDLASTUPDATED_, rVARs_MAXREC_, zVARs_MAXREC_}) {
            get_long(item);
        }
        Buffer copyright(CDF_COPYRIGHT_LEN + 1);
        track(CDFlib(GET_, CDF_COPYRIGHT_, copyright.text(), NULL_));
        check(copyright);
        Buffer name(CDF_PATHNAME_LEN + 1);
        track(CDFlib(CONFIRM_, CDF_NAME_, name.text(), NULL_));
        check(name);
        long type = 0, parms[CDF_MAX_PARMS] = {}, pct = 0;
        track(CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, NULL_));
        r_dims_ = get_long(rVARs_NUMDIMS_);
        if (r_dims_ < 0 || r_dims_ > CDF_MAX_DIMS) ++report_.shape_faults;
        long sizes[CDF_MAX_DIMS] = {};
        track(CDFlib(GET_, rVARs_DIMSIZES_, sizes, NULL_));
    }

    // Completes a shape whose type, element count, dimensions and maxrec are set.
    void size_shape(Shape& s) const {
        const std::size_t element = element_bytes(s.type);
        const std::size_t limit = limits_.max_buffer_bytes;
        if (element == 0 || s.elems < 1 || s.dims < 0 || s.dims > CDF_MAX_DIMS) return;
        if (!bounded_product(element, static_cast<std::size_t>(s.elems), limit, s.value_bytes)) {
            s.value_bytes = 0;
            return;
        }
        std::size_t bytes = s.value_bytes;
        for (long d = 0; d < s.dims; ++d) {
            if (s.sizes[d] < 1 ||
                !bounded_product(bytes, static_cast<std::size_t>(s.sizes[d]), limit, bytes)) {
                return;
            }
        }
        s.record_bytes = bytes;
    }

    void r_variables() {
        const long count = get_long(CDF_NUMrVARS_);
        for (long v = 0; v < count && v < limits_.max_entries; ++v) {
            if (track(CDFlib(SELECT_, rVAR_, v, NULL_)) < CDF_WARN) continue;
            Buffer name(CDF_VAR_NAME_LEN256 + 1);
            track(CDFlib(GET_, rVAR_NAME_, name.text(), NULL_));
            check(name);
            Shape s;
            s.type = get_long(rVAR_DATATYPE_);
            s.elems = get_long(rVAR_NUMELEMS_);
            s.maxrec = get_long(rVAR_MAXREC_);
            get_long(rVAR_RECVARY_);
            long varys[CDF_MAX_DIMS] = {};
            track(CDFlib(GET_, rVAR_DIMVARYS_, varys, NULL_));
            s.dims = r_dims_;
            track(CDFlib(GET_, rVARs_DIMSIZES_, s.sizes.data(), NULL_));
            size_shape(s);
            if (s.record_bytes == 0) continue;
            const long zeros[CDF_MAX_DIMS] = {};
            const long ones[CDF_MAX_DIMS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
            Buffer record(s.record_bytes);
            track(CDFlib(SELECT_, rVARs_RECNUMBER_, 0L, rVARs_RECCOUNT_, 1L, rVARs_RECINTERVAL_, 1L,
                         rVARs_DIMINDICES_, zeros, rVARs_DIMCOUNTS_, s.sizes.data(),
                         rVARs_DIMINTERVALS_, ones, GET_, rVAR_HYPERDATA_, record.data(), NULL_));
            check(record);
        }
    }

    void z_variables() {
        const long count = get_long(CDF_NUMzVARS_);
        for (long v = 0; v < count && v < limits_.max_entries; ++v) z_variable(v);
    }

    void z_variable(long v) {
        if (track(CDFlib(SELECT_, zVAR_, v, NULL_)) < CDF_WARN) return;
        Buffer name(CDF_VAR_NAME_LEN256 + 1);
        track(CDFlib(GET_, zVAR_NAME_, name.text(), NULL_));
        check(name);
        Shape s;
        s.type = get_long(zVAR_DATATYPE_);
        s.elems = get_long(zVAR_NUMELEMS_);
        s.dims = get_long(zVAR_NUMDIMS_);
        if (s.dims < 0 || s.dims > CDF_MAX_DIMS) ++report_.shape_faults;
        track(CDFlib(GET_, zVAR_DIMSIZES_, s.sizes.data(), NULL_));
        long varys[CDF_MAX_DIMS] = {};
        track(CDFlib(GET_, zVAR_DIMVARYS_, varys, NULL_));
        s.maxrec = get_long(zVAR_MAXREC_);
        for (const long item : {zVAR_RECVARY_, zVAR_NUMRECS_, zVAR_NUMallocRECS_, zVAR_MAXallocREC_,
                                zVAR_BLOCKINGFACTOR_, zVAR_SPARSERECORDS_}) {
            get_long(item);
        }
        long ctype = 0, parms[CDF_MAX_PARMS] = {}, pct = 0;
        track(CDFlib(GET_, zVAR_COMPRESSION_, &ctype, parms, &pct, NULL_));
        size_shape(s);
        if (s.value_bytes == 0) return;
        Buffer pad(s.value_bytes);
        track(CDFlib(GET_, zVAR_PADVALUE_, pad.data(), NULL_));
        check(pad);
        if (s.record_bytes == 0) return;
        values(s);
        records(v, s);
    }

    // One value, through zVAR_DATA_, at the first and the last record.
    void values(const Shape& s) {
        const long zeros[CDF_MAX_DIMS] = {};
        for (const long r : {0L, std::max(s.maxrec, 0L)}) {
            Buffer value(s.value_bytes);
            track(CDFlib(SELECT_, zVAR_RECNUMBER_, r, zVAR_DIMINDICES_, zeros, GET_, zVAR_DATA_,
                         value.data(), NULL_));
            check(value);
        }
    }

    CDFstatus hyper(long first, long count, long interval, const long* indices, const long* counts,
                    const long* intervals, std::size_t bytes) {
        if (bytes > limits_.max_hyper_bytes - hyper_bytes_) return CDF_OK;
        hyper_bytes_ += bytes;
        Buffer out(bytes);
        const CDFstatus status =
            track(CDFlib(SELECT_, zVAR_RECNUMBER_, first, zVAR_RECCOUNT_, count, zVAR_RECINTERVAL_,
                         interval, zVAR_DIMINDICES_, indices, zVAR_DIMCOUNTS_, counts,
                         zVAR_DIMINTERVALS_, intervals, GET_, zVAR_HYPERDATA_, out.data(), NULL_));
        check(out);
        return status;
    }

    void records(long v, const Shape& s) {
        const long zeros[CDF_MAX_DIMS] = {};
        const long ones[CDF_MAX_DIMS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
        const long* sizes = s.sizes.data();
        // Every record one by one (bounded), the last one, and one past the end.
        const long last = std::max(s.maxrec, 0L);
        const long stop = std::min(last, limits_.max_records - 1);
        for (long r = 0; r <= stop; ++r) {
            if (hyper(r, 1, 1, zeros, sizes, ones, s.record_bytes) < CDF_WARN && r > 0) break;
        }
        if (last > stop) hyper(last, 1, 1, zeros, sizes, ones, s.record_bytes);
        if (last < LONG_MAX) hyper(last + 1, 1, 1, zeros, sizes, ones, s.record_bytes);

        // All records at once when they fit one buffer.
        std::size_t all = 0;
        if (s.maxrec >= 0 && bounded_product(s.record_bytes, static_cast<std::size_t>(last) + 1,
                                             limits_.max_buffer_bytes, all)) {
            hyper(0, last + 1, 1, zeros, sizes, ones, all);
        }

        // Every other record and element: a box with strides in every direction.
        long counts[CDF_MAX_DIMS] = {};
        long twos[CDF_MAX_DIMS] = {};
        std::size_t box = s.value_bytes;
        for (long d = 0; d < s.dims; ++d) {
            counts[d] = (sizes[d] + 1) / 2;
            twos[d] = 2;
            box *= static_cast<std::size_t>(counts[d]);
        }
        const long strided = last / 2 + 1;
        std::size_t bytes = 0;
        if (bounded_product(box, static_cast<std::size_t>(std::min(strided, limits_.max_records)),
                            limits_.max_buffer_bytes, bytes)) {
            hyper(0, std::min(strided, limits_.max_records), 2, zeros, counts, twos, bytes);
        }

        Buffer standard(s.record_bytes);
        track(CDFgetVarRecordData(current_cdf(), 1, v, 0, standard.data()));
        check(standard);
        track(CDFlib(SELECT_, zVAR_, v, zVAR_RECCOUNT_, 1L, zVAR_RECINTERVAL_, 1L, NULL_));
    }

    CDFid current_cdf() {
        CDFid id = nullptr;
        track(CDFlib(CONFIRM_, CDF_, &id, NULL_));
        return id;
    }

    struct EntryKind {
        long max_item, count_item, select_item, exists_item, type_item, elems_item, data_item;
    };

    void attributes(bool zmode) {
        constexpr EntryKind g{ATTR_MAXgENTRY_,  ATTR_NUMgENTRIES_, gENTRY_,     gENTRY_EXISTENCE_,
                              gENTRY_DATATYPE_, gENTRY_NUMELEMS_,  gENTRY_DATA_};
        constexpr EntryKind r{ATTR_MAXrENTRY_,  ATTR_NUMrENTRIES_, rENTRY_,     rENTRY_EXISTENCE_,
                              rENTRY_DATATYPE_, rENTRY_NUMELEMS_,  rENTRY_DATA_};
        constexpr EntryKind z{ATTR_MAXzENTRY_,  ATTR_NUMzENTRIES_, zENTRY_,     zENTRY_EXISTENCE_,
                              zENTRY_DATATYPE_, zENTRY_NUMELEMS_,  zENTRY_DATA_};
        const long count = get_long(CDF_NUMATTRS_);
        for (long a = 0; a < count && a < limits_.max_entries; ++a) {
            if (track(CDFlib(SELECT_, ATTR_, a, NULL_)) < CDF_WARN) continue;
            Buffer name(CDF_ATTR_NAME_LEN256 + 1);
            track(CDFlib(GET_, ATTR_NAME_, name.text(), NULL_));
            check(name);
            const long scope = get_long(ATTR_SCOPE_);
            if (zmode) {
                entries(z);
            } else if (scope == GLOBAL_SCOPE) {
                entries(g);
            } else {
                entries(r);
                entries(z);
            }
            standard_attribute(a, zmode ? 3 : scope == GLOBAL_SCOPE ? 1 : 2);
        }
    }

    void entries(const EntryKind& kind) {
        get_long(kind.count_item);
        const long max = get_long(kind.max_item);
        for (long e = 0; e <= max && e < limits_.max_entries; ++e) {
            if (track(CDFlib(CONFIRM_, kind.exists_item, e, NULL_)) != CDF_OK) continue;
            if (track(CDFlib(SELECT_, kind.select_item, e, NULL_)) < CDF_WARN) continue;
            const long type = get_long(kind.type_item);
            const long elems = get_long(kind.elems_item);
            if (elems < 0) ++report_.shape_faults;
            std::size_t bytes = 0;
            if (element_bytes(type) == 0 || elems < 1 ||
                !bounded_product(element_bytes(type), static_cast<std::size_t>(elems),
                                 limits_.max_buffer_bytes, bytes)) {
                continue;
            }
            Buffer value(bytes);
            track(CDFlib(GET_, kind.data_item, value.data(), NULL_));
            check(value);
        }
    }

    // The standard interface's view of the attribute and its first entry.
    void standard_attribute(long a, int kind) {
        const CDFid id = current_cdf();
        Buffer name(CDF_ATTR_NAME_LEN256 + 1);
        long scope = 0, max_g = 0, max_r = 0, max_z = 0;
        track(CDFinquireAttr(id, a, name.text(), &scope, &max_g, &max_r, &max_z));
        check(name);
        long type = 0, elems = 0;
        if (track(CDFinquireAttrEntry(id, kind, a, 0, &type, &elems)) < CDF_WARN) return;
        std::size_t bytes = 0;
        if (element_bytes(type) == 0 || elems < 1 ||
            !bounded_product(element_bytes(type), static_cast<std::size_t>(elems),
                             limits_.max_buffer_bytes, bytes)) {
            return;
        }
        Buffer value(bytes);
        track(CDFgetAttrEntry(id, kind, a, 0, value.data()));
        check(value);
    }

    const Limits& limits_;
    Report& report_;
    std::size_t hyper_bytes_ = 0;  // asked for by hyperslab reads so far
    long r_dims_ = 0;
};

}  // namespace

bool Report::opened() const {
    return open_status >= CDF_WARN;
}

std::size_t element_bytes(long data_type) {
    long bytes = 0;
    if (CDFlib(GET_, DATATYPE_SIZE_, data_type, &bytes, NULL_) != CDF_OK || bytes < 1) return 0;
    return static_cast<std::size_t>(bytes);
}

Report read_everything(const std::string& path, const Limits& limits) {
    Report report;
    Pass(limits, report).run(path);
    return report;
}

}  // namespace cdfgate::exercise
