// ADR, AgrEDR and AzEDR.
#include "encoding/data_types.h"
#include "format/records.h"

namespace cdfgate::engine::format {

bool parse_adr(Bytes record, Layout layout, Adr& out) {
    ByteReader r(record, layout);
    r.offset();
    if (r.i32() != kAdr) return false;
    out.next = r.offset();
    out.agr_head = r.offset();
    out.scope = r.i32();
    out.num = r.i32();
    out.ngr_entries = r.i32();
    out.max_gr_entry = r.i32();
    r.skip(4);
    out.az_head = r.offset();
    out.nz_entries = r.i32();
    out.max_z_entry = r.i32();
    r.skip(4);
    out.name = r.name();
    return !r.failed();
}

std::vector<std::uint8_t> serialize_adr(const Adr& adr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    w.offset(layout.v3 ? 324 : 116);
    w.i32(kAdr);
    w.offset(adr.next);
    w.offset(adr.agr_head);
    w.i32(adr.scope);
    w.i32(adr.num);
    w.i32(adr.ngr_entries);
    w.i32(adr.max_gr_entry);
    w.i32(0);
    w.offset(adr.az_head);
    w.i32(adr.nz_entries);
    w.i32(adr.max_z_entry);
    w.i32(-1);
    w.name(adr.name);
    return out;
}

std::size_t aedr_size(std::size_t value_bytes, Layout layout) {
    return (layout.v3 ? 56 : 48) + value_bytes;
}

bool parse_aedr(Bytes record, Layout layout, Aedr& out) {
    ByteReader r(record, layout);
    r.offset();
    const std::int32_t type = r.i32();
    if (type != kAgrEdr && type != kAzEdr) return false;
    out.z = type == kAzEdr;
    out.next = r.offset();
    out.attr_num = r.i32();
    out.data_type = r.i32();
    out.num = r.i32();
    out.num_elems = r.i32();
    r.skip(20);  // NumStrings, rfuB..rfuE
    if (r.failed()) return false;
    const std::size_t elem = encoding::element_size(out.data_type);
    if (elem == 0 || out.num_elems < 1) return false;
    const auto count = static_cast<std::size_t>(out.num_elems);
    if (count > r.remaining() / elem) return false;
    const auto value = r.bytes(elem * count);
    out.value.assign(value.begin(), value.end());
    return !r.failed();
}

std::vector<std::uint8_t> serialize_aedr(const Aedr& aedr, Layout layout) {
    std::vector<std::uint8_t> out;
    ByteWriter w(out, layout);
    w.offset(static_cast<std::int64_t>(aedr_size(aedr.value.size(), layout)));
    w.i32(aedr.z ? kAzEdr : kAgrEdr);
    w.offset(aedr.next);
    w.i32(aedr.attr_num);
    w.i32(aedr.data_type);
    w.i32(aedr.num);
    w.i32(aedr.num_elems);
    w.i32(0);
    w.i32(0);
    w.i32(0);
    w.i32(-1);
    w.i32(-1);
    w.bytes(aedr.value);
    return out;
}

}  // namespace cdfgate::engine::format
