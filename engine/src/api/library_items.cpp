// Items that need no current CDF: status selection and texts, the library's own
// version and notice, and the selection of the current CDF.
#include <cstring>

#include "api/call.h"
#include "api/file_names.h"
#include "api/library_info.h"
#include "api/status_text.h"
#include "encoding/data_types.h"
#include "store/whole_file.h"

namespace cdfgate::engine::api {
namespace {

CDFstatus select_cdf(Call& call) {
    void* const id = call.args.next_pointer();
    if (id == nullptr) {
        call.lib.current = 0;
        return CDF_OK;
    }
    if (call.lib.find(id) == nullptr) return BAD_CDF_ID;
    call.lib.current = key_of(id);
    return CDF_OK;
}

// GET_ CDF_INFO_: compression and sizes of a CDF file named like OPEN_ names it.
CDFstatus file_info(Call& call) {
    const char* const name = call.args.next<char>();
    long* const type = call.args.next<long>();
    long* const parms = call.args.next<long>();
    long long* const stored = call.args.next<long long>();
    long long* const expanded = call.args.next<long long>();
    std::string path;
    CDFGATE_TRY(path_to_open(name ? name : "", path).code);
    format::Cpr cpr;
    std::int64_t c = 0, u = 0;
    CDFGATE_TRY(store::whole_file_info(path, cpr, c, u).code);
    *type = cpr.c_type;
    if (cpr.c_type != NO_COMPRESSION && !cpr.parms.empty()) parms[0] = cpr.parms[0];
    *stored = c;
    *expanded = u;
    return CDF_OK;
}

// GET_ DATATYPE_SIZE_: bytes of one element of a data type.
CDFstatus data_type_size(Call& call) {
    const long data_type = call.args.next_long();
    long* const size = call.args.next<long>();
    if (!encoding::is_known_type(data_type)) return BAD_DATA_TYPE;
    *size = static_cast<long>(encoding::element_size(data_type));
    return CDF_OK;
}

CDFstatus handle_get(long item, Call& call) {
    switch (item) {
        case DATATYPE_SIZE_:
            return data_type_size(call);
        case STATUS_TEXT_:
            copy_status_text(call.lib.current_status, call.args.next<char>());
            return CDF_OK;
        case LIB_COPYRIGHT_: {
            char* const out = call.args.next<char>();
            std::memcpy(out, kLibraryCopyright, std::strlen(kLibraryCopyright) + 1);
            return CDF_OK;
        }
        case LIB_VERSION_:
            return put_long(call, kLibraryVersion);
        case LIB_RELEASE_:
            return put_long(call, kLibraryRelease);
        case LIB_INCREMENT_:
            return put_long(call, kLibraryIncrement);
        case CDF_INFO_:
            return file_info(call);
        case LIB_subINCREMENT_:
            *call.args.next<char>() = kLibrarySubIncrement;
            return CDF_OK;
        default:
            return kNotHandled;
    }
}

}  // namespace

CDFstatus handle_library_item(long op, long item, Call& call) {
    switch (op) {
        case SELECT_:
            if (item == CDF_STATUS_) {
                call.lib.current_status = call.args.next_long();
                return CDF_OK;
            }
            if (item == CDF_) return select_cdf(call);
            return kNotHandled;
        case CONFIRM_:
            if (item == CDF_STATUS_) return put_long(call, call.lib.current_status);
            if (item == CDF_) {
                *call.args.next<CDFid>() =
                    call.lib.current_cdf() ? reinterpret_cast<CDFid>(call.lib.current) : nullptr;
                return CDF_OK;
            }
            return kNotHandled;
        case GET_:
            return handle_get(item, call);
        default:
            return kNotHandled;
    }
}

}  // namespace cdfgate::engine::api
