#include "store/data_shape.h"

#include <limits>

#include "encoding/data_types.h"
#include "store/cdf_file.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();

bool multiply(std::int64_t& into, std::int64_t by) {
    if (by < 0 || (by != 0 && into > kMax / by)) return false;
    into *= by;
    return true;
}

}  // namespace

Status data_shape(const CdfFile& cdf, const Variable& var, DataShape& out) {
    const format::Vdr& vdr = var.vdr;
    // A type this library does not know (a file opened without validation) is the
    // caller's refusal, not damage.
    if (!encoding::is_known_type(vdr.data_type)) return BAD_DATA_TYPE;
    DataShape shape;
    shape.data_type = vdr.data_type;
    shape.element_size = encoding::element_size(vdr.data_type);
    shape.num_elems = vdr.num_elems;
    if (shape.element_size == 0 || vdr.num_elems < 1) return cdf.corrupted_status();
    const auto& sizes = vdr.z ? vdr.dim_sizes : cdf.gdr().r_dim_sizes;
    if (sizes.size() > kMaxDims || vdr.dim_varys.size() != sizes.size()) {
        return cdf.corrupted_status();
    }
    shape.num_dims = sizes.size();
    shape.row_major = cdf.row_major();
    shape.rec_vary = var.rec_vary();
    shape.value_bytes = static_cast<std::int64_t>(shape.element_size);
    if (!multiply(shape.value_bytes, vdr.num_elems)) return cdf.corrupted_status();
    std::int64_t values = 1;
    for (std::size_t d = 0; d < shape.num_dims; ++d) {
        if (sizes[d] < 1) return cdf.corrupted_status();
        shape.sizes[d] = sizes[d];
        shape.varys[d] = vdr.dim_varys[d] != 0;
        if (shape.varys[d] && !multiply(values, sizes[d])) return cdf.corrupted_status();
    }
    shape.record_values = values;
    shape.record_bytes = shape.value_bytes;
    if (!multiply(shape.record_bytes, values)) return cdf.corrupted_status();
    out = shape;
    return kOk;
}

Hyperslab whole_record(const DataShape& shape, std::int64_t record) {
    Hyperslab slab;
    slab.rec_start = record;
    for (std::size_t d = 0; d < shape.num_dims; ++d) {
        slab.counts[d] = shape.sizes[d];
        slab.intervals[d] = 1;
    }
    return slab;
}

Status check_slab(const DataShape& shape, const Hyperslab& slab, std::int64_t& box_values) {
    if (slab.rec_start < 0) return BAD_REC_NUM;
    if (slab.rec_count < 1) return BAD_REC_COUNT;
    if (slab.rec_interval < 1) return BAD_REC_INTERVAL;
    std::int64_t values = 1;
    for (std::size_t d = 0; d < shape.num_dims; ++d) {
        const std::int64_t index = slab.indices[d];
        const std::int64_t count = slab.counts[d];
        const std::int64_t interval = slab.intervals[d];
        if (count < 1) return BAD_DIM_COUNT;
        if (interval < 1) return BAD_DIM_INTERVAL;
        if (index < 0 || index >= shape.sizes[d]) return BAD_DIM_INDEX;
        // index + (count - 1) * interval must stay inside the dimension.
        const std::int64_t room = shape.sizes[d] - 1 - index;
        if ((count - 1) > room / interval) return BAD_DIM_INDEX;
        if (!multiply(values, count)) return BAD_DIM_INDEX;
    }
    // The whole buffer must be addressable.
    std::int64_t bytes = values;
    if (!multiply(bytes, shape.value_bytes) || !multiply(bytes, slab.rec_count)) {
        return BAD_REC_COUNT;
    }
    box_values = values;
    return kOk;
}

}  // namespace cdfgate::engine::store
