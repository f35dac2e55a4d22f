// Command handlers: file lifecycle, file and library settings, compression and variable
// housekeeping.
#pragma once

#include "gateway/command.h"

namespace cdfgate::gateway {

void closeCdf(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
              const CommandEntry* entry);
void createCdf(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void deleteCdf(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void openCdf(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
             const CommandEntry* entry);
void getCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);
void getChecksum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void getCompressionCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                             const CommandEntry* entry);
void getCopyright(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);
void getFileBackward(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void getFormat(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void getLibraryVersion(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void getLibraryCopyright(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                         const CommandEntry* entry);
void getMajority(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void getName(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
             const CommandEntry* entry);
void getReadOnlyMode(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void getStageCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void getValidate(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void getVersion(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void inquireCdf(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void setCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);
void setChecksum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void setCompressionCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                             const CommandEntry* entry);
void setFileBackward(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void setFormat(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void setMajority(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void setReadOnlyMode(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void setStageCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void setValidate(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void getCompression(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                    const CommandEntry* entry);
void getVarCompression(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void setCompression(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                    const CommandEntry* entry);
void setVarCompression(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void closeVar(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
              const CommandEntry* entry);
void deleteVar(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void deleteVarRecords(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void getVarAllocRecords(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                        const CommandEntry* entry);
void getVarCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void getVarName(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void getVarNum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void getVarReservePercent(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                          const CommandEntry* entry);
void getVarBlockingFactor(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                          const CommandEntry* entry);
void getVarMaxWrittenRecNum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                            const CommandEntry* entry);
void getVarMaxAllocRecNum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                          const CommandEntry* entry);
void getVarNumRecsWritten(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                          const CommandEntry* entry);
void getVarsMaxWrittenRecNum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                             const CommandEntry* entry);
void getVarSparseRecords(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                         const CommandEntry* entry);
void renameVar(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void setVarAllocBlockRecords(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                             const CommandEntry* entry);
void setVarBlockingFactor(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                          const CommandEntry* entry);
void setVarCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void setVarsCacheSize(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void setVarReservePercent(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                          const CommandEntry* entry);
void setVarSparseRecords(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                         const CommandEntry* entry);
void setVarInitialRecs(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);

}  // namespace cdfgate::gateway
