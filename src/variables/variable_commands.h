// Command handlers: variable creation and inquiry, reading and writing variable data, pad values.
#pragma once

#include "gateway/command.h"

namespace cdfgate::gateway {

void createVar(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
               const CommandEntry* entry);
void inquireVar(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void getVarData(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void getVarRecordData(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void hyperGetVarData(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void hyperPutVarData(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void putVarData(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void putVarRecordData(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void getVarPadValue(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                    const CommandEntry* entry);
void setVarPadValue(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                    const CommandEntry* entry);

}  // namespace cdfgate::gateway
