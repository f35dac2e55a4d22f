// Attribute scopes and the entry kinds of the standard-interface entry calls.
#pragma once

#include <string>

#include "cdf.h"

namespace cdfgate::gateway {

// Entry kinds as the entry calls take them; rEntries (2) are never used.
inline constexpr int kGlobalEntries = 1;
inline constexpr int kZEntries = 3;

// "GLOBAL_SCOPE" or "VARIABLE_SCOPE"; any other code raises "unrecognizedValue"
// with the code and "SCOPE".
std::string scopeName(long scope);

// The scope code of an attribute as the library reports it ("CDFgetAttrScope").
long attributeScope(CDFid id, long attrNum);

}  // namespace cdfgate::gateway
