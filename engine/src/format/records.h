// The internal records of a CDF file as plain values, with their parsers and
// serializers. Parsers take exactly one record's bytes (from its RecordSize field)
// and return false when the bytes are malformed; they never read outside them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "format/layout.h"

namespace cdfgate::engine::format {

using Bytes = std::span<const std::uint8_t>;

// CDR flag bits.
inline constexpr std::int32_t kCdrRowMajor = 1;
inline constexpr std::int32_t kCdrSingleFile = 2;
inline constexpr std::int32_t kCdrChecksum = 4;
inline constexpr std::int32_t kCdrMd5 = 8;
inline constexpr std::int32_t kCdrOtherChecksum = 16;

// VDR flag bits.
inline constexpr std::int32_t kVdrRecVary = 1;
inline constexpr std::int32_t kVdrPadPresent = 2;
inline constexpr std::int32_t kVdrCompressed = 4;

struct RecordHeader {
    std::int64_t size = 0;
    std::int32_t type = 0;
};

struct Cdr {
    std::int64_t gdr_offset = 0;
    std::int32_t version = 3, release = 6, increment = 4;
    std::int32_t encoding = 6;
    std::int32_t flags = kCdrRowMajor | kCdrSingleFile;
    std::int32_t identifier = -1;
    std::string copyright;
};

struct Gdr {
    std::int64_t rvdr_head = 0, zvdr_head = 0, adr_head = 0, eof = 0;
    std::int32_t nr_vars = 0, num_attr = 0, r_max_rec = -1, nz_vars = 0;
    std::int64_t uir_head = 0;
    std::int32_t leap_second_last_updated = -1;
    std::vector<std::int32_t> r_dim_sizes;
};

struct Vdr {
    bool z = true;
    std::int64_t next = 0;
    std::int32_t data_type = 0, max_rec = -1;
    std::int64_t vxr_head = 0, vxr_tail = 0;
    std::int32_t flags = 0, s_records = 0, num_elems = 1, num = 0;
    std::int64_t cpr_offset = -1;
    std::int32_t blocking_factor = 0;
    std::string name;
    std::vector<std::int32_t> dim_sizes;  // zVDR only
    std::vector<std::int32_t> dim_varys;  // -1 or 0 per dimension
    std::vector<std::uint8_t> pad;        // present when flags has kVdrPadPresent
};

struct Adr {
    std::int64_t next = 0, agr_head = 0;
    std::int32_t scope = 1, num = 0, ngr_entries = 0, max_gr_entry = -1;
    std::int64_t az_head = 0;
    std::int32_t nz_entries = 0, max_z_entry = -1;
    std::string name;
};

struct Aedr {
    bool z = false;
    std::int64_t next = 0;
    std::int32_t attr_num = 0, data_type = 0, num = 0, num_elems = 0;
    std::vector<std::uint8_t> value;
};

struct Vxr {
    std::int64_t next = 0;
    std::int32_t n_used = 0;
    std::vector<std::int32_t> first, last;
    std::vector<std::int64_t> offset;
};

struct Cpr {
    std::int32_t c_type = 0;
    std::vector<std::int32_t> parms;
};

struct Uir {
    std::int64_t next = 0, prev = 0;
};

struct Ccr {
    std::int64_t cpr_offset = 0, u_size = 0;
    std::size_t data_start = 0;  // within the record
};

bool parse_header(Bytes bytes, Layout layout, RecordHeader& out);

bool parse_cdr(Bytes record, Layout layout, Cdr& out);
std::vector<std::uint8_t> serialize_cdr(const Cdr& cdr, Layout layout);

bool parse_gdr(Bytes record, Layout layout, Gdr& out);
std::vector<std::uint8_t> serialize_gdr(const Gdr& gdr, Layout layout);

// r_num_dims: the GDR's rNumDims, needed for rVDRs. pad_bytes: size of one pad value.
bool parse_vdr(Bytes record, Layout layout, std::int32_t r_num_dims, Vdr& out);
std::size_t vdr_fixed_size(bool z, std::size_t num_dims, Layout layout);
std::vector<std::uint8_t> serialize_vdr(const Vdr& vdr, Layout layout);

bool parse_adr(Bytes record, Layout layout, Adr& out);
std::vector<std::uint8_t> serialize_adr(const Adr& adr, Layout layout);

bool parse_aedr(Bytes record, Layout layout, Aedr& out);
std::size_t aedr_size(std::size_t value_bytes, Layout layout);
std::vector<std::uint8_t> serialize_aedr(const Aedr& aedr, Layout layout);

bool parse_vxr(Bytes record, Layout layout, Vxr& out);
std::vector<std::uint8_t> serialize_vxr(const Vxr& vxr, Layout layout);

bool parse_cpr(Bytes record, Layout layout, Cpr& out);
std::vector<std::uint8_t> serialize_cpr(const Cpr& cpr, Layout layout);

bool parse_uir(Bytes record, Layout layout, Uir& out);
// The header of a UIR of the given size (the bytes behind it are left as they
// are); sizes below the linked minimum give a bare, unlinked UIR.
std::vector<std::uint8_t> serialize_uir(const Uir& uir, std::int64_t size, Layout layout);
std::int64_t uir_min_size(Layout layout);

bool parse_ccr(Bytes record, Layout layout, Ccr& out);

}  // namespace cdfgate::engine::format
