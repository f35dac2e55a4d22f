// The open file's metadata as objects: variables, attributes and entries. Values
// (entry values, pad values) are kept as stored, in the file's data encoding.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "format/records.h"
#include "io/file.h"
#include "store/compressed_stage.h"
#include "store/record_index.h"

namespace cdfgate::engine::store {

// Where a record lives in the file; offset 0 means not placed yet.
struct Placement {
    std::int64_t offset = 0;
    std::int64_t size = 0;
};

struct Entry {
    std::int32_t number = 0;
    std::int32_t data_type = 0;
    std::int32_t num_elems = 0;
    std::vector<std::uint8_t> value;
    Placement at;
};

struct Attribute {
    std::string name;
    std::int32_t scope = 1;         // as stored: 1, 2, or the old 3, 4
    std::vector<Entry> gr_entries;  // list order
    std::vector<Entry> z_entries;
    Placement at;

    bool is_global() const { return scope == 1 || scope == 3; }
    std::vector<Entry>& entries(bool z) { return z ? z_entries : gr_entries; }
    const std::vector<Entry>& entries(bool z) const { return z ? z_entries : gr_entries; }
    Entry* find_entry(bool z, std::int32_t number);
    const Entry* find_entry(bool z, std::int32_t number) const;
    std::int32_t max_entry(bool z) const;
};

struct Variable {
    // The descriptor as stored. vdr.num and vdr.next are rewritten on saving;
    // vdr.max_rec, vxr_head and vxr_tail belong to the data layer.
    format::Vdr vdr;
    Placement at;
    std::optional<format::Cpr> cpr;  // when vdr.flags has kVdrCompressed
    Placement cpr_at;
    std::int64_t reserve_percent = 0;
    // The record index in memory, loaded by the data layer on first access.
    RecordIndex index;
    // The block of a compressed variable being written (compressed_write.h).
    CompressedStage stage;
    // A multi-file CDF's file of this variable's values, once opened (multi_file.h).
    io::File values_file;

    bool z() const { return vdr.z; }
    bool rec_vary() const { return (vdr.flags & format::kVdrRecVary) != 0; }
    bool has_pad() const { return (vdr.flags & format::kVdrPadPresent) != 0; }
    bool compressed() const { return cpr.has_value() && cpr->c_type != 0; }
};

}  // namespace cdfgate::engine::store
