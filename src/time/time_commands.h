// Command handlers: conversions between calendar components and EPOCH, EPOCH16 and TT2000 values.
#pragma once

#include "gateway/command.h"

namespace cdfgate::gateway {

void computeEpoch(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);
void computeEpoch16(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                    const CommandEntry* entry);
void computeTT2000(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                   const CommandEntry* entry);
void epochBreakdown(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                    const CommandEntry* entry);
void epoch16Breakdown(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void breakdownTT2000(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);

}  // namespace cdfgate::gateway
