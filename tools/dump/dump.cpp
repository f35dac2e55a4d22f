#include "dump.h"

#include <algorithm>
#include <set>
#include <vector>

#include "cdf.h"
#include "value_text.h"

namespace cdfgate::dump {
namespace {

const char* encoding_name(long code) {
    switch (code) {
        case 1:
            return "NETWORK";
        case 2:
            return "SUN";
        case 3:
            return "VAX";
        case 4:
            return "DECSTATION";
        case 5:
            return "SGi";
        case 6:
            return "IBMPC";
        case 7:
            return "IBMRS";
        case 9:
            return "PPC";
        case 11:
            return "HP";
        case 12:
            return "NeXT";
        case 13:
            return "ALPHAOSF1";
        case 14:
            return "ALPHAVMSd";
        case 15:
            return "ALPHAVMSg";
        case 16:
            return "ALPHAVMSi";
        default:
            return "UNKNOWN";
    }
}

std::string compression_text(long type, long level) {
    switch (type) {
        case 0:
            return "NONE";
        case 1:
            return "RLE";
        case 2:
            return "HUFF";
        case 3:
            return "AHUFF";
        case 5:
            return "GZIP " + std::to_string(level);
        default:
            return std::to_string(type);
    }
}

bool failed(CDFstatus status) {
    return status < CDF_WARN;
}

std::string num(long v) {
    return std::to_string(v);
}

class Dumper {
  public:
    std::string run(const std::string& path) {
        out_ = "cdfdump 1\n";
        CDFid id = nullptr;
        const CDFstatus opened = CDFlib(OPEN_, CDF_, path.c_str(), &id, NULL_);
        if (failed(opened)) {
            out_ += "openerror " + num(opened) + "\n";
            return out_;
        }
        header();
        attributes();
        variables();
        CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
        out_ += "end\n";
        return out_;
    }

  private:
    void line(const std::string& text) { out_ += text + "\n"; }

    long get_long(long item) {
        long v = -1;
        CDFlib(GET_, item, &v, NULL_);
        return v;
    }

    void header() {
        const long encoding = get_long(CDF_ENCODING_);
        line("encoding " + num(encoding) + " " + encoding_name(encoding));
        line(std::string("majority ") + (get_long(CDF_MAJORITY_) == ROW_MAJOR ? "ROW" : "COLUMN"));
        line(std::string("format ") + (get_long(CDF_FORMAT_) == SINGLE_FILE ? "SINGLE" : "MULTI"));
        line("version " + num(get_long(CDF_VERSION_)) + "." + num(get_long(CDF_RELEASE_)) + "." +
             num(get_long(CDF_INCREMENT_)));
        long type = 0, pct = 0;
        long parms[CDF_MAX_PARMS] = {0};
        CDFlib(GET_, CDF_COMPRESSION_, &type, parms, &pct, NULL_);
        line("compression " + compression_text(type, parms[0]));
        const long checksum = get_long(CDF_CHECKSUM_);
        line(std::string("checksum ") + (checksum == MD5_CHECKSUM     ? "MD5"
                                         : checksum == OTHER_CHECKSUM ? "OTHER"
                                                                      : "NONE"));
        line("leapsecondlastupdated " + num(get_long(CDF_LEAPSECONDLASTUPDATED_)));
        r_count_ = get_long(CDF_NUMrVARS_);
        line("rvariables " + num(r_count_));
        const long rdims = get_long(rVARs_NUMDIMS_);
        long sizes[CDF_MAX_DIMS] = {0};
        CDFlib(GET_, rVARs_DIMSIZES_, sizes, NULL_);
        std::string dims = "rdims " + num(rdims);
        for (long d = 0; d < rdims && d < CDF_MAX_DIMS; ++d) dims += " " + num(sizes[d]);
        line(dims);
        line("zvariables " + num(get_long(CDF_NUMzVARS_)));
        attr_count_ = get_long(CDF_NUMATTRS_);
        line("attributes " + num(attr_count_) + " global " + num(get_long(CDF_NUMgATTRS_)) +
             " variable " + num(get_long(CDF_NUMvATTRS_)));
        CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_);
        var_count_ = get_long(CDF_NUMzVARS_);
        line("variables " + num(var_count_));
    }

    std::string var_name(long v) {
        char name[CDF_VAR_NAME_LEN256 + 1] = {0};
        CDFlib(SELECT_, zVAR_, v, GET_, zVAR_NAME_, name, NULL_);
        return name;
    }

    void attributes() {
        for (long a = 0; a < attr_count_; ++a) {
            char name[CDF_ATTR_NAME_LEN256 + 1] = {0};
            long scope = 0;
            CDFlib(SELECT_, ATTR_, a, GET_, ATTR_NAME_, name, ATTR_SCOPE_, &scope, NULL_);
            const bool global = scope == GLOBAL_SCOPE;
            const long count = get_long(global ? ATTR_NUMgENTRIES_ : ATTR_NUMzENTRIES_);
            const long max = get_long(global ? ATTR_MAXgENTRY_ : ATTR_MAXzENTRY_);
            line("attribute " + num(a) + " " + quoted(name, std::char_traits<char>::length(name)) +
                 (global ? " GLOBAL" : " VARIABLE") + " entries " + num(count) + " maxentry " +
                 num(max));
            for (long e = 0; e <= max; ++e) entry(global, e);
        }
    }

