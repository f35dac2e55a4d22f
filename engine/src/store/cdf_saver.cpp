// Writing the metadata back: every descriptor at its place, freed blocks as UIRs,
// then GDR, CDR, magic numbers and the optional digest or whole-file compression.
#include <algorithm>

#include "store/cdf_file.h"
#include "store/checksum.h"
#include "store/compressed_write.h"
#include "store/whole_file.h"

namespace cdfgate::engine::store {
namespace {

template <typename T>
std::int64_t next_offset(const std::vector<T>& list, std::size_t i) {
    return i + 1 < list.size() ? list[i + 1].at.offset : 0;
}

}  // namespace

format::Aedr aedr_of(const Entry& entry, std::size_t attr_index, bool z, std::int64_t next) {
    format::Aedr aedr;
    aedr.z = z;
    aedr.next = next;
    aedr.attr_num = static_cast<std::int32_t>(attr_index);
    aedr.data_type = entry.data_type;
    aedr.num = entry.number;
    aedr.num_elems = entry.num_elems;
    aedr.value = entry.value;
    return aedr;
}

format::Adr adr_of(const Attribute& attr, std::size_t index, std::int64_t next) {
    format::Adr adr;
    adr.next = next;
    adr.scope = attr.scope;
    adr.num = static_cast<std::int32_t>(index);
    adr.name = attr.name;
    for (const bool z : {false, true}) {
        const auto& entries = attr.entries(z);
        (z ? adr.az_head : adr.agr_head) = entries.empty() ? 0 : entries.front().at.offset;
        (z ? adr.nz_entries : adr.ngr_entries) = static_cast<std::int32_t>(entries.size());
        (z ? adr.max_z_entry : adr.max_gr_entry) = attr.max_entry(z);
    }
    return adr;
}

Status CdfFile::save() {
    if (!file_.writable()) return CDF_WRITE_ERROR;
    const format::Layout layout = layout_;
    // Blocks of compressed variables still being written go to the file first.
    const Status flushed = flush_stages(*this);
    CDFGATE_TRY(flushed);

    // Descriptors read in an older layout are written in the current one.
    for (const bool z : {false, true}) {
        for (Variable& var : variables(z)) refit(var);
    }
    for (const bool z : {false, true}) {
        auto& list = variables(z);
        for (std::size_t i = 0; i < list.size(); ++i) {
            format::Vdr& vdr = list[i].vdr;
            vdr.num = static_cast<std::int32_t>(i);
            vdr.next = next_offset(list, i);
            if (list[i].cpr) {
                if (list[i].cpr_at.offset == 0) {
                    place(list[i].cpr_at, static_cast<std::int64_t>(
                                              format::serialize_cpr(*list[i].cpr, layout).size()));
                }
                vdr.cpr_offset = list[i].cpr_at.offset;
                CDFGATE_TRY(write_record(list[i].cpr_at.offset,
                                         format::serialize_cpr(*list[i].cpr, layout)));
            }
            CDFGATE_TRY(write_record(list[i].at.offset, format::serialize_vdr(vdr, layout)));
        }
    }

    for (std::size_t a = 0; a < attrs_.size(); ++a) {
        Attribute& attr = attrs_[a];
        for (const bool z : {false, true}) {
            const auto& entries = attr.entries(z);
            for (std::size_t i = 0; i < entries.size(); ++i) {
                CDFGATE_TRY(
                    write_record(entries[i].at.offset,
                                 format::serialize_aedr(
                                     aedr_of(entries[i], a, z, next_offset(entries, i)), layout)));
            }
        }
        CDFGATE_TRY(
            write_record(attr.at.offset,
                         format::serialize_adr(adr_of(attr, a, next_offset(attrs_, a)), layout)));
    }

    // Freed blocks: linked UIRs in ascending order; blocks too small stay unlinked.
    std::vector<std::pair<std::int64_t, std::int64_t>> linked;
    for (const auto& [offset, size] : space_.free_blocks()) {
        if (size >= format::uir_min_size(layout)) {
            linked.emplace_back(offset, size);
        } else {
            CDFGATE_TRY(write_record(offset, format::serialize_uir({}, size, layout)));
        }
    }
    for (std::size_t i = 0; i < linked.size(); ++i) {
        format::Uir uir;
        uir.next = i + 1 < linked.size() ? linked[i + 1].first : 0;
        uir.prev = i > 0 ? linked[i - 1].first : 0;
        CDFGATE_TRY(
            write_record(linked[i].first, format::serialize_uir(uir, linked[i].second, layout)));
    }

    gdr_.rvdr_head = r_vars_.empty() ? 0 : r_vars_.front().at.offset;
    gdr_.zvdr_head = z_vars_.empty() ? 0 : z_vars_.front().at.offset;
    gdr_.adr_head = attrs_.empty() ? 0 : attrs_.front().at.offset;
    gdr_.nr_vars = static_cast<std::int32_t>(r_vars_.size());
    gdr_.nz_vars = static_cast<std::int32_t>(z_vars_.size());
    gdr_.num_attr = static_cast<std::int32_t>(attrs_.size());
    gdr_.r_max_rec = -1;
    for (const Variable& v : r_vars_) gdr_.r_max_rec = std::max(gdr_.r_max_rec, v.vdr.max_rec);
    gdr_.uir_head = linked.empty() ? 0 : linked.front().first;
    gdr_.eof = space_.eof();
    CDFGATE_TRY(write_record(cdr_.gdr_offset, format::serialize_gdr(gdr_, layout)));

    if (layout.v3) {
        cdr_.version = 3;
        cdr_.release = 6;
        cdr_.increment = 4;
    }
    CDFGATE_TRY(write_record(8, format::serialize_cdr(cdr_, layout)));
    std::vector<std::uint8_t> magic(8);
    encoding::store_be32(magic.data(), layout.v3 ? format::kMagicV3 : format::kMagicV2);
    encoding::store_be32(magic.data() + 4, format::kMagicUncompressed);
    CDFGATE_TRY(write_record(0, magic));

    const bool md5 =
        layout.v3 && (cdr_.flags & format::kCdrChecksum) && (cdr_.flags & format::kCdrMd5);
    if (file_cpr_.c_type != 0) {
        CDFGATE_TRY(file_.truncate(static_cast<std::uint64_t>(gdr_.eof)));
        CDFGATE_TRY(compress_whole_file(file_, gdr_.eof, file_cpr_, layout, md5, path_));
        return flushed;
    }
    if (md5) CDFGATE_TRY(write_md5(file_, gdr_.eof));
    CDFGATE_TRY(file_.truncate(static_cast<std::uint64_t>(gdr_.eof + (md5 ? 16 : 0))));
    return flushed;
}

}  // namespace cdfgate::engine::store
