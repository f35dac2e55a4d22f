// The index of a variable's records (VXR tree) as far as metadata needs it:
// walking its slots, counting records, and freeing it with the variable.
// Reading and writing record values plug in beside this (see README.md).
#pragma once

#include <cstdint>
#include <functional>

#include "store/cdf_file.h"

namespace cdfgate::engine::store {

struct IndexSlot {
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::int64_t offset = 0;  // a VVR or CVVR
    std::int32_t type = 0;    // format::kVvr or format::kCvvr
    std::int64_t size = 0;    // RecordSize of the target
};

// Calls visit for every leaf slot in increasing record order. Index VXRs reached
// are passed to on_vxr (offset, size). Bounded: a looping or oversized tree is a
// corrupted-file status.
Status walk_index(const CdfFile& cdf, const Variable& var,
                  const std::function<Status(const IndexSlot&)>& visit,
                  const std::function<void(std::int64_t, std::int64_t)>& on_vxr = {});

// Records physically present: maxRec + 1 for non-sparse variables, the written
// records (up to maxRec) in some slot for sparse ones.
Status count_records(const CdfFile& cdf, const Variable& var, std::int64_t& count);
// Allocated records and the highest allocated record number (-1 when none).
Status allocated_records(const CdfFile& cdf, const Variable& var, std::int64_t& count,
                         std::int64_t& max_allocated);

// Gives back the variable's index and value records to the free space.
Status release_variable_data(CdfFile& cdf, Variable& var);

}  // namespace cdfgate::engine::store
