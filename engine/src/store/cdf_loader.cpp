// Reading an existing file's metadata into memory. Every offset and size comes
// from the file and is checked before use; lists are walked with a visit limit.
#include <limits>
#include <set>

#include "codec/dispatch.h"
#include "encoding/data_types.h"
#include "encoding/encodings.h"
#include "store/cdf_file.h"
#include "store/checksum.h"
#include "store/whole_file.h"

namespace cdfgate::engine::store {
namespace {

// Follows a linked list of records from head, calling visit(offset, bytes) for each.
// Reads at most `read_limit` bytes of each record.
template <typename Visit>
Status walk_list(const CdfFile& cdf, std::int64_t head, Visit&& visit,
                 std::size_t read_limit = std::numeric_limits<std::size_t>::max()) {
    std::set<std::int64_t> seen;
    const std::int64_t limit = static_cast<std::int64_t>(cdf.file().size() / 8) + 1;
    std::vector<std::uint8_t> bytes;
    for (std::int64_t offset = head; offset != 0;) {
        if (!seen.insert(offset).second || static_cast<std::int64_t>(seen.size()) > limit) {
            return cdf.corrupted_status();
        }
        CDFGATE_TRY(cdf.read_record_start(offset, read_limit, bytes));
        std::int64_t next = 0;
        CDFGATE_TRY(visit(offset, bytes, next));
        offset = next;
    }
    return kOk;
}

// A known method with a parameter valid for it.
bool usable_compression(const format::Cpr& cpr) {
    const auto method = codec::method_of_type(cpr.c_type);
    return method && !cpr.parms.empty() && codec::valid_parameter(*method, cpr.parms[0]);
}

}  // namespace

Status CdfFile::load(bool validate) {
    if (file_.size() < 8) return CDF_READ_ERROR;
    std::uint8_t magic[8];
    CDFGATE_TRY(file_.read(0, magic));
    const std::uint32_t m1 = encoding::load_be32(magic);
    const std::uint32_t m2 = encoding::load_be32(magic + 4);
    if (m1 == format::kMagicV3) {
        layout_.v3 = true;
    } else if (m1 == format::kMagicV2 || m1 == format::kMagicV25) {
        layout_.v3 = false;
    } else {
        return NOT_A_CDF_OR_NOT_SUPPORTED;
    }
    if (m2 == format::kMagicCompressed) {
        CDFGATE_TRY(expand_whole_file(*this, file_, file_cpr_, file_cpr_percent_));
    } else if (m2 != format::kMagicUncompressed) {
        return NOT_A_CDF;
    }
    const Status corrupted = corrupted_status();
    std::vector<std::uint8_t> bytes;

    CDFGATE_TRY(read_record(8, bytes));
    if (!format::parse_cdr(bytes, layout_, cdr_)) return corrupted;
    if (!encoding::is_storable_encoding(cdr_.encoding) &&
        !(cdr_.encoding >= 17 && cdr_.encoding <= 21)) {
        return corrupted;
    }
    CDFGATE_TRY(read_record(cdr_.gdr_offset, bytes));
    if (!format::parse_gdr(bytes, layout_, gdr_)) return corrupted;
    gdr_size_ = static_cast<std::int64_t>(bytes.size());
    // The file may end before eof inside the unused room of its last CVVR (the
    // reference library does not write that room); validation checks that.
    if (gdr_.eof < 8) return CDF_READ_ERROR;
    for (const std::int32_t size : gdr_.r_dim_sizes) {
        if (size < 1) return corrupted;
    }
    space_ = SpaceMap(gdr_.eof, format::uir_min_size(layout_));
    if (validate) CDFGATE_TRY(validate_tiling());

    const auto r_num_dims = static_cast<std::int32_t>(gdr_.r_dim_sizes.size());
    for (const bool z : {false, true}) {
        const std::int64_t head = z ? gdr_.zvdr_head : gdr_.rvdr_head;
        CDFGATE_TRY(walk_list(
            *this, head, [&](std::int64_t offset, const auto& rec, std::int64_t& next) -> Status {
                Variable var;
                if (!format::parse_vdr(rec, layout_, r_num_dims, var.vdr) || var.vdr.z != z) {
                    return corrupted;
                }
                if (validate) {
                    if (!encoding::is_known_type(var.vdr.data_type) || var.vdr.num_elems < 1 ||
                        (!encoding::is_char_type(var.vdr.data_type) && var.vdr.num_elems != 1)) {
                        return corrupted;
                    }
                    for (const std::int32_t s : var.vdr.dim_sizes) {
                        if (s < 1) return corrupted;
                    }
                }
                var.at = {offset, static_cast<std::int64_t>(rec.size())};
                if ((var.vdr.flags & format::kVdrCompressed) && var.vdr.cpr_offset > 0) {
                    std::vector<std::uint8_t> cpr_bytes;
                    CDFGATE_TRY(read_record(var.vdr.cpr_offset, cpr_bytes));
                    format::Cpr cpr;
                    if (!format::parse_cpr(cpr_bytes, layout_, cpr)) return corrupted;
                    if (validate && !usable_compression(cpr)) return corrupted;
                    var.cpr = cpr;
                    var.cpr_at = {var.vdr.cpr_offset, static_cast<std::int64_t>(cpr_bytes.size())};
                }
                next = var.vdr.next;
                variables(z).push_back(std::move(var));
                return kOk;
            }));
    }

    CDFGATE_TRY(walk_list(
        *this, gdr_.adr_head,
        [&](std::int64_t offset, const auto& rec, std::int64_t& next) -> Status {
            format::Adr adr;
            if (!format::parse_adr(rec, layout_, adr)) return corrupted;
            Attribute attr;
            attr.name = adr.name;
            attr.scope = adr.scope;
            attr.at = {offset, static_cast<std::int64_t>(rec.size())};
            for (const bool z : {false, true}) {
                const std::int64_t head = z ? adr.az_head : adr.agr_head;
                CDFGATE_TRY(walk_list(
                    *this, head,
                    [&](std::int64_t e_offset, const auto& e_rec, std::int64_t& e_next) -> Status {
                        format::Aedr aedr;
                        if (!format::parse_aedr(e_rec, layout_, aedr) || aedr.z != z)
                            return corrupted;
                        attr.entries(z).push_back(
                            Entry{aedr.num,
                                  aedr.data_type,
                                  aedr.num_elems,
                                  std::move(aedr.value),
                                  {e_offset, static_cast<std::int64_t>(e_rec.size())}});
                        e_next = aedr.next;
                        return kOk;
                    }));
            }
            next = adr.next;
            attrs_.push_back(std::move(attr));
            return kOk;
        }));

    if (validate && (static_cast<std::size_t>(gdr_.nr_vars) != r_vars_.size() ||
                     static_cast<std::size_t>(gdr_.nz_vars) != z_vars_.size() ||
                     static_cast<std::size_t>(gdr_.num_attr) != attrs_.size())) {
        return corrupted;
    }

    // Unused records can be as large as the file: only their links are read.
    CDFGATE_TRY(walk_list(
        *this, gdr_.uir_head,
        [&](std::int64_t offset, const auto& rec, std::int64_t& next) -> Status {
            format::RecordHeader h;
            format::Uir uir;
            if (!format::parse_header(rec, layout_, h) || !format::parse_uir(rec, layout_, uir)) {
                return corrupted;
            }
            space_.release(offset, h.size);
            next = uir.next;
            return kOk;
        },
        static_cast<std::size_t>(format::uir_min_size(layout_))));

    if (layout_.v3 && m2 == format::kMagicUncompressed && (cdr_.flags & format::kCdrChecksum) &&
        (cdr_.flags & format::kCdrMd5)) {
        CDFGATE_TRY(verify_md5(file_, gdr_.eof));
    }
    return kOk;
}

Status CdfFile::check_short_end(std::int64_t offset, const format::RecordHeader& h) const {
    // Only the last record, a CVVR whose payload is all there.
    const auto file_size = static_cast<std::int64_t>(file_.size());
    const auto fixed = static_cast<std::int64_t>(layout_.header_size() + 4 + layout_.offset_size());
    if (h.type != format::kCvvr || offset + h.size != gdr_.eof || fixed > file_size - offset) {
        return CDF_READ_ERROR;
    }
    std::vector<std::uint8_t> head(static_cast<std::size_t>(fixed));
    CDFGATE_TRY(file_.read(static_cast<std::uint64_t>(offset), head));
    format::ByteReader r(head, layout_);
    r.skip(layout_.header_size() + 4);
    const std::int64_t c_size = r.offset();
    if (r.failed() || c_size < 0 || c_size > file_size - offset - fixed) return CDF_READ_ERROR;
    return kOk;
}

Status CdfFile::validate_tiling() const {
    const Status corrupted = corrupted_status();
    std::int64_t offset = 8;
    std::size_t adrs = 0, rvdrs = 0, zvdrs = 0;
    const auto header = static_cast<std::int64_t>(layout_.header_size());
    const auto file_size = static_cast<std::int64_t>(file_.size());
    std::vector<std::uint8_t> head(static_cast<std::size_t>(header));
    while (offset < gdr_.eof) {
        if (offset > gdr_.eof - header) return corrupted;
        CDFGATE_TRY(file_.read(static_cast<std::uint64_t>(offset), head));
        format::RecordHeader h;
        if (!format::parse_header(head, layout_, h)) return corrupted;
        if (h.size < header || h.size > gdr_.eof - offset) return corrupted;
        if (h.size > file_size - offset) CDFGATE_TRY(check_short_end(offset, h));
        switch (h.type) {
            case format::kAdr:
                ++adrs;
                break;
            case format::kRvdr:
                ++rvdrs;
                break;
            case format::kZvdr:
                ++zvdrs;
                break;
            case format::kCdr:
            case format::kGdr:
            case format::kAgrEdr:
            case format::kVxr:
            case format::kVvr:
            case format::kAzEdr:
            case format::kCcr:
            case format::kCpr:
            case format::kSpr:
            case format::kCvvr:
            case format::kUir:
                break;
            default:
                return corrupted;
        }
        offset += h.size;
    }
    if (adrs != static_cast<std::size_t>(gdr_.num_attr) ||
        rvdrs != static_cast<std::size_t>(gdr_.nr_vars) ||
        zvdrs != static_cast<std::size_t>(gdr_.nz_vars)) {
        return corrupted;
    }
    return kOk;
}

}  // namespace cdfgate::engine::store
