// Values of multi-file CDFs: each variable's records live in a file of its own
// beside the CDF (<base>.z<n> / .v<n>), with no header: record k at k x record
// bytes, records 0..maxRec all present (unwritten ones hold the pad), in the data
// encoding. The variable's file is opened on first use and kept open until the
// variable or the CDF is closed.
#pragma once

#include <cstdint>

#include "io/status.h"
#include "store/data_shape.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// read_slab / write_slab / write_initial_records for a multi-file CDF (the slab
// already checked). Records above maxRec read as the pad with VIRTUAL_RECORD_DATA;
// records skipped by a write are padded.
Status read_multi_file_slab(const CdfFile& cdf, Variable& var, const Hyperslab& slab, void* out);
Status write_multi_file_slab(CdfFile& cdf, Variable& var, const Hyperslab& slab, const void* in,
                             bool positive_zeros);
Status write_multi_file_pads(CdfFile& cdf, Variable& var, std::int64_t count);

// CLOSE_ zVAR_: CDF_OK when the variable's file was open, else VAR_ALREADY_CLOSED.
Status close_variable_file(Variable& var);

}  // namespace cdfgate::engine::store
