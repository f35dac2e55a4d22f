// The block of a compressed variable that is being written. Records written to
// a compressed variable collect here, uncompressed and in stored form, and are
// compressed into one CVVR (or a VVR when that does not pay) when a write moves
// to another block or the file is closed. While staged, the block stands in the
// variable's index as a block of type kStagedBlock (see record_index.h).
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace cdfgate::engine::codec {
class GzipCompressor;
}

namespace cdfgate::engine::store {

struct CompressedStage {
    bool active = false;
    std::int64_t first = 0;     // first record held
    std::int64_t count = 0;     // records held
    std::int64_t capacity = 0;  // records the block may grow to
    // A block already in the file, brought back to be rewritten: where it lies
    // and what it was. A stored block never grows.
    bool stored = false;
    std::int64_t offset = 0;
    std::int64_t size = 0;
    std::int32_t type = 0;
    std::vector<std::uint8_t> bytes;  // count x record bytes
    // Kept between blocks: setting up a deflate state is costly.
    std::shared_ptr<codec::GzipCompressor> gzip;
};

}  // namespace cdfgate::engine::store
