// The CDFlib entry point: reads operations and items left to right and combines
// their statuses (first error stops; else last warning; else last information).
#include <array>
#include <cstdarg>
#include <exception>
#include <new>

#include "api/call.h"
#include "cdf.h"

namespace cdfgate::engine::api {
namespace {

bool is_operation(long code) {
    return code >= NULL_ && code <= GETLEAPSECONDSENVVAR_;
}

class StatusCombiner {
  public:
    // False when the call must stop (an error).
    bool add(CDFstatus status) {
        if (status < CDF_WARN) {
            error_ = status;
            return false;
        }
        if (status < CDF_OK) warning_ = status;
        if (status > CDF_OK) info_ = status;
        return true;
    }
    CDFstatus result() const {
        if (error_ != CDF_OK) return error_;
        if (warning_ != CDF_OK) return warning_;
        return info_;
    }

  private:
    CDFstatus error_ = CDF_OK;
    CDFstatus warning_ = CDF_OK;
    CDFstatus info_ = CDF_OK;
};

using HandlerGroup = CDFstatus (*)(long, long, Call&);
constexpr std::array<HandlerGroup, 6> kGroups{&handle_library_item,  &handle_file_item,
                                              &handle_variable_item, &handle_attribute_item,
                                              &handle_entry_item,    &handle_variable_data_item};

CDFstatus dispatch(long op, long item, Call& call) {
    for (const HandlerGroup group : kGroups) {
        const CDFstatus status = group(op, item, call);
        if (status != kNotHandled) return status;
    }
    return BAD_FNC_OR_ITEM;
}

CDFstatus run(long first, va_list* ap) {
    Call call{CallArgs(ap), library_state()};
    StatusCombiner combined;
    long op = first;
    if (!is_operation(op)) return BAD_FNC_OR_ITEM;
    while (op != NULL_) {
        const long next = call.args.next_long();
        if (is_operation(next)) {
            op = next;
            continue;
        }
        CDFstatus status = CDF_OK;
        try {
            status = dispatch(op, next, call);
        } catch (const MissingArgument&) {
            status = BAD_ARGUMENT;
        }
        if (!combined.add(status)) break;
    }
    return combined.result();
}

}  // namespace
}  // namespace cdfgate::engine::api

extern "C" CDFstatus CDFlib(long requiredFnc, ...) {
    va_list ap;
    va_start(ap, requiredFnc);
    CDFstatus status = CDF_OK;
    try {
        status = cdfgate::engine::api::run(requiredFnc, &ap);
    } catch (const std::bad_alloc&) {
        status = BAD_MALLOC;
    } catch (...) {
        status = CDF_INTERNAL_ERROR;
    }
    va_end(ap);
    return status;
}
