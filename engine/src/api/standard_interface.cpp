// The standard-interface functions the gateway calls, exported with C linkage.
// Each makes its CDF current and selects what the corresponding CDFlib calls
// would select.
#include <exception>

#include "api/library_state.h"
#include "api/names.h"
#include "api/view.h"
#include "cdf.h"

namespace cdfgate::engine::api {
namespace {

long entry_item(int kind, long g_item) {
    switch (kind) {
        case 1:
            return g_item;
        case 2:
            return g_item + (rENTRY_ - gENTRY_) + (g_item == gENTRY_ ? 0 : 1);
        default:
            return g_item + (zENTRY_ - gENTRY_) + (g_item == gENTRY_ ? 0 : 1);
    }
}

// Resolves kind 0 ("the kind that fits") and refuses kinds outside 0..3.
CDFstatus entry_kind(CDFid id, int grz, long attr_num, int& kind) {
    if (grz < 0 || grz > 3) return ILLEGAL_FOR_SCOPE;
    long scope = 0;
    const CDFstatus status =
        CDFlib(SELECT_, CDF_, id, ATTR_, attr_num, GET_, ATTR_SCOPE_, &scope, NULL_);
    if (status < CDF_WARN) return status;
    kind = grz != 0 ? grz : (scope == GLOBAL_SCOPE ? 1 : 3);
    return CDF_OK;
}

template <typename F>
auto guarded(F&& f, decltype(f()) on_error) noexcept -> decltype(f()) {
    try {
        return f();
    } catch (...) {
        return on_error;
    }
}

}  // namespace
}  // namespace cdfgate::engine::api

using cdfgate::engine::api::entry_item;
using cdfgate::engine::api::entry_kind;
using cdfgate::engine::api::guarded;

extern "C" CDFstatus CDFcreateCDF(char* CDFname, CDFid* id) {
    long no_dims[1] = {0};
    return CDFlib(CREATE_, CDF_, CDFname, 0L, no_dims, id, NULL_);
}

extern "C" long CDFgetVarNum(CDFid id, char* varName) {
    return guarded(
        [&]() -> long {
            namespace api = cdfgate::engine::api;
            const CDFstatus status = CDFlib(SELECT_, CDF_, id, NULL_);
            if (status < CDF_WARN) return status;
            api::OpenCdf* const current = api::library_state().current_cdf();
            if (current == nullptr) return NO_CDF_SELECTED;  // a null id selects none
            api::OpenCdf& cdf = *current;
            if (varName == nullptr) return NO_SUCH_VAR;
            // In zMode 0 an rVariable of that name wins; numbers count within a kind.
            if (cdf.zmode == zMODEoff) {
                const auto& rvars = cdf.file->variables(false);
                for (std::size_t i = 0; i < rvars.size(); ++i) {
                    if (api::same_name(rvars[i].vdr.name, varName)) return static_cast<long>(i);
                }
            }
            for (std::size_t i = 0; i < api::zvar_count(cdf); ++i) {
                const auto ref = api::zvar_ref(cdf, static_cast<long>(i));
                if (api::same_name(api::variable(cdf, *ref).vdr.name, varName)) {
                    return static_cast<long>(i);
                }
            }
            return NO_SUCH_VAR;
        },
        CDF_INTERNAL_ERROR);
}

extern "C" long CDFgetAttrNum(CDFid id, char* attrName) {
    long number = 0;
    const CDFstatus status =
        CDFlib(SELECT_, CDF_, id, GET_, ATTR_NUMBER_, attrName, &number, NULL_);
    return status < CDF_WARN ? status : number;
}

extern "C" CDFstatus CDFinquireAttr(CDFid id, long attrNum, char* attrName, long* attrScope,
                                    long* maxgEntry, long* maxrEntry, long* maxzEntry) {
    if (!attrName || !attrScope || !maxgEntry || !maxrEntry || !maxzEntry) return BAD_ARGUMENT;
    long scope = 0;
    char name[CDF_ATTR_NAME_LEN256 + 1];
    CDFstatus status = CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, GET_, ATTR_NAME_, name,
                              ATTR_SCOPE_, &scope, NULL_);
    if (status < CDF_WARN) return status;
    long max_g = -1, max_r = -1, max_z = -1;
    if (scope == GLOBAL_SCOPE) {
        status = CDFlib(GET_, ATTR_MAXgENTRY_, &max_g, NULL_);
    } else {
        long zmode = 0;
        status = CDFlib(CONFIRM_, CDF_zMODE_, &zmode, GET_, ATTR_MAXzENTRY_, &max_z, NULL_);
        if (status >= CDF_WARN && zmode == zMODEoff) {
            status = CDFlib(GET_, ATTR_MAXrENTRY_, &max_r, NULL_);
        }
    }
    if (status < CDF_WARN) return status;
    cdfgate::engine::api::copy_name(name, attrName);
    *attrScope = scope;
    *maxgEntry = max_g;
    *maxrEntry = max_r;
    *maxzEntry = max_z;
    return CDF_OK;
}

extern "C" CDFstatus CDFinquireAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum,
                                         long* dataType, long* numElems) {
    if (!dataType || !numElems) return BAD_ARGUMENT;
    int kind = 0;
    const CDFstatus status = entry_kind(id, grzEntry, attrNum, kind);
    if (status != CDF_OK) return status;
    long type = 0, count = 0;
    const CDFstatus got = CDFlib(SELECT_, entry_item(kind, gENTRY_), entryNum, GET_,
                                 entry_item(kind, gENTRY_DATATYPE_), &type,
                                 entry_item(kind, gENTRY_NUMELEMS_), &count, NULL_);
    if (got < CDF_WARN) return got;
    *dataType = type;
    *numElems = count;
    return got;
}