    void entry(bool global, long e) {
        const long exists_item = global ? gENTRY_EXISTENCE_ : zENTRY_EXISTENCE_;
        if (CDFlib(CONFIRM_, exists_item, e, NULL_) != CDF_OK) return;
        long type = 0, count = 0;
        CDFlib(SELECT_, global ? gENTRY_ : zENTRY_, e, GET_,
               global ? gENTRY_DATATYPE_ : zENTRY_DATATYPE_, &type,
               global ? gENTRY_NUMELEMS_ : zENTRY_NUMELEMS_, &count, NULL_);
        std::vector<unsigned char> value(element_bytes(type) *
                                         static_cast<std::size_t>(std::max(count, 1L)));
        CDFlib(GET_, global ? gENTRY_DATA_ : zENTRY_DATA_, value.data(), NULL_);
        std::string text = "  entry " + num(e);
        if (!global) {
            const std::string name = var_name(e);
            text += " " + quoted(name.data(), name.size());
        }
        text += " " + type_name(type) + " " + num(count) + ": ";
        const bool chars = type == CDF_CHAR || type == CDF_UCHAR;
        append_values(text, type, count, value.data(), chars ? 1 : static_cast<std::size_t>(count));
        line(text);
    }

    void variables() {
        for (long v = 0; v < var_count_; ++v) variable(v);
    }

    void variable(long v) {
        const std::string name = var_name(v);
        line("variable " + num(v) + " " + quoted(name.data(), name.size()) +
             (v < r_count_ ? " r" : " z"));
        long type = 0, elems = 0, ndims = 0, recvary = 0;
        long sizes[CDF_MAX_DIMS] = {0}, varys[CDF_MAX_DIMS] = {0};
        CDFlib(GET_, zVAR_DATATYPE_, &type, zVAR_NUMELEMS_, &elems, zVAR_NUMDIMS_, &ndims,
               zVAR_DIMSIZES_, sizes, zVAR_RECVARY_, &recvary, zVAR_DIMVARYS_, varys, NULL_);
        line("  type " + type_name(type) + " " + num(elems));
        std::string dims = "  dims " + num(ndims);
        std::string variances = std::string("  variances ") + (recvary ? "T" : "F") + "/";
        std::size_t values = 1;
        for (long d = 0; d < ndims; ++d) {
            dims += " " + num(sizes[d]);
            variances += varys[d] ? "T" : "F";
            values *= static_cast<std::size_t>(sizes[d]);
        }
        line(dims);
        line(variances);
        const long maxrec = get_long(zVAR_MAXREC_);
        line("  maxrec " + num(maxrec));
        line("  numrecs " + num(get_long(zVAR_NUMRECS_)));
        long ctype = 0, pct = 0;
        long parms[CDF_MAX_PARMS] = {0};
        CDFlib(GET_, zVAR_COMPRESSION_, &ctype, parms, &pct, NULL_);
        line("  compression " + compression_text(ctype, parms[0]));
        const long sparse = get_long(zVAR_SPARSERECORDS_);
        line(std::string("  sparserecords ") + (sparse == PAD_SPARSERECORDS    ? "PAD"
                                                : sparse == PREV_SPARSERECORDS ? "PREV"
                                                                               : "NONE"));
        line("  blockingfactor " + num(get_long(zVAR_BLOCKINGFACTOR_)));

        const std::size_t value_bytes =
            element_bytes(type) * static_cast<std::size_t>(std::max(elems, 1L));
        std::vector<unsigned char> pad(value_bytes, 0);
        const CDFstatus pad_status = CDFlib(GET_, zVAR_PADVALUE_, pad.data(), NULL_);
        std::string pad_line = pad_status == NO_PADVALUE_SPECIFIED ? "  pad default " : "  pad ";
        append_values(pad_line, type, elems, pad.data(), 1);
        line(pad_line);

        std::set<long> records;
        for (long r = 0; r <= std::min(2L, maxrec); ++r) records.insert(r);
        for (long r = std::max(0L, maxrec - 2); r <= maxrec; ++r) records.insert(r);
        for (const long r : records) record(r, ndims, sizes, type, elems, values, value_bytes);
    }

    void record(long r, long ndims, const long* sizes, long type, long elems, std::size_t values,
                std::size_t value_bytes) {
        long zeros[CDF_MAX_DIMS] = {0};
        long ones[CDF_MAX_DIMS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
        std::vector<unsigned char> buffer(values * value_bytes, 0);
        const CDFstatus status =
            CDFlib(SELECT_, zVAR_RECNUMBER_, r, zVAR_RECCOUNT_, 1L, zVAR_RECINTERVAL_, 1L,
                   zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, sizes, zVAR_DIMINTERVALS_, ones, GET_,
                   zVAR_HYPERDATA_, buffer.data(), NULL_);
        (void)ndims;
        if (failed(status)) {
            line("  record " + num(r) + " error " + num(status));
            return;
        }
        std::string text =
            "  record " + num(r) + (status == VIRTUAL_RECORD_DATA ? " virtual" : "") + ": ";
        append_values(text, type, elems, buffer.data(), values);
        line(text);
    }

    std::string out_;
    long r_count_ = 0;
    long attr_count_ = 0;
    long var_count_ = 0;
};

}  // namespace

std::string dump_cdf(const std::string& path) {
    return Dumper().run(path);
}

}  // namespace cdfgate::dump
