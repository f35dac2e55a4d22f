// Reading the records of a CVVR: its payload decompressed once with the variable's
// method and kept in the index's cache while reads stay in that block.
#pragma once

#include <cstdint>
#include <span>

#include "io/status.h"
#include "store/record_index.h"

namespace cdfgate::engine::store {

class CdfFile;
struct Variable;

// The bytes of the block's records (count x record_bytes). A payload that decodes
// short is VAR_READ_ERROR; a damaged one DECOMPRESSION_ERROR or ZLIB_UNCOMPRESS_ERROR.
Status compressed_block(const CdfFile& cdf, const Variable& var, const Block& block,
                        std::int64_t record_bytes, BlockCache& cache,
                        std::span<const std::uint8_t>& out);

}  // namespace cdfgate::engine::store
