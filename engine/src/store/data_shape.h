// The geometry of a variable's values: how big one value and one stored record
// are, and which part of the variable a hyperslab selects.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "cdf.h"
#include "io/status.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

inline constexpr std::size_t kMaxDims = CDF_MAX_DIMS;

struct DataShape {
    long data_type = 0;
    std::int64_t num_elems = 1;
    std::size_t element_size = 0;
    std::int64_t value_bytes = 0;  // one value: element size x elements
    std::size_t num_dims = 0;
    std::array<std::int64_t, kMaxDims> sizes{};
    std::array<bool, kMaxDims> varys{};
    bool row_major = true;
    bool rec_vary = true;
    std::int64_t record_values = 1;  // values stored per record (varying dimensions only)
    std::int64_t record_bytes = 0;
};

// The shape of var in cdf: a zVariable's own dimensions, an rVariable's the file's.
// An unknown type or a record too large to address is a corrupted-file status.
Status data_shape(const CdfFile& cdf, const Variable& var, DataShape& out);

// Records and, per dimension of the shape, the box to move.
struct Hyperslab {
    std::int64_t rec_start = 0;
    std::int64_t rec_count = 1;
    std::int64_t rec_interval = 1;
    std::array<std::int64_t, kMaxDims> indices{};
    std::array<std::int64_t, kMaxDims> counts{};
    std::array<std::int64_t, kMaxDims> intervals{};
};

// A slab covering one whole record (every value of it) at record.
Hyperslab whole_record(const DataShape& shape, std::int64_t record);

// Checks the slab against the shape, as the reference library does at access:
// records BAD_REC_NUM / BAD_REC_COUNT / BAD_REC_INTERVAL, a count or interval
// below 1 BAD_DIM_COUNT / BAD_DIM_INTERVAL, an index or box end outside its
// dimension BAD_DIM_INDEX, a buffer too large to address BAD_REC_COUNT. Gives the
// number of values of one record's box.
Status check_slab(const DataShape& shape, const Hyperslab& slab, std::int64_t& box_values);

}  // namespace cdfgate::engine::store
