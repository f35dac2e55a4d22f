// VXR, CPR, UIR and CCR.
#include "format/records.h"

namespace cdfgate::engine::format {

bool parse_vxr(Bytes record, Layout layout, Vxr& out) {
    ByteReader r(record, layout);
    r.offset();
    if (r.i32() != kVxr) return false;
    out.next = r.offset();
    const std::int32_t n = r.i32();
    out.n_used = r.i32();
    if (r.failed() || n < 1 || n > 1024 || out.n_used < 0 || out.n_used > n) return false;
    const auto count = static_cast<std::size_t>(n);
    out.first.resize(count);
    out.last.resize(count);
    out.offset.resize(count);
    for (auto& v : out.first) v = r.i32();
    for (auto& v : out.last) v = r.i32();
    for (auto& v : out.offset) v = r.offset();
    return !r.failed();
}

std::vector<std::uint8_t> serialize_vxr(const Vxr& vxr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    const std::size_t n = vxr.first.size();
    w.offset(static_cast<std::int64_t>((layout.v3 ? 28 : 20) + n * (8 + layout.offset_size())));
    w.i32(kVxr);
    w.offset(vxr.next);
    w.i32(static_cast<std::int32_t>(n));
    w.i32(vxr.n_used);
    for (const auto v : vxr.first) w.i32(v);
    for (const auto v : vxr.last) w.i32(v);
    for (const auto v : vxr.offset) w.offset(v);
    return out;
}

bool parse_cpr(Bytes record, Layout layout, Cpr& out) {
    ByteReader r(record, layout);
    r.offset();
    const std::int32_t type = r.i32();
    if (type != kCpr && type != kSpr) return false;
    out.c_type = r.i32();
    r.skip(4);
    const std::int32_t count = r.i32();
    if (r.failed() || count < 0 || count > 5) return false;
    out.parms.resize(static_cast<std::size_t>(count));
    for (auto& p : out.parms) p = r.i32();
    return !r.failed();
}

std::vector<std::uint8_t> serialize_cpr(const Cpr& cpr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    w.offset(static_cast<std::int64_t>((layout.v3 ? 24 : 20) + 4 * cpr.parms.size()));
    w.i32(kCpr);
    w.i32(cpr.c_type);
    w.i32(0);
    w.i32(static_cast<std::int32_t>(cpr.parms.size()));
    for (const auto p : cpr.parms) w.i32(p);
    return out;
}

std::int64_t uir_min_size(Layout layout) {
    return layout.v3 ? 28 : 16;
}

bool parse_uir(Bytes record, Layout layout, Uir& out) {
    ByteReader r(record, layout);
    r.offset();
    if (r.i32() != kUir) return false;
    out.next = r.offset();
    out.prev = r.offset();
    return !r.failed();
}

std::vector<std::uint8_t> serialize_uir(const Uir& uir, std::int64_t size, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    if (size < uir_min_size(layout)) {
        // Too small to link: size and type only, on no list.
        w.offset(size);
        w.i32(kUir);
        return out;
    }
    w.offset(size);
    w.i32(kUir);
    w.offset(uir.next);
    w.offset(uir.prev);
    return out;
}

bool parse_ccr(Bytes record, Layout layout, Ccr& out) {
    ByteReader r(record, layout);
    r.offset();
    if (r.i32() != kCcr) return false;
    out.cpr_offset = r.offset();
    out.u_size = r.offset();
    r.skip(4);
    out.data_start = r.position();
    return !r.failed();
}

}  // namespace cdfgate::engine::format
