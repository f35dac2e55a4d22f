// Reading and writing a variable's values: hyperslabs of records (whole records
// and single values are hyperslabs too), in host form on the caller's side and in
// the file's encoding and majority on disk.
//
// Reads go straight into the caller's buffer: one positioned read per run of
// consecutive stored records when whole records are asked for, the values then
// brought to host form in place. Records that hold no written data read as the
// pad value (or, for PREV-sparse variables, as the nearest earlier record) and
// make the read return VIRTUAL_RECORD_DATA.
#pragma once

#include "io/status.h"
#include "store/data_shape.h"
#include "store/record_index.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// var.index is loaded on first use.
Status read_slab(const CdfFile& cdf, Variable& var, const Hyperslab& slab, void* out);

// Writes the slab: allocates records as the reference library does, pads records
// that the write skips over (with the pad value in force), stores character values
// blank-filled from their first zero byte, and raises the maximum record. A
// non-record-variant variable takes every record at record 0. With positive_zeros
// (the CDF's negative-to-positive floating-point zero mode) -0.0 is stored as +0.0.
Status write_slab(CdfFile& cdf, Variable& var, const Hyperslab& slab, const void* in,
                  bool positive_zeros = false);

// Records 0..count-1 written with the pad value in force (zVAR_INITIALRECS_).
Status write_initial_records(CdfFile& cdf, Variable& var, std::int64_t count);

// Allocates records first..last without writing them (zVAR_ALLOCATEBLOCK_): the
// unallocated ones among them, and those between the allocation's end and first
// (PRECEEDING_RECORDS_ALLOCATED). SOME_ALREADY_ALLOCATED when part of the range
// was allocated already.
Status allocate_records(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last);

}  // namespace cdfgate::engine::store
