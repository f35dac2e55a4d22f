// Items that move variable values (zVAR_DATA_, zVAR_HYPERDATA_, record allocation
// and deletion). They belong to the variable-data layer; until it is in place
// they are reported as unknown items (BAD_FNC_OR_ITEM), never as successes.
#include "api/call.h"

namespace cdfgate::engine::api {

CDFstatus handle_variable_data_item(long /*op*/, long /*item*/, Call& /*call*/) {
    return kNotHandled;
}

}  // namespace cdfgate::engine::api
