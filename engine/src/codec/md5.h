#pragma once

#include <nettle/md5.h>

#include <array>
#include <cstdint>

#include "codec/bytes.h"

namespace cdfgate::engine::codec {

using Md5Digest = std::array<std::uint8_t, 16>;

// Incremental MD5: feed the file in ranges, then take the digest.
class Md5 {
  public:
    Md5() noexcept;

    void update(ByteView data) noexcept;

    // The digest of everything fed so far; the object starts afresh afterwards.
    Md5Digest finish() noexcept;

  private:
    md5_ctx ctx_;
};

// Digest of one buffer.
Md5Digest md5_of(ByteView data) noexcept;

}  // namespace cdfgate::engine::codec
