// An open CDF: its file, header records, variables, attributes and free space.
// Metadata is held in memory and written back when the file is closed; variable
// data live in the file and are reached through the data layer (see README.md).
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "format/records.h"
#include "io/file.h"
#include "store/model.h"
#include "store/space_map.h"

namespace cdfgate::engine::store {

struct CreateOptions {
    bool backward = false;  // write a version 2.7 file
    std::vector<std::int32_t> r_dim_sizes;
};

// The descriptors of an attribute and an entry as they are saved.
format::Adr adr_of(const Attribute& attr, std::size_t index, std::int64_t next);
format::Aedr aedr_of(const Entry& entry, std::size_t attr_index, bool z, std::int64_t next);

class CdfFile {
  public:
    // Opens the CDF stored at path (the name already resolved to a file).
    static Status open(const std::string& path, bool validate, std::unique_ptr<CdfFile>& out);
    // Creates path, which must not exist.
    static Status create(const std::string& path, const CreateOptions& options,
                         std::unique_ptr<CdfFile>& out);

    CdfFile(const CdfFile&) = delete;
    CdfFile& operator=(const CdfFile&) = delete;
    ~CdfFile();

    // Writes everything if anything changed, then closes the file.
    Status close();
    // Closes without saving and removes the file and any variable files.
    Status remove();

    const std::string& path() const { return path_; }
    // The file holding a variable's values in a multi-file CDF: <base>.z<n> / .v<n>.
    std::string variable_file_path(bool z, std::size_t index) const;
    format::Layout layout() const { return layout_; }
    bool v3() const { return layout_.v3; }
    // Status for a file whose records do not hang together.
    long corrupted_status() const { return layout_.v3 ? CORRUPTED_V3_CDF : CORRUPTED_V2_CDF; }

    format::Cdr& cdr() { return cdr_; }
    const format::Cdr& cdr() const { return cdr_; }
    format::Gdr& gdr() { return gdr_; }
    const format::Gdr& gdr() const { return gdr_; }
    long encoding() const { return cdr_.encoding; }
    bool row_major() const { return (cdr_.flags & format::kCdrRowMajor) != 0; }
    bool single_file() const { return (cdr_.flags & format::kCdrSingleFile) != 0; }
    // Whole-file compression as stored (type 0 when none).
    const format::Cpr& file_compression() const { return file_cpr_; }
    void set_file_compression(const format::Cpr& cpr) {
        file_cpr_ = cpr;
        file_cpr_percent_ = 0;
        touch();
    }
    // Compressed size as a whole percentage of the expanded image (0 until written).
    long file_compression_percent() const { return file_cpr_percent_; }

    std::vector<Variable>& variables(bool z) { return z ? z_vars_ : r_vars_; }
    const std::vector<Variable>& variables(bool z) const { return z ? z_vars_ : r_vars_; }
    std::vector<Attribute>& attributes() { return attrs_; }
    const std::vector<Attribute>& attributes() const { return attrs_; }

    io::File& file() { return file_; }
    const io::File& file() const { return file_; }
    SpaceMap& space() { return space_; }

    // Records that something changed: the file is saved on close.
    void touch() { modified_ = true; }
    bool modified() const { return modified_; }
    // True once a variable value was written (fixes the majority).
    bool data_written() const { return data_written_; }
    void set_data_written() { data_written_ = true; }

    // Metadata changes that keep the records consistent.
    Status add_variable(Variable variable);
    Status delete_variable(bool z, std::size_t index);
    Status add_attribute(Attribute attribute);
    Status delete_attribute(std::size_t index);
    // Creates or replaces an entry; the value is in the file's encoding.
    Status put_entry(std::size_t attr, bool z, std::int32_t number, std::int32_t data_type,
                     std::int32_t num_elems, std::vector<std::uint8_t> value);
    Status delete_entry(std::size_t attr, bool z, std::int32_t number);
    // Sets or clears a variable's compression; its CPR is placed at once.
    void set_compression(Variable& variable, const format::Cpr& cpr);
    // Moves a descriptor whose size changed to a place that fits it.
    void refit(Variable& variable);

    // Reads one whole record at offset, checking that it lies inside the file.
    Status read_record(std::int64_t offset, std::vector<std::uint8_t>& out) const;
    // The same, but only its first `limit` bytes: for records whose size is not bounded
    // by their contents (unused space).
    Status read_record_start(std::int64_t offset, std::size_t limit,
                             std::vector<std::uint8_t>& out) const;

  private:
    CdfFile() = default;

    Status load(bool validate);
    Status validate_tiling() const;
    // A record reaching past the end of the file: allowed for a last CVVR whose
    // payload is there (its unused room need not be).
    Status check_short_end(std::int64_t offset, const format::RecordHeader& h) const;
    Status save();
    Status write_record(std::int64_t offset, const std::vector<std::uint8_t>& bytes);
    void place(Placement& at, std::int64_t size);
    // Writes a record's last contents before its space is freed: a UIR keeps
    // the bytes behind its header.
    void leave_image(const Placement& at, const std::vector<std::uint8_t>& image);
    void release(Placement& at);

    std::string path_;
    io::File file_;
    format::Layout layout_;
    format::Cdr cdr_;
    format::Gdr gdr_;
    format::Cpr file_cpr_;
    long file_cpr_percent_ = 0;
    std::int64_t gdr_size_ = 0;
    std::vector<Variable> r_vars_;
    std::vector<Variable> z_vars_;
    std::vector<Attribute> attrs_;
    SpaceMap space_;
    bool modified_ = false;
    bool data_written_ = false;
    bool closed_ = false;
};

}  // namespace cdfgate::engine::store
