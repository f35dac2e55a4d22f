// gENTRY_, rENTRY_ and zENTRY_ items: entry numbers, existence, data type,
// element count and value; writing and deleting entries.
#include "api/call.h"
#include "api/names.h"
#include "api/values.h"
#include "api/view.h"
#include "encoding/data_types.h"

namespace cdfgate::engine::api {
namespace {

enum class Kind { g, r, z };

struct ItemInfo {
    Kind kind;
    long what;  // the g form of the item: gENTRY_, gENTRY_DATA_, ...
};

std::optional<ItemInfo> classify(long item) {
    constexpr long kSpan = zENTRY_ - rENTRY_;  // 7 items per kind
    static_assert(rENTRY_ - gENTRY_ == 6 && kSpan == 7);
    if (item >= gENTRY_ && item <= gENTRY_DATA_) return ItemInfo{Kind::g, item};
    if (item >= rENTRY_ && item <= rENTRY_DATA_) {
        if (item == rENTRY_NAME_) return ItemInfo{Kind::r, -1};
        const long offset = item - rENTRY_;
        return ItemInfo{Kind::r, gENTRY_ + (offset == 0 ? 0 : offset - 1)};
    }
    if (item >= zENTRY_ && item <= zENTRY_DATA_) {
        if (item == zENTRY_NAME_) return ItemInfo{Kind::z, -1};
        const long offset = item - zENTRY_;
        return ItemInfo{Kind::z, gENTRY_ + (offset == 0 ? 0 : offset - 1)};
    }
    if (item == CURgENTRY_EXISTENCE_) return ItemInfo{Kind::g, CURgENTRY_EXISTENCE_};
    if (item == CURrENTRY_EXISTENCE_) return ItemInfo{Kind::r, CURgENTRY_EXISTENCE_};
    if (item == CURzENTRY_EXISTENCE_) return ItemInfo{Kind::z, CURgENTRY_EXISTENCE_};
    return std::nullopt;
}

bool valid_for(long op, long what) {
    switch (op) {
        case SELECT_:
            return what == gENTRY_ || what == -1;
        case CONFIRM_:
            return what == gENTRY_ || what == gENTRY_EXISTENCE_ || what == CURgENTRY_EXISTENCE_;
        case GET_:
            return what == gENTRY_DATATYPE_ || what == gENTRY_NUMELEMS_ || what == gENTRY_DATA_;
        case PUT_:
            return what == gENTRY_DATA_;
        case DELETE_:
            return what == gENTRY_;
        default:
            return false;
    }
}

std::optional<long>& selected(OpenCdf& cdf, Kind kind) {
    return kind == Kind::g ? cdf.cur_gentry : kind == Kind::r ? cdf.cur_rentry : cdf.cur_zentry;
}

// Where an entry number of a kind lives for the given attribute.
struct Target {
    store::Attribute* attr = nullptr;
    std::size_t attr_index = 0;
    bool z = false;
    std::int32_t number = 0;
};

CDFstatus resolve(OpenCdf& cdf, Kind kind, long number, Target& out) {
    if (!cdf.cur_attr || static_cast<std::size_t>(*cdf.cur_attr) >= cdf.file->attributes().size()) {
        return NO_ATTR_SELECTED;
    }
    out.attr_index = static_cast<std::size_t>(*cdf.cur_attr);
    out.attr = &cdf.file->attributes()[out.attr_index];
    if ((kind == Kind::g) != out.attr->is_global()) return ILLEGAL_FOR_SCOPE;
    if (number < 0 || number > INT32_MAX) return BAD_ENTRY_NUM;
    if (kind == Kind::z) {
        const EntryRef ref = zentry_ref(cdf, number);
        out.z = ref.z;
        out.number = ref.number;
    } else {
        out.z = false;
        out.number = static_cast<std::int32_t>(number);
    }
    return CDF_OK;
}

CDFstatus current_target(OpenCdf& cdf, Kind kind, Target& out) {
    if (!cdf.cur_attr) return NO_ATTR_SELECTED;
    const auto& entry = selected(cdf, kind);
    if (!entry) return NO_ENTRY_SELECTED;
    return resolve(cdf, kind, *entry, out);
}

CDFstatus put_entry(Call& call, OpenCdf& cdf, const Target& t) {
    const long data_type = call.args.next_long();
    const long num_elems = call.args.next_long();
    const void* const value = call.args.next_pointer();
    CDFGATE_TRY(check_writable(cdf));
    if (!encoding::is_known_type(data_type) ||
        (!cdf.file->v3() && encoding::is_v3_only_type(data_type))) {
        return BAD_DATA_TYPE;
    }
    if (num_elems < 1 || num_elems > INT32_MAX) return BAD_NUM_ELEMS;
    if (value == nullptr) return BAD_ARGUMENT;
    std::vector<std::uint8_t> stored =
        stored_form(cdf, data_type, value, static_cast<std::size_t>(num_elems));
    return cdf.file
        ->put_entry(t.attr_index, t.z, t.number, static_cast<std::int32_t>(data_type),
                    static_cast<std::int32_t>(num_elems), std::move(stored))
        .code;
}

CDFstatus select_by_name(Call& call, OpenCdf& cdf, Kind kind) {
    const char* const name = call.args.next<char>();
    if (name == nullptr) return NO_SUCH_VAR;
    const bool z = kind == Kind::z;
    const std::size_t count = z ? zvar_count(cdf) : cdf.file->variables(false).size();
    for (std::size_t i = 0; i < count; ++i) {
        const auto ref =
            z ? zvar_ref(cdf, static_cast<long>(i)) : std::optional<VarRef>(VarRef{false, i});
        if (same_name(cdf.file->variables(ref->z)[ref->index].vdr.name, name)) {
            selected(cdf, kind) = static_cast<long>(i);
            return CDF_OK;
        }
    }
    return NO_SUCH_VAR;
}

CDFstatus handle(long op, const ItemInfo& info, Call& call, OpenCdf& cdf) {
    if (info.kind == Kind::r && cdf.zmode != zMODEoff) return ILLEGAL_IN_zMODE;
    std::optional<long>& entry = selected(cdf, info.kind);
    if (op == SELECT_) {
        if (info.what == -1) return select_by_name(call, cdf, info.kind);
        const long number = call.args.next_long();
        if (number < 0) return BAD_ENTRY_NUM;
        entry = number;
        return CDF_OK;
    }
    if (op == CONFIRM_ && info.what == gENTRY_) {
        if (!entry) return NO_ENTRY_SELECTED;
        return put_long(call, *entry);
    }
    Target t;
    if (op == CONFIRM_ && info.what == gENTRY_EXISTENCE_) {
        const long number = call.args.next_long();
        CDFGATE_TRY(resolve(cdf, info.kind, number, t));
        return t.attr->find_entry(t.z, t.number) ? CDF_OK : NO_SUCH_ENTRY;
    }
    CDFGATE_TRY(current_target(cdf, info.kind, t));
    if (op == PUT_) return put_entry(call, cdf, t);
    if (op == DELETE_) {
        CDFGATE_TRY(check_writable(cdf));
        return cdf.file->delete_entry(t.attr_index, t.z, t.number).code;
    }
    const store::Entry* const e = t.attr->find_entry(t.z, t.number);
    if (e == nullptr) return NO_SUCH_ENTRY;
    switch (info.what) {
        case CURgENTRY_EXISTENCE_:
            return CDF_OK;
        case gENTRY_DATATYPE_:
            return put_long(call, e->data_type);
        case gENTRY_NUMELEMS_:
            return put_long(call, e->num_elems);
        default:  // gENTRY_DATA_
            copy_out(cdf, e->data_type, e->value.data(), static_cast<std::size_t>(e->num_elems),
                     call.args.next<void>());
            return CDF_OK;
    }
}

}  // namespace

CDFstatus handle_entry_item(long op, long item, Call& call) {
    const auto info = classify(item);
    if (!info || !valid_for(op, info->what)) return kNotHandled;
    OpenCdf* const cdf = call.cdf();
    if (cdf == nullptr) return NO_CDF_SELECTED;
    return handle(op, *info, call, *cdf);
}

}  // namespace cdfgate::engine::api
