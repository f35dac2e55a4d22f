// Writing compressed variables the way the reference library does: records are
// grouped in blocks of at most the blocking factor, each block staged in memory
// and stored as one CVVR (or, when compression does not pay, a VVR) when writing
// moves on to another block or the file is closed. Rewriting records of a stored
// block brings the whole block back, and it is stored again in place when it
// fits, else moved.
#pragma once

#include <cstdint>

#include "io/status.h"
#include "store/data_shape.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// The write_slab of a compressed variable (the slab already checked). Gaps below
// the written records of a non-sparse variable are padded first, so they join
// the blocks like written records. DID_NOT_COMPRESS when a block was stored as a
// VVR.
Status write_compressed_slab(CdfFile& cdf, Variable& var, const Hyperslab& slab, const void* in,
                             bool positive_zeros);

// Records 0..count-1 of a compressed variable written with the pad value.
Status write_compressed_pads(CdfFile& cdf, Variable& var, std::int64_t count);

// Stores the staged block of var, if any. DID_NOT_COMPRESS when it went into a VVR.
Status flush_stage(CdfFile& cdf, Variable& var);

// Flushes the staged block of every variable (before the file is saved).
Status flush_stages(CdfFile& cdf);

// Forgets the staged block of var without storing it (the variable is deleted).
void drop_stage(Variable& var);

// The blocking factor of a compressed variable when none is set: 64 KiB worth of
// records, at least one; one for a non-record-variant variable.
std::int64_t default_compressed_blocking(std::int64_t record_bytes, bool rec_vary);

}  // namespace cdfgate::engine::store
