// Handlers of this family that are not served yet: each raises an error saying so.
// A handler leaves this list when its real definition lands.
#include "attributes/attribute_commands.h"
#include "gateway/command_table.h"

#define CDFGATE_PENDING_COMMAND(name)                                           \
    void name(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs, \
              const CommandEntry* entry) {                                      \
        notAvailableYet(nlhs, plhs, nrhs, prhs, entry);                         \
    }

namespace cdfgate::gateway {

CDFGATE_PENDING_COMMAND(createAttr)
CDFGATE_PENDING_COMMAND(deleteAttr)
CDFGATE_PENDING_COMMAND(getAttrName)
CDFGATE_PENDING_COMMAND(getAttrNum)
CDFGATE_PENDING_COMMAND(getAttrScope)
CDFGATE_PENDING_COMMAND(getNumgAttributes)
CDFGATE_PENDING_COMMAND(getNumvAttributes)
CDFGATE_PENDING_COMMAND(inquireAttr)
CDFGATE_PENDING_COMMAND(renameAttr)
CDFGATE_PENDING_COMMAND(deleteAttrEntry)
CDFGATE_PENDING_COMMAND(deleteAttrgEntry)
CDFGATE_PENDING_COMMAND(getAttrgEntry)
CDFGATE_PENDING_COMMAND(getAttrEntry)
CDFGATE_PENDING_COMMAND(getAttrMaxEntry)
CDFGATE_PENDING_COMMAND(getAttrMaxgEntry)
CDFGATE_PENDING_COMMAND(getNumAttrgEntries)
CDFGATE_PENDING_COMMAND(getNumAttrEntries)
CDFGATE_PENDING_COMMAND(inquireAttrgEntry)
CDFGATE_PENDING_COMMAND(inquireAttrEntry)
CDFGATE_PENDING_COMMAND(putAttrEntry)

}  // namespace cdfgate::gateway
