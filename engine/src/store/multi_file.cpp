#include "store/multi_file.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include "store/cdf_file.h"
#include "store/pad_value.h"
#include "store/slab_plan.h"
#include "store/stored_form.h"

namespace cdfgate::engine::store {
namespace {

constexpr std::int64_t kChunkBytes = std::int64_t{4} << 20;

std::size_t index_of(const CdfFile& cdf, const Variable& var) {
    const auto& list = cdf.variables(var.z());
    return static_cast<std::size_t>(&var - list.data());
}

// Opens the variable's file; create makes it when it is missing. present tells
// whether there is a file at all.
Status open_values(const CdfFile& cdf, Variable& var, bool create, bool& present) {
    present = var.values_file.is_open();
    if (present) return kOk;
    const std::string path = cdf.variable_file_path(var.z(), index_of(cdf, var));
    if (io::path_exists(path)) {
        if (!io::is_regular_file(path)) return VAR_OPEN_ERROR;
        CDFGATE_TRY(io::File::open(path, var.values_file));
    } else if (create) {
        if (io::File::create(path, var.values_file).failed()) return VAR_CREATE_ERROR;
    } else {
        return kOk;
    }
    present = true;
    return kOk;
}

struct MultiWriter {
    CdfFile& cdf;
    Variable& var;
    const DataShape& shape;
    bool positive_zeros;
    std::vector<std::uint8_t> pad;
    std::vector<std::uint8_t> chunk;

    std::uint64_t at(std::int64_t record) const {
        return static_cast<std::uint64_t>(record * shape.record_bytes);
    }

    Status pad_records(std::int64_t first, std::int64_t last) {
        if (first > last) return kOk;
        const std::int64_t per_chunk =
            std::clamp<std::int64_t>(kChunkBytes / shape.record_bytes, 1, last - first + 1);
        chunk.resize(static_cast<std::size_t>(per_chunk * shape.record_bytes));
        fill_values(chunk.data(), per_chunk * shape.record_values, pad);
        for (std::int64_t r = first; r <= last; r += per_chunk) {
            const std::int64_t n = std::min(per_chunk, last - r + 1);
            CDFGATE_TRY(var.values_file.write(
                at(r), {chunk.data(), static_cast<std::size_t>(n * shape.record_bytes)}));
        }
        return kOk;
    }

    // Records below first that the file does not hold yet take the pad.
    Status before(std::int64_t first) { return pad_records(var.vdr.max_rec + 1, first - 1); }

    Status whole_run(std::int64_t first, std::int64_t count, const std::uint8_t* values) {
        const std::int64_t per_chunk = std::max<std::int64_t>(kChunkBytes / shape.record_bytes, 1);
        for (std::int64_t done = 0; done < count;) {
            const std::int64_t n = std::min(per_chunk, count - done);
            const auto bytes = static_cast<std::size_t>(n * shape.record_bytes);
            chunk.assign(values + done * shape.record_bytes,
                         values + done * shape.record_bytes + bytes);
            to_stored_form(cdf, shape, chunk.data(), n * shape.record_values, positive_zeros);
            CDFGATE_TRY(var.values_file.write(at(first + done), {chunk.data(), bytes}));
            done += n;
        }
        return kOk;
    }

