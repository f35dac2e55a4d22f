// Reading the records of a CVVR: its payload decompressed once with the variable's
// method and kept in the index's cache while reads stay in that block.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

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

// Reads the CVVR of block (its record into `record`, kept for reuse) and decodes
// exactly out.size() bytes of its records into out.
Status decode_block(const CdfFile& cdf, const Variable& var, const Block& block,
                    std::vector<std::uint8_t>& record, std::span<std::uint8_t> out);

}  // namespace cdfgate::engine::store
