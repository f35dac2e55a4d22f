// zVAR_ items about variables' definitions and selections: select, create,
// delete, rename, inquire; pad value, blocking factor, sparseness, compression;
// record and dimension selections.
#include <algorithm>
#include <cstring>

#include "api/call.h"
#include "api/names.h"
#include "api/values.h"
#include "api/view.h"
#include "codec/dispatch.h"
#include "encoding/data_types.h"
#include "encoding/encodings.h"
#include "store/multi_file.h"
#include "store/variable_data.h"

namespace cdfgate::engine::api {
namespace {

struct Current {
    OpenCdf& cdf;
    VarRef ref;
    store::Variable& var;
};

// The current zVariable; NO_VAR_SELECTED when none.
CDFstatus current_var(OpenCdf& cdf, std::optional<Current>& out) {
    if (!cdf.cur_zvar) return NO_VAR_SELECTED;
    const auto ref = zvar_ref(cdf, *cdf.cur_zvar);
    if (!ref) return NO_VAR_SELECTED;
    out.emplace(Current{cdf, *ref, variable(cdf, *ref)});
    return CDF_OK;
}

std::size_t record_bytes(const OpenCdf& cdf, VarRef ref) {
    const store::Variable& var = cdf.file->variables(ref.z)[ref.index];
    std::size_t n = encoding::element_size(var.vdr.data_type) *
                    static_cast<std::size_t>(std::max(var.vdr.num_elems, 1));
    const auto& varys = var.vdr.dim_varys;
    for (std::size_t d = 0; d < varys.size(); ++d) {
        if (varys[d] == 0) continue;
        n *=
            static_cast<std::size_t>(ref.z ? var.vdr.dim_sizes[d] : cdf.file->gdr().r_dim_sizes[d]);
    }
    return n;
}

bool name_in_use(const OpenCdf& cdf, const std::string& name, const store::Variable* except) {
    for (const bool z : {false, true}) {
        for (const auto& v : cdf.file->variables(z)) {
            if (&v != except && same_name(v.vdr.name, name)) return true;
        }
    }
    return false;
}

// Default pad of a variable whose file stores none: depends on the writing version.
bool old_default_pads(const store::CdfFile& file) {
    const format::Cdr& cdr = file.cdr();
    return !file.v3() || (cdr.version == 3 && cdr.release < 5);
}

struct NewVariable {
    const char* name = nullptr;
    long data_type = 0;
    long num_elems = 0;
    std::vector<long> dim_sizes;  // zVariables only
    long rec_vary = 0;
    std::vector<long> dim_varys;
};

// Creates an r- or zVariable after checking every argument; it becomes current.
CDFstatus create_variable(OpenCdf& cdf, bool z, const NewVariable& def, long* number) {
    CDFGATE_TRY(check_writable(cdf));
    if (!encoding::is_known_type(def.data_type)) return BAD_DATA_TYPE;
    if (!cdf.file->v3() && encoding::is_v3_only_type(def.data_type)) return BAD_DATA_TYPE;
    if (def.num_elems < 1 || def.num_elems > INT32_MAX ||
        (!encoding::is_char_type(def.data_type) && def.num_elems != 1)) {
        return BAD_NUM_ELEMS;
    }
    store::Variable var;
    var.vdr.z = z;
    for (std::size_t d = 0; d < def.dim_varys.size(); ++d) {
        if (z) {
            if (def.dim_sizes[d] < 1 || def.dim_sizes[d] > INT32_MAX) return BAD_DIM_SIZE;
            var.vdr.dim_sizes.push_back(static_cast<std::int32_t>(def.dim_sizes[d]));
        }
        var.vdr.dim_varys.push_back(def.dim_varys[d] != 0 ? -1 : 0);
    }
    std::string stored_name;
    const Status named = prepare_name(def.name, cdf.file->layout().name_size(), BAD_VAR_NAME,
                                      VAR_NAME_TRUNC, stored_name);
    CDFGATE_TRY(named);
    if (name_in_use(cdf, stored_name, nullptr)) return VAR_EXISTS;

    var.vdr.name = stored_name;
    var.vdr.data_type = static_cast<std::int32_t>(def.data_type);
    var.vdr.num_elems = static_cast<std::int32_t>(def.num_elems);
    var.vdr.flags = format::kVdrPadPresent | (def.rec_vary != 0 ? format::kVdrRecVary : 0);
    const auto pad = encoding::default_pad(def.data_type, def.num_elems, !cdf.file->v3());
    var.vdr.pad = stored_form(
        cdf, def.data_type, pad.data(),
        encoding::is_char_type(def.data_type) ? static_cast<std::size_t>(def.num_elems) : 1);
    CDFGATE_TRY(cdf.file->add_variable(std::move(var)));

    const VarRef ref{z, cdf.file->variables(z).size() - 1};
    cdf.selections(z).emplace_back();
    VarSelection& sel = cdf.selections(z).back();
    const Shape shape = variable_shape(cdf, ref);
    for (std::size_t d = 0; d < shape.sizes.size(); ++d) {
        sel.counts[d] = shape.sizes[d];
        sel.intervals[d] = 1;
    }
    if (z) {
        cdf.cur_zvar = zvar_number(cdf, ref);
        *number = *cdf.cur_zvar;
    } else {
        cdf.cur_rvar = static_cast<long>(ref.index);
        *number = *cdf.cur_rvar;
    }
    return named.code;
}

CDFstatus create_var(Call& call, OpenCdf& cdf) {
    NewVariable def;
    def.name = call.args.next<char>();
    def.data_type = call.args.next_long();
    def.num_elems = call.args.next_long();
    const long num_dims = call.args.next_long();
    // Out-of-range counts are refused below, before the arrays are read.
    const std::size_t n =
        num_dims < 0 || num_dims > CDF_MAX_DIMS ? 0 : static_cast<std::size_t>(num_dims);
    const long* const dim_sizes = call.args.next_array<long>(n);
    def.rec_vary = call.args.next_long();
    const long* const dim_varys = call.args.next_array<long>(n);
    long* const number = call.args.next<long>();
    if (num_dims < 0 || num_dims > CDF_MAX_DIMS) {
        // The earlier checks come first.
        if (!encoding::is_known_type(def.data_type)) return BAD_DATA_TYPE;
        return BAD_NUM_DIMS;
    }
    def.dim_sizes.assign(dim_sizes, dim_sizes + num_dims);
    def.dim_varys.assign(dim_varys, dim_varys + num_dims);
    return create_variable(cdf, true, def, number);
}

CDFstatus create_rvar(Call& call, OpenCdf& cdf) {
    NewVariable def;
    def.name = call.args.next<char>();
    def.data_type = call.args.next_long();
    def.num_elems = call.args.next_long();
    def.rec_vary = call.args.next_long();
    const std::size_t n = cdf.file->gdr().r_dim_sizes.size();
    const long* const dim_varys = call.args.next_array<long>(n);
    long* const number = call.args.next<long>();
    def.dim_varys.assign(dim_varys, dim_varys + n);
    return create_variable(cdf, false, def, number);
}

CDFstatus delete_var(Current& cur) {
    OpenCdf& cdf = cur.cdf;
    CDFGATE_TRY(check_writable(cdf));
    if (!cdf.file->single_file()) return UNSUPPORTED_OPERATION;
    CDFGATE_TRY(cdf.file->delete_variable(cur.ref.z, cur.ref.index));
    auto& sels = cdf.selections(cur.ref.z);
    sels.erase(sels.begin() + static_cast<std::ptrdiff_t>(cur.ref.index));
    cdf.cur_zvar.reset();
    return CDF_OK;
}

CDFstatus rename_var(Call& call, Current& cur) {
    const char* const name = call.args.next<char>();
    CDFGATE_TRY(check_writable(cur.cdf));
    std::string stored_name;
    const Status named = prepare_name(name, cur.cdf.file->layout().name_size(), BAD_VAR_NAME,
                                      VAR_NAME_TRUNC, stored_name);
    CDFGATE_TRY(named);
    if (name_in_use(cur.cdf, stored_name, &cur.var)) return VAR_EXISTS;
    cur.var.vdr.name = stored_name;
    cur.cdf.file->touch();
    return named.code;
}

CDFstatus get_pad(Call& call, Current& cur) {
    void* const out = call.args.next_pointer();
    const format::Vdr& vdr = cur.var.vdr;
    if (!encoding::is_known_type(vdr.data_type)) return BAD_DATA_TYPE;
    if (out == nullptr) return BAD_ARGUMENT;
    if (vdr.num_elems < 1) return cur.cdf.file->corrupted_status();  // unvalidated file
    const std::size_t count =
        encoding::is_char_type(vdr.data_type) ? static_cast<std::size_t>(vdr.num_elems) : 1;
    if (cur.var.has_pad()) {
        copy_out(cur.cdf, vdr.data_type, vdr.pad.data(), count, out);
        return CDF_OK;
    }
    // One element of the default in host form: for characters a single blank in the
    // first byte, the caller's other bytes left as they were.
    const auto pad = encoding::default_pad(vdr.data_type, 1, old_default_pads(*cur.cdf.file));
    std::memcpy(out, pad.data(), pad.size());
    return NO_PADVALUE_SPECIFIED;
}

CDFstatus put_pad(Call& call, Current& cur) {
    const void* const in = call.args.next_pointer();
    CDFGATE_TRY(check_writable(cur.cdf));
    format::Vdr& vdr = cur.var.vdr;
    if (!encoding::is_known_type(vdr.data_type)) return BAD_DATA_TYPE;
    if (in == nullptr) return BAD_ARGUMENT;
    if (vdr.num_elems < 1) return cur.cdf.file->corrupted_status();  // unvalidated file
    const std::size_t count =
        encoding::is_char_type(vdr.data_type) ? static_cast<std::size_t>(vdr.num_elems) : 1;
    vdr.pad = stored_form(cur.cdf, vdr.data_type, in, count);
    vdr.flags |= format::kVdrPadPresent;
    cur.cdf.file->refit(cur.var);
    return CDF_OK;
}

CDFstatus get_var_compression(Call& call, Current& cur) {
    long* const type = call.args.next<long>();
    long* const parms = call.args.next<long>();
    long* const pct = call.args.next<long>();
    if (!cur.var.compressed()) {
        *type = NO_COMPRESSION;
        *pct = 100;
        return CDF_OK;
    }
    *type = cur.var.cpr->c_type;
    parms[0] = cur.var.cpr->parms.empty() ? 0 : cur.var.cpr->parms[0];
    // Stored bytes of every block in the file (a CVVR's slack included) over the
    // bytes of its records, rounded half up; the block being written counts once
    // it is stored.
    const format::Layout layout = cur.cdf.file->layout();
    const auto vvr_head = static_cast<std::int64_t>(layout.header_size());
    const auto cvvr_head =
        static_cast<std::int64_t>(layout.header_size() + 4 + layout.offset_size());
    std::int64_t packed = 0, records = 0;
    CDFGATE_TRY(store::walk_index(*cur.cdf.file, cur.var, [&](const store::IndexSlot& s) -> Status {
        packed += s.size - (s.type == format::kCvvr ? cvvr_head : vvr_head);
        records += static_cast<std::int64_t>(s.last) - s.first + 1;
        return kOk;
    }));
    const auto raw = records * static_cast<std::int64_t>(record_bytes(cur.cdf, cur.ref));
    *pct = raw > 0 ? static_cast<long>((200 * packed + raw) / (2 * raw)) : 0;
    return CDF_OK;
}

CDFstatus put_var_compression(Call& call, Current& cur) {
    const long type = call.args.next_long();
    const long* const parms = call.args.next<long>();
    CDFGATE_TRY(check_writable(cur.cdf));
    format::Cpr cpr;
    if (type != NO_COMPRESSION) {
        const auto method = codec::method_of_type(static_cast<int>(type));
        if (!method || type > INT32_MAX) return UNKNOWN_COMPRESSION;
        const long parm = parms ? parms[0] : 0;
        if (parm < 0 || parm > 9 || !codec::valid_parameter(*method, static_cast<int>(parm))) {
            return BAD_COMPRESSION_PARM;
        }
        if (!cur.cdf.file->single_file()) return CANNOT_COMPRESS;
        cpr.c_type = static_cast<std::int32_t>(type);
        cpr.parms = {static_cast<std::int32_t>(parm)};
    }
    // Only before the first record is written or allocated.
    const format::Vdr& vdr = cur.var.vdr;
    if (vdr.max_rec >= 0 || vdr.vxr_head != 0) return CANNOT_COMPRESS;
    cur.cdf.file->set_compression(cur.var, cpr);
    cur.var.reserve_percent = 0;
    // The blocking factor is fixed at the first write; one set already is kept.
    const auto bytes = static_cast<long>(std::max<std::size_t>(record_bytes(cur.cdf, cur.ref), 1));
    if (type != NO_COMPRESSION && vdr.blocking_factor > 0 && vdr.blocking_factor < 65536 / bytes) {
        return BLOCKINGFACTOR_TOO_SMALL;
    }
    return CDF_OK;
}

CDFstatus put_blocking_factor(Call& call, Current& cur) {
    const long factor = call.args.next_long();
    CDFGATE_TRY(check_writable(cur.cdf));
    if (factor < 0 || factor > INT32_MAX) return BAD_BLOCKING_FACTOR;
    if (!cur.var.rec_vary()) {
        cur.var.vdr.blocking_factor = 1;
        cur.cdf.file->touch();
        return FORCED_PARAMETER;
    }
    if (cur.var.compressed()) {
        // Blocks of a compressed variable keep the factor they were written with.
        if (cur.var.vdr.max_rec >= 0) return CANNOT_CHANGE;
        cur.var.vdr.blocking_factor = static_cast<std::int32_t>(factor);
        cur.cdf.file->touch();
        const auto bytes =
            static_cast<long>(std::max<std::size_t>(record_bytes(cur.cdf, cur.ref), 1));
        return factor > 0 && factor < 65536 / bytes ? BLOCKINGFACTOR_TOO_SMALL2 : CDF_OK;
    }
    cur.var.vdr.blocking_factor = static_cast<std::int32_t>(factor);
    cur.cdf.file->touch();
    return CDF_OK;
}

CDFstatus put_sparse(Call& call, Current& cur) {
    const long mode = call.args.next_long();
    CDFGATE_TRY(check_writable(cur.cdf));
    if (cur.var.vdr.max_rec >= 0) return CANNOT_SPARSERECORDS;
    if (mode != NO_SPARSERECORDS && mode != PAD_SPARSERECORDS && mode != PREV_SPARSERECORDS) {
        return UNKNOWN_SPARSENESS;
    }
    // Every record of a multi-file CDF's variable is in its file.
    if (!cur.cdf.file->single_file() && mode != NO_SPARSERECORDS) return CANNOT_SPARSERECORDS;
    cur.var.vdr.s_records = static_cast<std::int32_t>(mode);
    cur.cdf.file->touch();
    return CDF_OK;
}

CDFstatus put_long_array(Call& call, const DimList<long>& values) {
    long* const out = call.args.next_array<long>(values.size());
    if (!values.empty()) std::copy(values.begin(), values.end(), out);
    return CDF_OK;
}

CDFstatus handle_get(long item, Call& call, Current& cur) {
    const format::Vdr& vdr = cur.var.vdr;
    switch (item) {
        case zVAR_NAME_:
            copy_name(vdr.name, call.args.next<char>());
            return CDF_OK;
        case zVAR_DATATYPE_:
            return put_long(call, vdr.data_type);
        case zVAR_NUMELEMS_:
            return put_long(call, vdr.num_elems);
        case zVAR_NUMDIMS_:
            return put_long(call, static_cast<long>(variable_shape(cur.cdf, cur.ref).sizes.size()));
        case zVAR_DIMSIZES_:
            return put_long_array(call, variable_shape(cur.cdf, cur.ref).sizes);
        case zVAR_DIMVARYS_:
            return put_long_array(call, variable_shape(cur.cdf, cur.ref).varys);
        case zVAR_RECVARY_:
            return put_long(call, cur.var.rec_vary() ? VARY : NOVARY);
        case zVAR_MAXREC_:
            return put_long(call, vdr.max_rec);
        case zVAR_NUMRECS_: {
            std::int64_t count = 0;
            CDFGATE_TRY(store::count_records(*cur.cdf.file, cur.var, count));
            return put_long(call, static_cast<long>(count));
        }
        case zVAR_NUMallocRECS_:
        case zVAR_MAXallocREC_: {
            std::int64_t count = 0, max = -1;
            CDFGATE_TRY(store::allocated_records(*cur.cdf.file, cur.var, count, max));
            return put_long(call, static_cast<long>(item == zVAR_NUMallocRECS_ ? count : max));
        }
        case zVAR_BLOCKINGFACTOR_:
            return put_long(call, vdr.blocking_factor);
        case zVAR_SPARSERECORDS_:
            return put_long(call, vdr.s_records);
        case zVAR_COMPRESSION_:
            return get_var_compression(call, cur);
        case zVAR_PADVALUE_:
            return get_pad(call, cur);
        default:
            return kNotHandled;
    }
}

CDFstatus handle_put(long item, Call& call, Current& cur) {
    switch (item) {
        case zVAR_NAME_:
            return rename_var(call, cur);
        case zVAR_PADVALUE_:
            return put_pad(call, cur);
        case zVAR_BLOCKINGFACTOR_:
            return put_blocking_factor(call, cur);
        case zVAR_SPARSERECORDS_:
            return put_sparse(call, cur);
        case zVAR_COMPRESSION_:
            return put_var_compression(call, cur);
        default:
            return kNotHandled;
    }
}

// SELECT_ of the record and dimension selections; checked before they are kept.
CDFstatus select_in_var(long item, Call& call, Current& cur) {
    VarSelection& sel = selection(cur.cdf, cur.ref);
    const Shape shape = variable_shape(cur.cdf, cur.ref);
    const std::size_t n = shape.sizes.size();
    switch (item) {
        case zVAR_RECNUMBER_: {
            const long v = call.args.next_long();
            if (v < 0) return BAD_REC_NUM;
            sel.rec_number = v;
            return CDF_OK;
        }
        case zVAR_RECCOUNT_: {
            const long v = call.args.next_long();
            if (v < 1) return BAD_REC_COUNT;
            sel.rec_count = v;
            return CDF_OK;
        }
        case zVAR_RECINTERVAL_: {
            const long v = call.args.next_long();
            if (v < 1) return BAD_REC_INTERVAL;
            sel.rec_interval = v;
            return CDF_OK;
        }
        case zVAR_DIMINDICES_: {
            const long* const v = call.args.next_array<long>(n);
            for (std::size_t d = 0; d < n; ++d) {
                if (v[d] < 0 || v[d] >= shape.sizes[d]) return BAD_DIM_INDEX;
            }
            std::copy(v, v + n, sel.indices.begin());
            return CDF_OK;
        }
        case zVAR_DIMCOUNTS_: {
            const long* const v = call.args.next_array<long>(n);
            for (std::size_t d = 0; d < n; ++d) {
                if (v[d] < 1) return BAD_DIM_COUNT;
            }
            std::copy(v, v + n, sel.counts.begin());
            return CDF_OK;
        }
        case zVAR_DIMINTERVALS_: {
            const long* const v = call.args.next_array<long>(n);
            for (std::size_t d = 0; d < n; ++d) {
                if (v[d] < 1) return BAD_DIM_INTERVAL;
            }
            std::copy(v, v + n, sel.intervals.begin());
            return CDF_OK;
        }
        case zVAR_RESERVEPERCENT_: {
            const long v = call.args.next_long();
            if (v < 0) return BAD_COMPRESSION_PARM;
            if (!cur.var.compressed()) return NA_FOR_VARIABLE;
            cur.var.reserve_percent = v;
            return CDF_OK;
        }
        case zVAR_CACHESIZE_: {
            const long v = call.args.next_long();
            if (cur.cdf.file->single_file()) return SINGLE_FILE_FORMAT;
            if (v < 0) return BAD_CACHE_SIZE;
            sel.cache_size = v;
            return CDF_OK;
        }
        default:
            return kNotHandled;
    }
}

CDFstatus confirm_in_var(long item, Call& call, Current& cur) {
    const VarSelection& sel = selection(cur.cdf, cur.ref);
    const std::size_t n = variable_shape(cur.cdf, cur.ref).sizes.size();
    const auto put_dims = [&](const std::array<long, CDF_MAX_DIMS>& values) {
        long* const out = call.args.next_array<long>(n);
        std::copy(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(n), out);
        return CDF_OK;
    };
    switch (item) {
        case zVAR_RECNUMBER_:
            return put_long(call, sel.rec_number);
        case zVAR_RECCOUNT_:
            return put_long(call, sel.rec_count);
        case zVAR_RECINTERVAL_:
            return put_long(call, sel.rec_interval);
        case zVAR_DIMINDICES_:
            return put_dims(sel.indices);
        case zVAR_DIMCOUNTS_:
            return put_dims(sel.counts);
        case zVAR_DIMINTERVALS_:
            return put_dims(sel.intervals);
        case zVAR_PADVALUE_:
            return cur.var.has_pad() ? CDF_OK : NO_PADVALUE_SPECIFIED;
        case zVAR_RESERVEPERCENT_: {
            long* const out = call.args.next<long>();
            if (!cur.var.compressed()) {
                *out = 0;
                return NA_FOR_VARIABLE;
            }
            *out = static_cast<long>(cur.var.reserve_percent);
            return CDF_OK;
        }
        case zVAR_CACHESIZE_: {
            long* const out = call.args.next<long>();
            if (cur.cdf.file->single_file()) return SINGLE_FILE_FORMAT;
            *out = sel.cache_size;
            return CDF_OK;
        }
        default:
            return kNotHandled;
    }
}

std::optional<long> find_var(const OpenCdf& cdf, const char* name) {
    if (name == nullptr) return std::nullopt;
    for (std::size_t i = 0; i < zvar_count(cdf); ++i) {
        const auto ref = zvar_ref(cdf, static_cast<long>(i));
        if (same_name(cdf.file->variables(ref->z)[ref->index].vdr.name, name)) {
            return static_cast<long>(i);
        }
    }
    return std::nullopt;
}

bool needs_var(long op, long item) {
    switch (op) {
        case GET_:
            return item == zVAR_NAME_ || item == zVAR_DATATYPE_ || item == zVAR_NUMELEMS_ ||
                   item == zVAR_NUMDIMS_ || item == zVAR_DIMSIZES_ || item == zVAR_DIMVARYS_ ||
                   item == zVAR_RECVARY_ || item == zVAR_MAXREC_ || item == zVAR_NUMRECS_ ||
                   item == zVAR_NUMallocRECS_ || item == zVAR_MAXallocREC_ ||
                   item == zVAR_BLOCKINGFACTOR_ || item == zVAR_SPARSERECORDS_ ||
                   item == zVAR_COMPRESSION_ || item == zVAR_PADVALUE_;
        case PUT_:
            return item == zVAR_NAME_ || item == zVAR_PADVALUE_ || item == zVAR_BLOCKINGFACTOR_ ||
                   item == zVAR_SPARSERECORDS_ || item == zVAR_COMPRESSION_;
        case SELECT_:
            return item == zVAR_RECNUMBER_ || item == zVAR_RECCOUNT_ || item == zVAR_RECINTERVAL_ ||
                   item == zVAR_DIMINDICES_ || item == zVAR_DIMCOUNTS_ ||
                   item == zVAR_DIMINTERVALS_ || item == zVAR_RESERVEPERCENT_ ||
                   item == zVAR_CACHESIZE_;
        case CONFIRM_:
            return item == zVAR_RECNUMBER_ || item == zVAR_RECCOUNT_ || item == zVAR_RECINTERVAL_ ||
                   item == zVAR_DIMINDICES_ || item == zVAR_DIMCOUNTS_ ||
                   item == zVAR_DIMINTERVALS_ || item == zVAR_PADVALUE_ ||
                   item == zVAR_RESERVEPERCENT_ || item == zVAR_CACHESIZE_;
        case DELETE_:
        case CLOSE_:
            return item == zVAR_;
        default:
            return false;
    }
}

CDFstatus handle_without_current(long op, long item, Call& call, OpenCdf& cdf) {
    if (op == SELECT_ && item == zVAR_NAME_) {
        const auto number = find_var(cdf, call.args.next<char>());
        if (!number) return NO_SUCH_VAR;
        cdf.cur_zvar = *number;
        return CDF_OK;
    }
    if (op == SELECT_ && item == zVAR_) {
        const long number = call.args.next_long();
        if (number < 0) return BAD_VAR_NUM;
        if (!zvar_ref(cdf, number)) return NO_SUCH_VAR;
        cdf.cur_zvar = number;
        return CDF_OK;
    }
    if (op == SELECT_ && item == zVARs_RECNUMBER_) {
        const long number = call.args.next_long();
        if (number < 0) return BAD_REC_NUM;
        for (const bool z : {false, true}) {
            for (auto& sel : cdf.selections(z)) sel.rec_number = number;
        }
        return CDF_OK;
    }
    if (op == CONFIRM_ && item == zVAR_) {
        if (!cdf.cur_zvar) return NO_VAR_SELECTED;
        return put_long(call, *cdf.cur_zvar);
    }
    if (op == CREATE_ && item == zVAR_) return create_var(call, cdf);
    if (op == CONFIRM_ && item == zVAR_EXISTENCE_) {
        return find_var(cdf, call.args.next<char>()) ? CDF_OK : NO_SUCH_VAR;
    }
    if (op == GET_ && item == zVAR_NUMBER_) {
        const char* const name = call.args.next<char>();
        long* const out = call.args.next<long>();
        const auto number = find_var(cdf, name);
        if (!number) return NO_SUCH_VAR;
        *out = *number;
        return CDF_OK;
    }
    return kNotHandled;
}

bool is_without_current(long op, long item) {
    return (op == SELECT_ && (item == zVAR_ || item == zVAR_NAME_ || item == zVARs_RECNUMBER_)) ||
           (op == CONFIRM_ && (item == zVAR_ || item == zVAR_EXISTENCE_)) ||
           (op == CREATE_ && item == zVAR_) || (op == GET_ && item == zVAR_NUMBER_);
}

// The zVAR_ item that answers an rVAR_ item of an rVariable in zMode 0.
long z_item_of(long op, long item) {
    switch (item) {
        case rVAR_NAME_:
            return zVAR_NAME_;
        case rVAR_DATATYPE_:
            return zVAR_DATATYPE_;
        case rVAR_NUMELEMS_:
            return zVAR_NUMELEMS_;
        case rVAR_RECVARY_:
            return zVAR_RECVARY_;
        case rVAR_DIMVARYS_:
            return zVAR_DIMVARYS_;
        case rVAR_MAXREC_:
            return zVAR_MAXREC_;
        case rVAR_PADVALUE_:
            return zVAR_PADVALUE_;
        case rVAR_BLOCKINGFACTOR_:
            return zVAR_BLOCKINGFACTOR_;
        case rVAR_SPARSERECORDS_:
            return zVAR_SPARSERECORDS_;
        case rVAR_COMPRESSION_:
            return zVAR_COMPRESSION_;
        case rVAR_NUMRECS_:
            return op == GET_ ? zVAR_NUMRECS_ : 0;
        case rVAR_NUMallocRECS_:
            return op == GET_ ? zVAR_NUMallocRECS_ : 0;
        case rVAR_MAXallocREC_:
            return op == GET_ ? zVAR_MAXallocREC_ : 0;
        default:
            return 0;
    }
}

bool is_rvar_item(long op, long item) {
    if (item == rVAR_) return op == CREATE_ || op == SELECT_ || op == CONFIRM_;
    if (item == rVAR_NAME_ && op == SELECT_) return true;
    const long z = z_item_of(op, item);
    return z != 0 && needs_var(op, z);
}

CDFstatus handle_rvar_item(long op, long item, Call& call, OpenCdf& cdf) {
    if (cdf.zmode != zMODEoff) return ILLEGAL_IN_zMODE;
    const auto& rvars = cdf.file->variables(false);
    if (op == CREATE_) return create_rvar(call, cdf);
    if (op == SELECT_ && item == rVAR_) {
        const long number = call.args.next_long();
        if (number < 0) return BAD_VAR_NUM;
        if (static_cast<std::size_t>(number) >= rvars.size()) return NO_SUCH_VAR;
        cdf.cur_rvar = number;
        return CDF_OK;
    }
    if (op == SELECT_ && item == rVAR_NAME_) {
        const char* const name = call.args.next<char>();
        for (std::size_t i = 0; name && i < rvars.size(); ++i) {
            if (same_name(rvars[i].vdr.name, name)) {
                cdf.cur_rvar = static_cast<long>(i);
                return CDF_OK;
            }
        }
        return NO_SUCH_VAR;
    }
    if (op == CONFIRM_ && item == rVAR_) {
        if (!cdf.cur_rvar) return NO_VAR_SELECTED;
        return put_long(call, *cdf.cur_rvar);
    }
    if (!cdf.cur_rvar || static_cast<std::size_t>(*cdf.cur_rvar) >= rvars.size()) {
        return NO_VAR_SELECTED;
    }
    const VarRef ref{false, static_cast<std::size_t>(*cdf.cur_rvar)};
    Current cur{cdf, ref, variable(cdf, ref)};
    const long z_item = z_item_of(op, item);
    return op == GET_ ? handle_get(z_item, call, cur) : handle_put(z_item, call, cur);
}

}  // namespace

CDFstatus handle_variable_item(long op, long item, Call& call) {
    if (is_rvar_item(op, item)) {
        OpenCdf* const cdf = call.cdf();
        if (cdf == nullptr) return NO_CDF_SELECTED;
        return handle_rvar_item(op, item, call, *cdf);
    }
    const bool without = is_without_current(op, item);
    if (!without && !needs_var(op, item)) return kNotHandled;
    OpenCdf* const cdf = call.cdf();
    if (cdf == nullptr) return NO_CDF_SELECTED;
    if (without) return handle_without_current(op, item, call, *cdf);
    std::optional<Current> cur;
    if (const CDFstatus s = current_var(*cdf, cur); s != CDF_OK) return s;
    switch (op) {
        case GET_:
            return handle_get(item, call, *cur);
        case PUT_:
            return handle_put(item, call, *cur);
        case SELECT_:
            return select_in_var(item, call, *cur);
        case CONFIRM_:
            return confirm_in_var(item, call, *cur);
        case DELETE_:
            return delete_var(*cur);
        default:  // CLOSE_: a multi-file CDF's variable file, if it is open
            if (cdf->file->single_file()) return SINGLE_FILE_FORMAT;
            return store::close_variable_file(cur->var).code;
    }
}

}  // namespace cdfgate::engine::api
