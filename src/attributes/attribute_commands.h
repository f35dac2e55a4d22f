// Command handlers: attributes, their scopes and numbers, and their gEntries and zEntries.
#pragma once

#include "gateway/command.h"

namespace cdfgate::gateway {

void createAttr(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void deleteAttr(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void getAttrName(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void getAttrNum(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void getAttrScope(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);
void getNumgAttributes(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void getNumvAttributes(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void inquireAttr(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                 const CommandEntry* entry);
void renameAttr(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                const CommandEntry* entry);
void deleteAttrEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void deleteAttrgEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void getAttrgEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                   const CommandEntry* entry);
void getAttrEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);
void getAttrMaxEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                     const CommandEntry* entry);
void getAttrMaxgEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void getNumAttrgEntries(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                        const CommandEntry* entry);
void getNumAttrEntries(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void inquireAttrgEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                       const CommandEntry* entry);
void inquireAttrEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                      const CommandEntry* entry);
void putAttrEntry(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                  const CommandEntry* entry);

}  // namespace cdfgate::gateway
