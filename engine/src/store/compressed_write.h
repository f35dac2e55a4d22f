// Writing compressed variables the way the reference library does: records are
// grouped in blocks of at most the blocking factor, each block staged in memory
// and stored as one CVVR (or, when compression does not pay, a VVR) when writing
// moves on to another block or the file is closed. Rewriting records of a stored
// block brings the whole block back, and it is stored again in place when it
// fits, else moved.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "format/layout.h"
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

// The pieces of storing one block, for callers that place blocks themselves
// (deleting records).
struct PackedBlock {
    std::vector<std::uint8_t> packed;  // room for the CVVR's head, then the payload
    std::int64_t c_size = 0;           // payload bytes
    std::int64_t raw = 0;              // bytes of the block's records
};
struct StoredRecord {
    std::int64_t offset = 0;
    std::int64_t size = 0;  // RecordSize
    std::int32_t type = 0;  // VVR or CVVR
};
// Compresses the records raw with the variable's method.
Status pack_block(Variable& var, format::Layout layout, std::span<const std::uint8_t> raw,
                  PackedBlock& out);
// The record a new block takes: a CVVR with the reserve room when it is smaller
// than the VVR, else the VVR (offset left 0 for the caller to place).
StoredRecord new_block_form(const PackedBlock& block, format::Layout layout,
                            std::int64_t reserve_percent);
// Where a block rewritten over old goes: in place when a CVVR, or else a VVR, fits;
// otherwise the smaller form, grown at the end of the file or moved (old freed).
StoredRecord rewrite_form(CdfFile& cdf, const PackedBlock& block, const StoredRecord& old);
// Writes the block at `at` in its form; DID_NOT_COMPRESS for a VVR.
Status write_block(CdfFile& cdf, const StoredRecord& at, PackedBlock& block,
                   std::span<const std::uint8_t> raw);

// The blocking factor of a compressed variable when none is set: 64 KiB worth of
// records, at least one; one for a non-record-variant variable.
std::int64_t default_compressed_blocking(std::int64_t record_bytes, bool rec_vary);

}  // namespace cdfgate::engine::store
