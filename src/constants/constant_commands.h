// "getConstantNames" and "getConstantValue".
#pragma once

#include "gateway/command.h"

namespace cdfgate::gateway {

void getConstantNames(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void getConstantValue(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);

}  // namespace cdfgate::gateway
