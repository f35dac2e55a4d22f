#include "store/checksum.h"

#include <algorithm>
#include <vector>

#include "codec/md5.h"

namespace cdfgate::engine::store {
namespace {

Status digest_of(const io::File& file, std::int64_t eof, codec::Md5Digest& out) {
    codec::Md5 md5;
    std::vector<std::uint8_t> chunk(1 << 20);
    for (std::int64_t at = 0; at < eof;) {
        const auto n = static_cast<std::size_t>(
            std::min<std::int64_t>(eof - at, static_cast<std::int64_t>(chunk.size())));
        CDFGATE_TRY(file.read(static_cast<std::uint64_t>(at), {chunk.data(), n}));
        md5.update({chunk.data(), n});
        at += static_cast<std::int64_t>(n);
    }
    out = md5.finish();
    return kOk;
}

}  // namespace

Status verify_md5(const io::File& file, std::int64_t eof) {
    if (eof < 0 || static_cast<std::uint64_t>(eof) + 16 > file.size()) return CHECKSUM_ERROR;
    codec::Md5Digest digest{};
    CDFGATE_TRY(digest_of(file, eof, digest));
    codec::Md5Digest stored{};
    CDFGATE_TRY(file.read(static_cast<std::uint64_t>(eof), stored));
    return digest == stored ? kOk : Status{CHECKSUM_ERROR};
}

Status write_md5(io::File& file, std::int64_t eof) {
    codec::Md5Digest digest{};
    CDFGATE_TRY(digest_of(file, eof, digest));
    return file.write(static_cast<std::uint64_t>(eof), digest);
}

}  // namespace cdfgate::engine::store
