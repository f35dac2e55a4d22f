// Items that move variable values: zVAR_DATA_ and zVAR_HYPERDATA_ (GET_, PUT_)
// through the current variable's record and dimension selections, and the record
// allocation items zVAR_INITIALRECS_, zVAR_ALLOCATERECS_ and zVAR_ALLOCATEBLOCK_.
// DELETE_ zVAR_RECORDS_ removes a range of records.
#include "api/call.h"
#include "api/view.h"
#include "encoding/data_types.h"
#include "encoding/encodings.h"
#include "store/data_access.h"
#include "store/record_deletion.h"

namespace cdfgate::engine::api {
namespace {

struct Target {
    OpenCdf* cdf = nullptr;
    VarRef ref;
};

CDFstatus current_target(Call& call, Target& out) {
    out.cdf = call.cdf();
    if (out.cdf == nullptr) return NO_CDF_SELECTED;
    if (!out.cdf->cur_zvar) return NO_VAR_SELECTED;
    const auto ref = zvar_ref(*out.cdf, *out.cdf->cur_zvar);
    if (!ref) return NO_VAR_SELECTED;
    out.ref = *ref;
    return CDF_OK;
}

// The selections as a slab over every dimension of the variable. Dimensions that
// the view hides (zMode 2 shows an rVariable's varying dimensions only; see
// variable_shape) take their one stored element.
store::Hyperslab slab_of(const OpenCdf& cdf, VarRef ref, const store::Variable& var,
                         const VarSelection& sel, bool one_value) {
    store::Hyperslab slab;
    slab.rec_start = sel.rec_number;
    slab.rec_count = one_value ? 1 : sel.rec_count;
    slab.rec_interval = one_value ? 1 : sel.rec_interval;
    const bool hide_fixed = !ref.z && cdf.zmode == zMODEon2;
    const auto& varys = var.vdr.dim_varys;
    std::size_t shown = 0;
    for (std::size_t d = 0; d < varys.size() && d < store::kMaxDims; ++d) {
        slab.counts[d] = 1;
        slab.intervals[d] = 1;
        if (hide_fixed && varys[d] == 0) continue;
        slab.indices[d] = sel.indices[shown];
        if (!one_value) {
            slab.counts[d] = sel.counts[shown];
            slab.intervals[d] = sel.intervals[shown];
        }
        ++shown;
    }
    return slab;
}

CDFstatus get_data(Call& call, bool one_value) {
    void* const out = call.args.next_pointer();
    Target t;
    CDFGATE_TRY(current_target(call, t));
    if (out == nullptr) return BAD_ARGUMENT;
    store::Variable& var = variable(*t.cdf, t.ref);
    const store::Hyperslab slab = slab_of(*t.cdf, t.ref, var, selection(*t.cdf, t.ref), one_value);
    const Status status = store::read_slab(*t.cdf->file, var, slab, out);
    if (status.failed()) return status.code;
    if (t.cdf->decoding != HOST_DECODING) {
        store::DataShape shape;
        CDFGATE_TRY(store::data_shape(*t.cdf->file, var, shape));
        std::size_t values = static_cast<std::size_t>(slab.rec_count * shape.num_elems);
        for (std::size_t d = 0; d < shape.num_dims; ++d) {
            values *= static_cast<std::size_t>(slab.counts[d]);
        }
        encoding::encode_values(static_cast<std::uint8_t*>(out), values, shape.data_type,
                                t.cdf->decoding);
    }
    return status.code;
}

CDFstatus put_data(Call& call, bool one_value) {
    const void* const in = call.args.next_pointer();
    Target t;
    CDFGATE_TRY(current_target(call, t));
    CDFGATE_TRY(check_writable(*t.cdf));
    if (in == nullptr) return BAD_ARGUMENT;
    store::Variable& var = variable(*t.cdf, t.ref);
    const store::Hyperslab slab = slab_of(*t.cdf, t.ref, var, selection(*t.cdf, t.ref), one_value);
    return store::write_slab(*t.cdf->file, var, slab, in, t.cdf->neg_to_pos_fp0 == NEGtoPOSfp0on)
        .code;
}

CDFstatus put_initial_records(Call& call) {
    const long count = call.args.next_long();
    Target t;
    CDFGATE_TRY(current_target(call, t));
    CDFGATE_TRY(check_writable(*t.cdf));
    return store::write_initial_records(*t.cdf->file, variable(*t.cdf, t.ref), count).code;
}

CDFstatus put_allocation(Call& call, long first, long last) {
    Target t;
    CDFGATE_TRY(current_target(call, t));
    CDFGATE_TRY(check_writable(*t.cdf));
    return store::allocate_records(*t.cdf->file, variable(*t.cdf, t.ref), first, last).code;
}

CDFstatus delete_records(Call& call) {
    const long first = call.args.next_long();
    const long last = call.args.next_long();
    Target t;
    CDFGATE_TRY(current_target(call, t));
    if (first < 0 || last < first) return BAD_REC_NUM;
    CDFGATE_TRY(check_writable(*t.cdf));
    return store::delete_records(*t.cdf->file, variable(*t.cdf, t.ref), first, last).code;
}

}  // namespace

CDFstatus handle_variable_data_item(long op, long item, Call& call) {
    if (op == DELETE_ && item == zVAR_RECORDS_) return delete_records(call);
    if (op == GET_) {
        if (item == zVAR_DATA_) return get_data(call, true);
        if (item == zVAR_HYPERDATA_) return get_data(call, false);
    }
    if (op == PUT_) {
        switch (item) {
            case zVAR_DATA_:
                return put_data(call, true);
            case zVAR_HYPERDATA_:
                return put_data(call, false);
            case zVAR_INITIALRECS_:
                return put_initial_records(call);
            case zVAR_ALLOCATERECS_: {
                const long count = call.args.next_long();
                if (count < 1) return BAD_ALLOCATE_RECS;
                return put_allocation(call, 0, count - 1);
            }
            case zVAR_ALLOCATEBLOCK_: {
                const long first = call.args.next_long();
                const long last = call.args.next_long();
                return put_allocation(call, first, last);
            }
            default:
                break;
        }
    }
    return kNotHandled;
}

}  // namespace cdfgate::engine::api
