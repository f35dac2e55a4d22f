#include "codec/md5.h"

namespace cdfgate::engine::codec {

Md5::Md5() noexcept {
    md5_init(&ctx_);
}

void Md5::update(ByteView data) noexcept {
    md5_update(&ctx_, data.size(), data.data());
}

Md5Digest Md5::finish() noexcept {
    Md5Digest d{};
    md5_digest(&ctx_, d.size(), d.data());
    return d;
}

Md5Digest md5_of(ByteView data) noexcept {
    Md5 m;
    m.update(data);
    return m.finish();
}

}  // namespace cdfgate::engine::codec
