#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "codec/bytes.h"
#include "codec/dispatch.h"

namespace cdfgate::engine::codec::testing {

using Bytes = std::vector<std::uint8_t>;

// Whole content of a file under the shared data folder; throws (failing the test) when
// the file cannot be read.
Bytes read_shared(const std::string& relative_path);

// A raw vector: input block and the reference payload.
struct RawVector {
    std::string name;
    Bytes in;
    Bytes out;
};

// Entries of a vectors_*.txt file (name:, source:, in:, out: lines); throws when the
// file is missing or malformed.
std::vector<RawVector> read_vectors(const std::string& relative_path);

Bytes from_hex(const std::string& hex);

std::string method_name(Method m);

// Deterministic pseudo-random bytes.
Bytes random_bytes(std::size_t n, std::uint32_t seed);

}  // namespace cdfgate::engine::codec::testing
