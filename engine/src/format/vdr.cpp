// rVDR and zVDR.
#include "encoding/data_types.h"
#include "format/records.h"

namespace cdfgate::engine::format {

std::size_t vdr_fixed_size(bool z, std::size_t num_dims, Layout layout) {
    const std::size_t base = layout.v3 ? 340 : 128;
    return z ? base + 4 + 8 * num_dims : base + 4 * num_dims;
}

namespace {

// Version 2 files before 2.5 hold 128 more reserved bytes in an rVDR, before
// NumElems. Tells them apart by the record size the usual layout would have.
bool has_old_reserved_block(Bytes record, std::int32_t r_num_dims) {
    if (record.size() < 56 || r_num_dims < 0) return false;
    const auto flags = static_cast<std::int32_t>(encoding::load_be32(record.data() + 28));
    const auto type = static_cast<std::int32_t>(encoding::load_be32(record.data() + 12));
    const auto num_elems = static_cast<std::int32_t>(encoding::load_be32(record.data() + 48));
    std::size_t expected = 128 + 4 * static_cast<std::size_t>(r_num_dims);
    if (flags & kVdrPadPresent) {
        if (num_elems < 1) return true;
        expected += encoding::element_size(type) * static_cast<std::size_t>(num_elems);
    }
    return record.size() != expected && record.size() >= expected + 128;
}

}  // namespace

bool parse_vdr(Bytes record, Layout layout, std::int32_t r_num_dims, Vdr& out) {
    ByteReader r(record, layout);
    const bool old_block = !layout.v3 && record.size() > 8 &&
                           encoding::load_be32(record.data() + 4) == kRvdr &&
                           has_old_reserved_block(record, r_num_dims);
    r.offset();
    const std::int32_t type = r.i32();
    if (type != kRvdr && type != kZvdr) return false;
    out.z = type == kZvdr;
    out.next = r.offset();
    out.data_type = r.i32();
    out.max_rec = r.i32();
    out.vxr_head = r.offset();
    out.vxr_tail = r.offset();
    out.flags = r.i32();
    out.s_records = r.i32();
    r.skip(12);  // rfuB, rfuC, rfuF
    if (old_block) r.skip(128);
    out.num_elems = r.i32();
    out.num = r.i32();
    out.cpr_offset = r.offset();
    out.blocking_factor = r.i32();
    out.name = r.name();
    std::int32_t num_dims = r_num_dims;
    if (out.z) num_dims = r.i32();
    if (r.failed() || num_dims < 0 || num_dims > 10) return false;
    const auto n = static_cast<std::size_t>(num_dims);
    out.dim_sizes.clear();
    if (out.z) {
        out.dim_sizes.resize(n);
        for (auto& size : out.dim_sizes) size = r.i32();
    }
    out.dim_varys.resize(n);
    for (auto& vary : out.dim_varys) vary = r.i32();
    if (r.failed()) return false;
    out.pad.clear();
    if (out.flags & kVdrPadPresent) {
        // An unknown type is left for the caller's validation to judge.
        const std::size_t elem = encoding::element_size(out.data_type);
        if (elem == 0) return true;
        if (out.num_elems < 1) return false;
        const auto count = static_cast<std::size_t>(out.num_elems);
        if (count > r.remaining() / elem) return false;
        const auto pad = r.bytes(elem * count);
        out.pad.assign(pad.begin(), pad.end());
    }
    return !r.failed();
}

std::vector<std::uint8_t> serialize_vdr(const Vdr& vdr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    const std::size_t size = vdr_fixed_size(vdr.z, vdr.dim_varys.size(), layout) +
                             ((vdr.flags & kVdrPadPresent) ? vdr.pad.size() : 0);
    w.offset(static_cast<std::int64_t>(size));
    w.i32(vdr.z ? kZvdr : kRvdr);
    w.offset(vdr.next);
    w.i32(vdr.data_type);
    w.i32(vdr.max_rec);
    w.offset(vdr.vxr_head);
    w.offset(vdr.vxr_tail);
    w.i32(vdr.flags);
    w.i32(vdr.s_records);
    w.i32(0);
    w.i32(-1);
    w.i32(-1);
    w.i32(vdr.num_elems);
    w.i32(vdr.num);
    w.offset(vdr.cpr_offset);
    w.i32(vdr.blocking_factor);
    w.name(vdr.name);
    if (vdr.z) {
        w.i32(static_cast<std::int32_t>(vdr.dim_sizes.size()));
        for (const std::int32_t s : vdr.dim_sizes) w.i32(s);
    }
    for (const std::int32_t v : vdr.dim_varys) w.i32(v);
    if (vdr.flags & kVdrPadPresent) w.bytes(vdr.pad);
    return out;
}

}  // namespace cdfgate::engine::format
