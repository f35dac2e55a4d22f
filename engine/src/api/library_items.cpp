// Items that need no current CDF: status selection and texts, the library's own
// version and notice, and the selection of the current CDF.
#include <cstring>

#include "api/call.h"
#include "api/library_info.h"
#include "api/status_text.h"

namespace cdfgate::engine::api {
namespace {

CDFstatus selectCdf(Call& call) {
    void* const id = call.args.nextPointer();
    if (id == nullptr) {
        call.lib.current = 0;
        return CDF_OK;
    }
    if (call.lib.find(id) == nullptr) return BAD_CDF_ID;
    call.lib.current = keyOf(id);
    return CDF_OK;
}

CDFstatus putLong(Call& call, long value) {
    *call.args.next<long>() = value;
    return CDF_OK;
}

CDFstatus handleGet(long item, Call& call) {
    switch (item) {
        case STATUS_TEXT_:
            copyStatusText(call.lib.currentStatus, call.args.next<char>());
            return CDF_OK;
        case LIB_COPYRIGHT_: {
            char* const out = call.args.next<char>();
            std::memcpy(out, kLibraryCopyright, std::strlen(kLibraryCopyright) + 1);
            return CDF_OK;
        }
        case LIB_VERSION_:
            return putLong(call, kLibraryVersion);
        case LIB_RELEASE_:
            return putLong(call, kLibraryRelease);
        case LIB_INCREMENT_:
            return putLong(call, kLibraryIncrement);
        case LIB_subINCREMENT_:
            *call.args.next<char>() = kLibrarySubIncrement;
            return CDF_OK;
        default:
            return kNotHandled;
    }
}

}  // namespace

CDFstatus handleLibraryItem(long op, long item, Call& call) {
    switch (op) {
        case SELECT_:
            if (item == CDF_STATUS_) {
                call.lib.currentStatus = call.args.nextLong();
                return CDF_OK;
            }
            if (item == CDF_) return selectCdf(call);
            return kNotHandled;
        case CONFIRM_:
            if (item == CDF_STATUS_) return putLong(call, call.lib.currentStatus);
            if (item == CDF_) {
                *call.args.next<CDFid>() =
                    call.lib.currentCdf() ? reinterpret_cast<CDFid>(call.lib.current) : nullptr;
                return CDF_OK;
            }
            return kNotHandled;
        case GET_:
            return handleGet(item, call);
        default:
            return kNotHandled;
    }
}

}  // namespace cdfgate::engine::api
