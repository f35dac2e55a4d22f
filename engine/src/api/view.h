// How variables and entries appear through CDFlib in the current zMode: in zMode 2
// the rVariables are zVariables numbered first, and rEntry n is zEntry n.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "api/open_cdf.h"

namespace cdfgate::engine::api {

struct VarRef {
    bool z = true;
    std::size_t index = 0;
};

// Number of variables the zVAR_ items see.
std::size_t zvar_count(const OpenCdf& cdf);
// The variable behind a zVAR_ number, if it exists.
std::optional<VarRef> zvar_ref(const OpenCdf& cdf, long number);
// The zVAR_ number of a stored variable.
long zvar_number(const OpenCdf& cdf, VarRef ref);

store::Variable& variable(OpenCdf& cdf, VarRef ref);
VarSelection& selection(OpenCdf& cdf, VarRef ref);

// The shape seen through the zVAR_ items: zMode 2 hides the non-varying
// dimensions of rVariables; rVariables take the file's rDimensions.
struct Shape {
    std::vector<long> sizes;
    std::vector<long> varys;   // VARY or NOVARY
    std::vector<bool> stored;  // per full dimension of the variable: shown in this view
};
Shape variable_shape(const OpenCdf& cdf, VarRef ref);

// Where a zENTRY_ number of a variable attribute lives: the stored list (false
// for rEntries) and the stored number.
struct EntryRef {
    bool z = true;
    std::int32_t number = 0;
};
EntryRef zentry_ref(const OpenCdf& cdf, long number);
long zentry_number(const OpenCdf& cdf, bool stored_z, std::int32_t stored_number);

// Entries of a variable attribute as zEntries (zMode 2 merges rEntries in).
long zentry_count(const OpenCdf& cdf, const store::Attribute& attr);
long zentry_max(const OpenCdf& cdf, const store::Attribute& attr);

}  // namespace cdfgate::engine::api
