// Handlers of this family that are not served yet: each raises an error saying so.
// A handler leaves this list when its real definition lands.
#include "gateway/command_table.h"
#include "variables/variable_commands.h"

#define CDFGATE_PENDING_COMMAND(name)                                           \
    void name(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs, \
              const CommandEntry* entry) {                                      \
        notAvailableYet(nlhs, plhs, nrhs, prhs, entry);                         \
    }

namespace cdfgate::gateway {

CDFGATE_PENDING_COMMAND(createVar)
CDFGATE_PENDING_COMMAND(inquireVar)
CDFGATE_PENDING_COMMAND(getVarData)
CDFGATE_PENDING_COMMAND(getVarRecordData)
CDFGATE_PENDING_COMMAND(hyperGetVarData)
CDFGATE_PENDING_COMMAND(hyperPutVarData)
CDFGATE_PENDING_COMMAND(putVarData)
CDFGATE_PENDING_COMMAND(putVarRecordData)
CDFGATE_PENDING_COMMAND(getVarPadValue)
CDFGATE_PENDING_COMMAND(setVarPadValue)

}  // namespace cdfgate::gateway