    Status one_box(const SlabPlan& plan, std::int64_t record, const std::uint8_t* values,
                   std::int64_t box_values) {
        std::vector<std::uint8_t> box(values, values + plan.box_bytes());
        to_stored_form(cdf, shape, box.data(), box_values, positive_zeros);
        std::vector<std::uint8_t> rec(static_cast<std::size_t>(shape.record_bytes));
        if (record <= var.vdr.max_rec) {
            CDFGATE_TRY(var.values_file.read(at(record), rec));
        } else {
            fill_values(rec.data(), shape.record_values, pad);
        }
        plan.scatter(box.data(), rec.data() + plan.span_begin());
        return var.values_file.write(at(record), rec);
    }
};

}  // namespace

Status read_multi_file_slab(const CdfFile& cdf, Variable& var, const Hyperslab& slab,
                            void* out_ptr) {
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    std::int64_t box_values = 0;
    CDFGATE_TRY(check_slab(shape, slab, box_values));
    const SlabPlan plan(shape, slab);
    bool present = false;
    CDFGATE_TRY(open_values(cdf, var, false, present));
    const std::int64_t max_rec = var.vdr.max_rec;
    auto* const out = static_cast<std::uint8_t*>(out_ptr);
    const std::int64_t box = plan.box_bytes();
    std::vector<std::uint8_t> pad;
    std::vector<std::uint8_t> rec;
    bool any_virtual = false;
    for (std::int64_t k = 0; k < slab.rec_count;) {
        std::int64_t record = slab.rec_start + k * slab.rec_interval;
        // Only the first record of a call maps to record 0 of a non-record-variant variable.
        if (!shape.rec_vary) record = k == 0 ? 0 : std::numeric_limits<std::int64_t>::max();
        std::uint8_t* const dst = out + k * box;
        if (record > max_rec) {
            if (pad.empty()) pad = stored_pad(cdf, var);
            fill_values(dst, box_values, pad);
            any_virtual = true;
            ++k;
            continue;
        }
        if (!present) return VAR_OPEN_ERROR;
        if (plan.whole_record() && slab.rec_interval == 1 && shape.rec_vary) {
            const std::int64_t n = std::min(slab.rec_count - k, max_rec - record + 1);
            CDFGATE_TRY(
                var.values_file.read(static_cast<std::uint64_t>(record * shape.record_bytes),
                                     {dst, static_cast<std::size_t>(n * shape.record_bytes)}));
            k += n;
            continue;
        }
        rec.resize(static_cast<std::size_t>(plan.span_end() - plan.span_begin()));
        CDFGATE_TRY(var.values_file.read(
            static_cast<std::uint64_t>(record * shape.record_bytes + plan.span_begin()), rec));
        plan.gather(rec.data(), dst);
        ++k;
    }
    to_host_form(cdf, shape, out, slab.rec_count * box_values);
    return any_virtual ? Status{VIRTUAL_RECORD_DATA} : kOk;
}

Status write_multi_file_slab(CdfFile& cdf, Variable& var, const Hyperslab& slab, const void* in,
                             bool positive_zeros) {
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    std::int64_t box_values = 0;
    CDFGATE_TRY(check_slab(shape, slab, box_values));
    const SlabPlan plan(shape, slab);
    bool present = false;
    CDFGATE_TRY(open_values(cdf, var, true, present));
    if (!var.values_file.writable()) return NO_WRITE_ACCESS;
    const std::int64_t box = plan.box_bytes();
    const auto [values, first, count, interval] = write_records(shape, slab, box, in);
    MultiWriter writer{cdf, var, shape, positive_zeros, stored_pad(cdf, var), {}};
    if (plan.whole_record() && interval == 1) {
        CDFGATE_TRY(writer.before(first));
        CDFGATE_TRY(writer.whole_run(first, count, values));
        var.vdr.max_rec =
            static_cast<std::int32_t>(std::max<std::int64_t>(var.vdr.max_rec, first + count - 1));
    } else {
        for (std::int64_t k = 0; k < count; ++k) {
            const std::int64_t record = first + k * interval;
            CDFGATE_TRY(writer.before(record));
            CDFGATE_TRY(writer.one_box(plan, record, values + k * box, box_values));
            var.vdr.max_rec =
                static_cast<std::int32_t>(std::max<std::int64_t>(var.vdr.max_rec, record));
        }
    }
    cdf.set_data_written();
    cdf.touch();
    return kOk;
}

Status write_multi_file_pads(CdfFile& cdf, Variable& var, std::int64_t count) {
    DataShape shape;
    CDFGATE_TRY(data_shape(cdf, var, shape));
    bool present = false;
    CDFGATE_TRY(open_values(cdf, var, true, present));
    if (!var.values_file.writable()) return NO_WRITE_ACCESS;
    const std::int64_t last = shape.rec_vary ? count - 1 : 0;
    MultiWriter writer{cdf, var, shape, false, stored_pad(cdf, var), {}};
    CDFGATE_TRY(writer.pad_records(0, last));
    var.vdr.max_rec = static_cast<std::int32_t>(last);
    cdf.set_data_written();
    cdf.touch();
    return kOk;
}

Status close_variable_file(Variable& var) {
    if (!var.values_file.is_open()) return VAR_ALREADY_CLOSED;
    var.values_file.close();
    return kOk;
}

}  // namespace cdfgate::engine::store
