// Command handlers: conversions between calendar components and EPOCH, EPOCH16 and TT2000 values.
#pragma once

// cdf.h defines computeTT2000 and breakdownTT2000 as macros; including it here makes
// every file that names these two handlers spell them the same way.
#include "cdf.h"
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