extern "C" CDFstatus CDFgetAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum,
                                     void* value) {
    int kind = 0;
    const CDFstatus status = entry_kind(id, grzEntry, attrNum, kind);
    if (status != CDF_OK) return status;
    return CDFlib(SELECT_, entry_item(kind, gENTRY_), entryNum, GET_,
                  entry_item(kind, gENTRY_DATA_), value, NULL_);
}

extern "C" CDFstatus CDFputAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum,
                                     long dataType, long numElems, void* value) {
    int kind = 0;
    const CDFstatus status = entry_kind(id, grzEntry, attrNum, kind);
    if (status != CDF_OK) return status;
    return CDFlib(SELECT_, entry_item(kind, gENTRY_), entryNum, PUT_,
                  entry_item(kind, gENTRY_DATA_), dataType, numElems, value, NULL_);
}

extern "C" CDFstatus CDFdeleteAttrEntry(CDFid id, int grzEntry, long attrNum, long entryNum) {
    int kind = 0;
    const CDFstatus status = entry_kind(id, grzEntry, attrNum, kind);
    if (status != CDF_OK) return status;
    return CDFlib(SELECT_, entry_item(kind, gENTRY_), entryNum, DELETE_, entry_item(kind, gENTRY_),
                  NULL_);
}

extern "C" CDFstatus CDFgetAttrMaxEntry(CDFid id, int grzEntry, long attrNum, long* maxEntry) {
    if (grzEntry < 1 || grzEntry > 3) return ILLEGAL_FOR_SCOPE;
    const long item = grzEntry == 1   ? ATTR_MAXgENTRY_
                      : grzEntry == 2 ? ATTR_MAXrENTRY_
                                      : ATTR_MAXzENTRY_;
    return CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, GET_, item, maxEntry, NULL_);
}

extern "C" CDFstatus CDFgetNumAttrEntries(CDFid id, int grzEntry, long attrNum, long* numEntries) {
    if (grzEntry < 1 || grzEntry > 3) return ILLEGAL_FOR_SCOPE;
    const long item = grzEntry == 1   ? ATTR_NUMgENTRIES_
                      : grzEntry == 2 ? ATTR_NUMrENTRIES_
                                      : ATTR_NUMzENTRIES_;
    return CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, GET_, item, numEntries, NULL_);
}

// Whole records move through the hyperslab items of the variable-data layer; the
// current variable and other selections are left as they were.
namespace {

CDFstatus record_data(CDFid id, int zVar, long varNum, long recNum, void* buffer, long op) {
    namespace api = cdfgate::engine::api;
    CDFstatus status = CDFlib(SELECT_, CDF_, id, NULL_);
    if (status < CDF_WARN) return status;
    api::OpenCdf* const current = api::library_state().current_cdf();
    if (current == nullptr) return NO_CDF_SELECTED;  // a null id selects none
    api::OpenCdf& cdf = *current;
    const long saved_mode = cdf.zmode;
    long view_number = varNum;
    if (zVar == 0 && saved_mode == zMODEoff) {
        // rVariable varNum: seen through zMode 1, which keeps every dimension and
        // numbers the rVariables first.
        if (varNum < 0 || static_cast<std::size_t>(varNum) >= cdf.file->variables(false).size()) {
            return NO_SUCH_VAR;
        }
        cdf.zmode = zMODEon1;
    }
    const auto ref = api::zvar_ref(cdf, view_number);
    if (varNum < 0 || !ref) {
        cdf.zmode = saved_mode;
        return NO_SUCH_VAR;
    }
    if (recNum < 0) {
        cdf.zmode = saved_mode;
        return NO_SUCH_RECORD;
    }
    const auto saved_var = cdf.cur_zvar;
    const api::VarSelection saved = api::selection(cdf, *ref);
    const api::Shape shape = api::variable_shape(cdf, *ref);
    long zeros[CDF_MAX_DIMS] = {0};
    long ones[CDF_MAX_DIMS] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    long sizes[CDF_MAX_DIMS] = {0};
    for (std::size_t d = 0; d < shape.sizes.size(); ++d) sizes[d] = shape.sizes[d];
    status = CDFlib(SELECT_, zVAR_, view_number, zVAR_RECNUMBER_, recNum, zVAR_RECCOUNT_, 1L,
                    zVAR_RECINTERVAL_, 1L, zVAR_DIMINDICES_, zeros, zVAR_DIMCOUNTS_, sizes,
                    zVAR_DIMINTERVALS_, ones, op, zVAR_HYPERDATA_, buffer, NULL_);
    api::selection(cdf, *ref) = saved;
    for (bool z : {false, true}) {
        for (auto& s : cdf.selections(z)) s.rec_number = recNum;
    }
    cdf.zmode = saved_mode;
    cdf.cur_zvar = saved_var;
    return status;
}

}  // namespace

extern "C" CDFstatus CDFgetVarRecordData(CDFid id, int zVar, long varNum, long recNum,
                                         void* buffer) {
    return guarded([&] { return record_data(id, zVar, varNum, recNum, buffer, GET_); },
                   CDF_INTERNAL_ERROR);
}

extern "C" CDFstatus CDFputVarRecordData(CDFid id, int zVar, long varNum, long recNum,
                                         void* buffer) {
    return guarded([&] { return record_data(id, zVar, varNum, recNum, buffer, PUT_); },
                   CDF_INTERNAL_ERROR);
}
