// Record header, CDR and GDR.
#include <algorithm>

#include "format/records.h"

namespace cdfgate::engine::format {

bool parse_header(Bytes bytes, Layout layout, RecordHeader& out) {
    ByteReader r(bytes, layout);
    out.size = r.offset();
    out.type = r.i32();
    return !r.failed();
}

bool parse_cdr(Bytes record, Layout layout, Cdr& out) {
    ByteReader r(record, layout);
    r.offset();
    if (r.i32() != kCdr) return false;
    out.gdr_offset = r.offset();
    out.version = r.i32();
    out.release = r.i32();
    out.encoding = r.i32();
    out.flags = r.i32();
    r.skip(8);  // rfuA, rfuB
    out.increment = r.i32();
    out.identifier = r.i32();
    r.skip(4);  // rfuE
    if (r.failed()) return false;
    const auto field = r.bytes(r.remaining());
    const auto nul = std::find(field.begin(), field.end(), std::uint8_t{0});
    out.copyright.assign(field.begin(), nul);
    return true;
}

std::vector<std::uint8_t> serialize_cdr(const Cdr& cdr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    const std::size_t fixed = layout.v3 ? 56 : 48;
    w.offset(static_cast<std::int64_t>(fixed + 256));
    w.i32(kCdr);
    w.offset(cdr.gdr_offset);
    w.i32(cdr.version);
    w.i32(cdr.release);
    w.i32(cdr.encoding);
    w.i32(cdr.flags);
    w.i32(0);
    w.i32(0);
    w.i32(cdr.increment);
    w.i32(cdr.identifier);
    w.i32(-1);
    const std::size_t n = std::min<std::size_t>(cdr.copyright.size(), 256);
    w.bytes({reinterpret_cast<const std::uint8_t*>(cdr.copyright.data()), n});
    w.zeros(256 - n);
    return out;
}

bool parse_gdr(Bytes record, Layout layout, Gdr& out) {
    ByteReader r(record, layout);
    r.offset();
    if (r.i32() != kGdr) return false;
    out.rvdr_head = r.offset();
    out.zvdr_head = r.offset();
    out.adr_head = r.offset();
    out.eof = r.offset();
    out.nr_vars = r.i32();
    out.num_attr = r.i32();
    out.r_max_rec = r.i32();
    const std::int32_t r_num_dims = r.i32();
    out.nz_vars = r.i32();
    out.uir_head = r.offset();
    r.skip(4);  // rfuC
    out.leap_second_last_updated = r.i32();
    r.skip(4);  // rfuE
    if (r.failed() || r_num_dims < 0 || r_num_dims > 10) return false;
    out.r_dim_sizes.resize(static_cast<std::size_t>(r_num_dims));
    for (auto& size : out.r_dim_sizes) size = r.i32();
    return !r.failed();
}

std::vector<std::uint8_t> serialize_gdr(const Gdr& gdr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    const std::size_t fixed = layout.v3 ? 84 : 60;
    w.offset(static_cast<std::int64_t>(fixed + 4 * gdr.r_dim_sizes.size()));
    w.i32(kGdr);
    w.offset(gdr.rvdr_head);
    w.offset(gdr.zvdr_head);
    w.offset(gdr.adr_head);
    w.offset(gdr.eof);
    w.i32(gdr.nr_vars);
    w.i32(gdr.num_attr);
    w.i32(gdr.r_max_rec);
    w.i32(static_cast<std::int32_t>(gdr.r_dim_sizes.size()));
    w.i32(gdr.nz_vars);
    w.offset(gdr.uir_head);
    w.i32(0);
    w.i32(layout.v3 ? gdr.leap_second_last_updated : -1);
    w.i32(-1);
    for (const std::int32_t size : gdr.r_dim_sizes) w.i32(size);
    return out;
}

}  // namespace cdfgate::engine::format
