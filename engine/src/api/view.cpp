#include "api/view.h"

#include <algorithm>

namespace cdfgate::engine::api {
namespace {

std::size_t r_count(const OpenCdf& cdf) {
    return cdf.file->variables(false).size();
}
std::size_t z_count(const OpenCdf& cdf) {
    return cdf.file->variables(true).size();
}

}  // namespace

std::size_t zvar_count(const OpenCdf& cdf) {
    return cdf.zmode == zMODEon2 || cdf.zmode == zMODEon1 ? r_count(cdf) + z_count(cdf)
                                                          : z_count(cdf);
}

std::optional<VarRef> zvar_ref(const OpenCdf& cdf, long number) {
    if (number < 0 || static_cast<std::size_t>(number) >= zvar_count(cdf)) return std::nullopt;
    const auto n = static_cast<std::size_t>(number);
    if (cdf.zmode == zMODEoff) return VarRef{true, n};
    if (n < r_count(cdf)) return VarRef{false, n};
    return VarRef{true, n - r_count(cdf)};
}

long zvar_number(const OpenCdf& cdf, VarRef ref) {
    if (cdf.zmode == zMODEoff || !ref.z) return static_cast<long>(ref.index);
    return static_cast<long>(r_count(cdf) + ref.index);
}

store::Variable& variable(OpenCdf& cdf, VarRef ref) {
    return cdf.file->variables(ref.z)[ref.index];
}

VarSelection& selection(OpenCdf& cdf, VarRef ref) {
    return cdf.selections(ref.z)[ref.index];
}

Shape variable_shape(const OpenCdf& cdf, VarRef ref) {
    const store::Variable& var = cdf.file->variables(ref.z)[ref.index];
    Shape shape;
    const auto& varys = var.vdr.dim_varys;
    for (std::size_t d = 0; d < varys.size(); ++d) {
        const long size = ref.z ? var.vdr.dim_sizes[d] : cdf.file->gdr().r_dim_sizes[d];
        const bool varies = varys[d] != 0;
        const bool shown = ref.z || cdf.zmode != zMODEon2 || varies;
        shape.stored.push_back(shown);
        if (!shown) continue;
        shape.sizes.push_back(size);
        shape.varys.push_back(varies ? VARY : NOVARY);
    }
    return shape;
}

EntryRef zentry_ref(const OpenCdf& cdf, long number) {
    const auto nr = static_cast<long>(r_count(cdf));
    if (cdf.zmode != zMODEoff && number < nr) return {false, static_cast<std::int32_t>(number)};
    if (cdf.zmode != zMODEoff) return {true, static_cast<std::int32_t>(number - nr)};
    return {true, static_cast<std::int32_t>(number)};
}

long zentry_number(const OpenCdf& cdf, bool stored_z, std::int32_t stored_number) {
    if (cdf.zmode == zMODEoff) return stored_number;
    return stored_z ? stored_number + static_cast<long>(r_count(cdf)) : stored_number;
}

long zentry_count(const OpenCdf& cdf, const store::Attribute& attr) {
    long n = static_cast<long>(attr.z_entries.size());
    if (cdf.zmode != zMODEoff) n += static_cast<long>(attr.gr_entries.size());
    return n;
}

long zentry_max(const OpenCdf& cdf, const store::Attribute& attr) {
    long max = -1;
    for (const auto& e : attr.z_entries) max = std::max(max, zentry_number(cdf, true, e.number));
    if (cdf.zmode != zMODEoff) {
        for (const auto& e : attr.gr_entries) max = std::max<long>(max, e.number);
    }
    return max;
}

}  // namespace cdfgate::engine::api
