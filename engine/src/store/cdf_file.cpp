#include "store/cdf_file.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "encoding/encodings.h"
#include "store/file_notice.h"
#include "store/variable_data.h"
#include "time/leap_second_table.h"

namespace cdfgate::engine::store {

CdfFile::~CdfFile() = default;

Status CdfFile::open(const std::string& path, bool validate, std::unique_ptr<CdfFile>& out) {
    std::unique_ptr<CdfFile> cdf(new CdfFile());
    cdf->path_ = path;
    CDFGATE_TRY(io::File::open(path, cdf->file_));
    CDFGATE_TRY(cdf->load(validate));
    out = std::move(cdf);
    return kOk;
}

Status CdfFile::create(const std::string& path, const CreateOptions& options,
                       std::unique_ptr<CdfFile>& out) {
    std::unique_ptr<CdfFile> cdf(new CdfFile());
    cdf->path_ = path;
    cdf->layout_.v3 = !options.backward;
    format::Cdr& cdr = cdf->cdr_;
    if (options.backward) {
        cdr.version = 2;
        cdr.release = 7;
        cdr.increment = 2;
    }
    cdr.encoding = static_cast<std::int32_t>(encoding::host_encoding());
    cdr.flags = format::kCdrRowMajor | format::kCdrSingleFile;
    cdr.copyright = kFileNotice;
    const std::int64_t cdr_size =
        static_cast<std::int64_t>(format::serialize_cdr(cdr, cdf->layout_).size());
    cdr.gdr_offset = 8 + cdr_size;
    cdf->gdr_.r_dim_sizes = options.r_dim_sizes;
    cdf->gdr_.leap_second_last_updated = options.backward ? -1 : time::leapSecondLastUpdated();
    cdf->gdr_size_ =
        static_cast<std::int64_t>(format::serialize_gdr(cdf->gdr_, cdf->layout_).size());
    cdf->space_ = SpaceMap(cdr.gdr_offset + cdf->gdr_size_, format::uir_min_size(cdf->layout_));
    CDFGATE_TRY(io::File::create(path, cdf->file_));
    cdf->modified_ = true;
    out = std::move(cdf);
    return kOk;
}

Status CdfFile::read_record(std::int64_t offset, std::vector<std::uint8_t>& out) const {
    return read_record_start(offset, std::numeric_limits<std::size_t>::max(), out);
}

Status CdfFile::read_record_start(std::int64_t offset, std::size_t limit,
                                  std::vector<std::uint8_t>& out) const {
    const auto file_size = static_cast<std::int64_t>(file_.size());
    const auto header = static_cast<std::int64_t>(layout_.header_size());
    if (offset < 8) return corrupted_status();
    if (offset > file_size - header) return CDF_READ_ERROR;
    std::vector<std::uint8_t> head(static_cast<std::size_t>(header));
    CDFGATE_TRY(file_.read(static_cast<std::uint64_t>(offset), head));
    format::RecordHeader h;
    if (!format::parse_header(head, layout_, h) || h.size < header) return corrupted_status();
    if (h.size > file_size - offset) return CDF_READ_ERROR;
    out.resize(std::min(static_cast<std::size_t>(h.size), std::max(limit, head.size())));
    return file_.read(static_cast<std::uint64_t>(offset), out);
}

Status CdfFile::write_record(std::int64_t offset, const std::vector<std::uint8_t>& bytes) {
    return file_.write(static_cast<std::uint64_t>(offset), bytes);
}

void CdfFile::place(Placement& at, std::int64_t size) {
    at.offset = space_.allocate(size);
    at.size = size;
}

void CdfFile::leave_image(const Placement& at, const std::vector<std::uint8_t>& image) {
    if (at.offset != 0 && static_cast<std::int64_t>(image.size()) == at.size) {
        (void)write_record(at.offset, image);
    }
}

void CdfFile::release(Placement& at) {
    if (at.offset != 0) space_.release(at.offset, at.size);
    at = Placement{};
}

Status CdfFile::add_variable(Variable variable) {
    const auto size =
        static_cast<std::int64_t>(format::serialize_vdr(variable.vdr, layout_).size());
    place(variable.at, size);
    auto& list = variables(variable.z());
    variable.vdr.num = static_cast<std::int32_t>(list.size());
    if (!single_file()) {
        // A multi-file CDF keeps the variable's values in a file of its own.
        const std::string var_path = variable_file_path(variable.z(), list.size());
        if (!io::path_exists(var_path)) CDFGATE_TRY(io::overwrite_file(var_path, {}));
    }
    list.push_back(std::move(variable));
    touch();
    return kOk;
}

void CdfFile::set_compression(Variable& variable, const format::Cpr& cpr) {
    if (cpr.c_type == 0) {
        variable.cpr.reset();
        release(variable.cpr_at);
        variable.vdr.flags &= ~format::kVdrCompressed;
        variable.vdr.cpr_offset = -1;
    } else {
        variable.cpr = cpr;
        variable.vdr.flags |= format::kVdrCompressed;
        if (variable.cpr_at.offset == 0) {
            place(variable.cpr_at,
                  static_cast<std::int64_t>(format::serialize_cpr(cpr, layout_).size()));
        }
        variable.vdr.cpr_offset = variable.cpr_at.offset;
    }
    touch();
}

void CdfFile::refit(Variable& variable) {
    const auto size =
        static_cast<std::int64_t>(format::serialize_vdr(variable.vdr, layout_).size());
    if (size != variable.at.size) {
        release(variable.at);
        place(variable.at, size);
    }
    touch();
}

Status CdfFile::delete_variable(bool z, std::size_t index) {
    auto& list = variables(z);
    if (index >= list.size()) return NO_SUCH_VAR;
    Variable& var = list[index];
    CDFGATE_TRY(release_variable_data(*this, var));
    leave_image(var.at, format::serialize_vdr(var.vdr, layout_));
    release(var.at);
    release(var.cpr_at);
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
    const auto number = static_cast<std::int32_t>(index);
    for (Attribute& attr : attrs_) {
        if (attr.is_global()) continue;
        auto& entries = attr.entries(z);
        for (auto it = entries.begin(); it != entries.end();) {
            if (it->number == number) {
                const std::size_t attr_index = static_cast<std::size_t>(&attr - attrs_.data());
                leave_image(it->at,
                            format::serialize_aedr(aedr_of(*it, attr_index, z, 0), layout_));
                release(it->at);
                it = entries.erase(it);
                continue;
            }
            if (it->number > number) --it->number;
            ++it;
        }
    }
    touch();
    return kOk;
}

Status CdfFile::add_attribute(Attribute attribute) {
    place(attribute.at, static_cast<std::int64_t>(layout_.v3 ? 324 : 116));
    attrs_.push_back(std::move(attribute));
    touch();
    return kOk;
}

Status CdfFile::delete_attribute(std::size_t index) {
    if (index >= attrs_.size()) return NO_SUCH_ATTR;
    Attribute& attr = attrs_[index];
    leave_image(attr.at, format::serialize_adr(adr_of(attr, index, 0), layout_));
    for (const bool z : {false, true}) {
        for (Entry& e : attr.entries(z)) {
            leave_image(e.at, format::serialize_aedr(aedr_of(e, index, z, 0), layout_));
            release(e.at);
        }
    }
    release(attr.at);
    attrs_.erase(attrs_.begin() + static_cast<std::ptrdiff_t>(index));
    touch();
    return kOk;
}

Status CdfFile::put_entry(std::size_t attr, bool z, std::int32_t number, std::int32_t data_type,
                          std::int32_t num_elems, std::vector<std::uint8_t> value) {
    if (attr >= attrs_.size()) return NO_SUCH_ATTR;
    const auto size = static_cast<std::int64_t>(format::aedr_size(value.size(), layout_));
    Entry* entry = attrs_[attr].find_entry(z, number);
    if (entry == nullptr) {
        auto& list = attrs_[attr].entries(z);
        list.push_back(Entry{number, 0, 0, {}, {}});
        entry = &list.back();
    }
    if (entry->at.size != size) {
        leave_image(entry->at, format::serialize_aedr(aedr_of(*entry, attr, z, 0), layout_));
        release(entry->at);
        place(entry->at, size);
    }
    entry->data_type = data_type;
    entry->num_elems = num_elems;
    entry->value = std::move(value);
    touch();
    return kOk;
}

Status CdfFile::delete_entry(std::size_t attr, bool z, std::int32_t number) {
    if (attr >= attrs_.size()) return NO_SUCH_ATTR;
    auto& list = attrs_[attr].entries(z);
    const auto it = std::find_if(list.begin(), list.end(),
                                 [number](const Entry& e) { return e.number == number; });
    if (it == list.end()) return NO_SUCH_ENTRY;
    leave_image(it->at, format::serialize_aedr(aedr_of(*it, attr, z, 0), layout_));
    release(it->at);
    list.erase(it);
    touch();
    return kOk;
}

Status CdfFile::close() {
    if (closed_) return kOk;
    Status status = kOk;
    if (modified_) status = save();
    file_.close();
    closed_ = true;
    return status.failed() ? Status{CDF_CLOSE_ERROR} : status;
}

std::string CdfFile::variable_file_path(bool z, std::size_t index) const {
    std::string base = path_;
    const std::string ext = base.size() > 4 ? base.substr(base.size() - 4) : "";
    if (ext == ".cdf" || ext == ".CDF") base.resize(base.size() - 4);
    return base + (z ? ".z" : ".v") + std::to_string(index);
}

Status CdfFile::remove() {
    file_.close();
    closed_ = true;
    Status status = io::remove_file(path_);
    for (const bool z : {false, true}) {
        for (std::size_t i = 0; i < variables(z).size(); ++i) {
            const std::string var_path = variable_file_path(z, i);
            if (io::path_exists(var_path)) (void)io::remove_file(var_path);
        }
    }
    return status;
}

}  // namespace cdfgate::engine::store
