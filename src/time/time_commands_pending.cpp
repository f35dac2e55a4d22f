// Handlers of this family that are not served yet: each raises an error saying so.
// A handler leaves this list when its real definition lands.
#include "gateway/command_table.h"
#include "time/time_commands.h"

#define CDFGATE_PENDING_COMMAND(name)                                           \
    void name(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs, \
              const CommandEntry* entry) {                                      \
        notAvailableYet(nlhs, plhs, nrhs, prhs, entry);                         \
    }

namespace cdfgate::gateway {

CDFGATE_PENDING_COMMAND(computeEpoch)
CDFGATE_PENDING_COMMAND(computeEpoch16)
CDFGATE_PENDING_COMMAND(computeTT2000)
CDFGATE_PENDING_COMMAND(epochBreakdown)
CDFGATE_PENDING_COMMAND(epoch16Breakdown)
CDFGATE_PENDING_COMMAND(breakdownTT2000)

}  // namespace cdfgate::gateway
