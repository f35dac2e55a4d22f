// Handlers of this family that are not served yet: each raises an error saying so.
// A handler leaves this list when its real definition lands.
#include "file/file_commands.h"
#include "gateway/command_table.h"

#define CDFGATE_PENDING_COMMAND(name)                                           \
    void name(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs, \
              const CommandEntry* entry) {                                      \
        notAvailableYet(nlhs, plhs, nrhs, prhs, entry);                         \
    }

namespace cdfgate::gateway {

CDFGATE_PENDING_COMMAND(closeCdf)
CDFGATE_PENDING_COMMAND(createCdf)
CDFGATE_PENDING_COMMAND(deleteCdf)
CDFGATE_PENDING_COMMAND(openCdf)
CDFGATE_PENDING_COMMAND(getCacheSize)
CDFGATE_PENDING_COMMAND(getChecksum)
CDFGATE_PENDING_COMMAND(getCompressionCacheSize)
CDFGATE_PENDING_COMMAND(getCopyright)
CDFGATE_PENDING_COMMAND(getFileBackward)
CDFGATE_PENDING_COMMAND(getFormat)
CDFGATE_PENDING_COMMAND(getLibraryVersion)
CDFGATE_PENDING_COMMAND(getLibraryCopyright)
CDFGATE_PENDING_COMMAND(getMajority)
CDFGATE_PENDING_COMMAND(getName)
CDFGATE_PENDING_COMMAND(getReadOnlyMode)
CDFGATE_PENDING_COMMAND(getStageCacheSize)
CDFGATE_PENDING_COMMAND(getValidate)
CDFGATE_PENDING_COMMAND(getVersion)
CDFGATE_PENDING_COMMAND(inquireCdf)
CDFGATE_PENDING_COMMAND(setCacheSize)
CDFGATE_PENDING_COMMAND(setChecksum)
CDFGATE_PENDING_COMMAND(setCompressionCacheSize)
CDFGATE_PENDING_COMMAND(setFileBackward)
CDFGATE_PENDING_COMMAND(setFormat)
CDFGATE_PENDING_COMMAND(setMajority)
CDFGATE_PENDING_COMMAND(setReadOnlyMode)
CDFGATE_PENDING_COMMAND(setStageCacheSize)
CDFGATE_PENDING_COMMAND(setValidate)
CDFGATE_PENDING_COMMAND(getCompression)
CDFGATE_PENDING_COMMAND(getVarCompression)
CDFGATE_PENDING_COMMAND(setCompression)
CDFGATE_PENDING_COMMAND(setVarCompression)
CDFGATE_PENDING_COMMAND(closeVar)
CDFGATE_PENDING_COMMAND(deleteVar)
CDFGATE_PENDING_COMMAND(deleteVarRecords)
CDFGATE_PENDING_COMMAND(getVarAllocRecords)
CDFGATE_PENDING_COMMAND(getVarCacheSize)
CDFGATE_PENDING_COMMAND(getVarName)
CDFGATE_PENDING_COMMAND(getVarNum)
CDFGATE_PENDING_COMMAND(getVarReservePercent)
CDFGATE_PENDING_COMMAND(getVarBlockingFactor)
CDFGATE_PENDING_COMMAND(getVarMaxWrittenRecNum)
CDFGATE_PENDING_COMMAND(getVarMaxAllocRecNum)
CDFGATE_PENDING_COMMAND(getVarNumRecsWritten)
CDFGATE_PENDING_COMMAND(getVarsMaxWrittenRecNum)
CDFGATE_PENDING_COMMAND(getVarSparseRecords)
CDFGATE_PENDING_COMMAND(renameVar)
CDFGATE_PENDING_COMMAND(setVarAllocBlockRecords)
CDFGATE_PENDING_COMMAND(setVarBlockingFactor)
CDFGATE_PENDING_COMMAND(setVarCacheSize)
CDFGATE_PENDING_COMMAND(setVarsCacheSize)
CDFGATE_PENDING_COMMAND(setVarReservePercent)
CDFGATE_PENDING_COMMAND(setVarSparseRecords)
CDFGATE_PENDING_COMMAND(setVarInitialRecs)

}  // namespace cdfgate::gateway
