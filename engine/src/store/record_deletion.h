// Deleting a range of a variable's records (DELETE_ zVAR_RECORDS_), as the
// reference library does: the records' blocks lose them (a block wholly inside the
// range becomes free space); in a non-sparse variable the later records move down
// by the range's length, in a sparse one a gap is left. Compressed blocks cut in
// two become two blocks, each compressed again.
#pragma once

#include <cstdint>

#include "io/status.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// BAD_REC_NUM for a negative or reversed range; MULTI_FILE_FORMAT (nothing done)
// in a multi-file CDF. A range beyond the allocated records removes nothing.
Status delete_records(CdfFile& cdf, Variable& var, std::int64_t first, std::int64_t last);

}  // namespace cdfgate::engine::store
