// ATTR_ items: select, create, delete, rename, scope, inquire entry counts.
#include <algorithm>

#include "api/call.h"
#include "api/names.h"
#include "api/view.h"

namespace cdfgate::engine::api {
namespace {

std::optional<long> find_attr(const OpenCdf& cdf, const char* name) {
    if (name == nullptr) return std::nullopt;
    const auto& attrs = cdf.file->attributes();
    for (std::size_t i = 0; i < attrs.size(); ++i) {
        if (same_name(attrs[i].name, name)) return static_cast<long>(i);
    }
    return std::nullopt;
}

bool name_in_use(const OpenCdf& cdf, const std::string& name, const store::Attribute* except) {
    return std::any_of(
        cdf.file->attributes().begin(), cdf.file->attributes().end(),
        [&](const store::Attribute& a) { return &a != except && same_name(a.name, name); });
}

CDFstatus create_attr(Call& call, OpenCdf& cdf) {
    const char* const name = call.args.next<char>();
    const long scope = call.args.next_long();
    long* const number = call.args.next<long>();
    CDFGATE_TRY(check_writable(cdf));
    std::string stored_name;
    const Status named = prepare_name(name, cdf.file->layout().name_size(), BAD_ATTR_NAME,
                                      ATTR_NAME_TRUNC, stored_name);
    CDFGATE_TRY(named);
    if (scope != GLOBAL_SCOPE && scope != VARIABLE_SCOPE && scope != GLOBAL_SCOPE_ASSUMED &&
        scope != VARIABLE_SCOPE_ASSUMED) {
        return BAD_SCOPE;
    }
    if (name_in_use(cdf, stored_name, nullptr)) return ATTR_EXISTS;
    store::Attribute attr;
    attr.name = stored_name;
    attr.scope = (scope == GLOBAL_SCOPE || scope == GLOBAL_SCOPE_ASSUMED) ? 1 : 2;
    CDFGATE_TRY(cdf.file->add_attribute(std::move(attr)));
    cdf.cur_attr = static_cast<long>(cdf.file->attributes().size() - 1);
    *number = *cdf.cur_attr;
    return named.code;
}

CDFstatus handle_without_current(long op, long item, Call& call, OpenCdf& cdf) {
    switch (op) {
        case SELECT_:
            if (item == ATTR_) {
                const long number = call.args.next_long();
                if (number < 0) return BAD_ATTR_NUM;
                if (static_cast<std::size_t>(number) >= cdf.file->attributes().size()) {
                    return NO_SUCH_ATTR;
                }
                cdf.cur_attr = number;
                return CDF_OK;
            } else {  // ATTR_NAME_
                const auto number = find_attr(cdf, call.args.next<char>());
                if (!number) return NO_SUCH_ATTR;
                cdf.cur_attr = *number;
                return CDF_OK;
            }
        case CONFIRM_:
            if (item == ATTR_) {
                if (!cdf.cur_attr) return NO_ATTR_SELECTED;
                return put_long(call, *cdf.cur_attr);
            }
            return find_attr(cdf, call.args.next<char>()) ? CDF_OK : NO_SUCH_ATTR;
        case CREATE_:
            return create_attr(call, cdf);
        default: {  // GET_ ATTR_NUMBER_
            const char* const name = call.args.next<char>();
            long* const out = call.args.next<long>();
            const auto number = find_attr(cdf, name);
            if (!number) return NO_SUCH_ATTR;
            *out = *number;
            return CDF_OK;
        }
    }
}

bool is_without_current(long op, long item) {
    return (op == SELECT_ && (item == ATTR_ || item == ATTR_NAME_)) ||
           (op == CONFIRM_ && (item == ATTR_ || item == ATTR_EXISTENCE_)) ||
           (op == CREATE_ && item == ATTR_) || (op == GET_ && item == ATTR_NUMBER_);
}

bool needs_attr(long op, long item) {
    switch (op) {
        case GET_:
            return item == ATTR_NAME_ || item == ATTR_SCOPE_ || item == ATTR_MAXgENTRY_ ||
                   item == ATTR_NUMgENTRIES_ || item == ATTR_MAXrENTRY_ ||
                   item == ATTR_NUMrENTRIES_ || item == ATTR_MAXzENTRY_ ||
                   item == ATTR_NUMzENTRIES_;
        case PUT_:
            return item == ATTR_NAME_ || item == ATTR_SCOPE_;
        case DELETE_:
            return item == ATTR_;
        default:
            return false;
    }
}

CDFstatus entry_count(Call& call, OpenCdf& cdf, const store::Attribute& attr, long item) {
    const bool g = item == ATTR_MAXgENTRY_ || item == ATTR_NUMgENTRIES_;
    const bool r = item == ATTR_MAXrENTRY_ || item == ATTR_NUMrENTRIES_;
    const bool max = item == ATTR_MAXgENTRY_ || item == ATTR_MAXrENTRY_ || item == ATTR_MAXzENTRY_;
    if (g != attr.is_global()) return ILLEGAL_FOR_SCOPE;
    if (g) {
        return put_long(call,
                        max ? attr.max_entry(false) : static_cast<long>(attr.gr_entries.size()));
    }
    if (r) {
        if (cdf.zmode != zMODEoff) return put_long(call, max ? -1 : 0);
        return put_long(call,
                        max ? attr.max_entry(false) : static_cast<long>(attr.gr_entries.size()));
    }
    return put_long(call, max ? zentry_max(cdf, attr) : zentry_count(cdf, attr));
}

CDFstatus rename_attr(Call& call, OpenCdf& cdf, store::Attribute& attr) {
    const char* const name = call.args.next<char>();
    CDFGATE_TRY(check_writable(cdf));
    std::string stored_name;
    const Status named = prepare_name(name, cdf.file->layout().name_size(), BAD_ATTR_NAME,
                                      ATTR_NAME_TRUNC, stored_name);
    CDFGATE_TRY(named);
    if (name_in_use(cdf, stored_name, &attr)) return ATTR_EXISTS;
    attr.name = stored_name;
    cdf.file->touch();
    return named.code;
}

CDFstatus put_scope(Call& call, OpenCdf& cdf, store::Attribute& attr) {
    const long scope = call.args.next_long();
    CDFGATE_TRY(check_writable(cdf));
    if (scope != GLOBAL_SCOPE && scope != VARIABLE_SCOPE && scope != GLOBAL_SCOPE_ASSUMED &&
        scope != VARIABLE_SCOPE_ASSUMED) {
        return BAD_SCOPE;
    }
    const bool global = scope == GLOBAL_SCOPE || scope == GLOBAL_SCOPE_ASSUMED;
    attr.scope = global ? 1 : 2;
    cdf.file->touch();
    return CDF_OK;
}

}  // namespace

CDFstatus handle_attribute_item(long op, long item, Call& call) {
    const bool without = is_without_current(op, item);
    if (!without && !needs_attr(op, item)) return kNotHandled;
    OpenCdf* const cdf = call.cdf();
    if (cdf == nullptr) return NO_CDF_SELECTED;
    if (without) return handle_without_current(op, item, call, *cdf);
    if (!cdf->cur_attr ||
        static_cast<std::size_t>(*cdf->cur_attr) >= cdf->file->attributes().size()) {
        return NO_ATTR_SELECTED;
    }
    const auto index = static_cast<std::size_t>(*cdf->cur_attr);
    store::Attribute& attr = cdf->file->attributes()[index];
    switch (op) {
        case GET_:
            if (item == ATTR_NAME_) {
                copy_name(attr.name, call.args.next<char>());
                return CDF_OK;
            }
            if (item == ATTR_SCOPE_)
                return put_long(call, attr.is_global() ? GLOBAL_SCOPE : VARIABLE_SCOPE);
            return entry_count(call, *cdf, attr, item);
        case PUT_:
            return item == ATTR_NAME_ ? rename_attr(call, *cdf, attr) : put_scope(call, *cdf, attr);
        default: {  // DELETE_ ATTR_
            CDFGATE_TRY(check_writable(*cdf));
            CDFGATE_TRY(cdf->file->delete_attribute(index));
            cdf->cur_attr.reset();
            return CDF_OK;
        }
    }
}

}  // namespace cdfgate::engine::api
