#include "store/variable_data.h"

#include <algorithm>
#include <set>
#include <vector>

namespace cdfgate::engine::store {
namespace {

struct Walker {
    const CdfFile& cdf;
    const std::function<Status(const IndexSlot&)>& visit;
    const std::function<void(std::int64_t, std::int64_t)>& on_vxr;
    std::set<std::int64_t> seen;
    std::size_t budget;

    Status chain(std::int64_t head, int depth) {
        if (depth > 16) return cdf.corrupted_status();
        std::vector<std::uint8_t> bytes;
        for (std::int64_t offset = head; offset != 0;) {
            if (!seen.insert(offset).second || budget == 0) return cdf.corrupted_status();
            --budget;
            CDFGATE_TRY(cdf.read_record(offset, bytes));
            format::Vxr vxr;
            if (!format::parse_vxr(bytes, cdf.layout(), vxr)) return cdf.corrupted_status();
            if (on_vxr) on_vxr(offset, static_cast<std::int64_t>(bytes.size()));
            for (std::size_t i = 0; i < static_cast<std::size_t>(vxr.n_used); ++i) {
                CDFGATE_TRY(slot(vxr.first[i], vxr.last[i], vxr.offset[i], depth));
            }
            offset = vxr.next;
        }
        return kOk;
    }

    Status slot(std::int32_t first, std::int32_t last, std::int64_t target, int depth) {
        if (first < 0 || last < first) return cdf.corrupted_status();
        std::vector<std::uint8_t> head(cdf.layout().header_size());
        const auto file_size = static_cast<std::int64_t>(cdf.file().size());
        if (target < 8 || target > file_size - static_cast<std::int64_t>(head.size())) {
            return CDF_READ_ERROR;
        }
        CDFGATE_TRY(cdf.file().read(static_cast<std::uint64_t>(target), head));
        format::RecordHeader h;
        if (!format::parse_header(head, cdf.layout(), h)) return cdf.corrupted_status();
        if (h.type == format::kVxr) return chain(target, depth + 1);
        if (h.type != format::kVvr && h.type != format::kCvvr) return cdf.corrupted_status();
        // A CVVR may end past the end of the file inside its unused room.
        if (h.size < static_cast<std::int64_t>(head.size()) ||
            (h.type == format::kVvr && h.size > file_size - target)) {
            return CDF_READ_ERROR;
        }
        return visit(IndexSlot{first, last, target, h.type, h.size});
    }
};

}  // namespace

Status walk_index(const CdfFile& cdf, const Variable& var,
                  const std::function<Status(const IndexSlot&)>& visit,
                  const std::function<void(std::int64_t, std::int64_t)>& on_vxr) {
    if (!cdf.single_file() || var.vdr.vxr_head == 0) return kOk;
    Walker walker{cdf, visit, on_vxr, {}, cdf.file().size() / 16 + 1};
    return walker.chain(var.vdr.vxr_head, 0);
}

Status count_records(const CdfFile& cdf, const Variable& var, std::int64_t& count) {
    const std::int64_t max_rec = var.vdr.max_rec;
    if (var.vdr.s_records == 0 || !cdf.single_file()) {
        count = max_rec + 1;
        return kOk;
    }
    std::int64_t n = 0;
    if (var.stage.active) {
        // A compressed block being written is in the index in memory only.
        for (const Block& b : var.index.blocks()) {
            const std::int64_t last = std::min(b.last, max_rec);
            if (last >= b.first) n += last - b.first + 1;
        }
        count = n;
        return kOk;
    }
    CDFGATE_TRY(walk_index(cdf, var, [&](const IndexSlot& s) -> Status {
        const std::int64_t last = std::min<std::int64_t>(s.last, max_rec);
        if (last >= s.first) n += last - s.first + 1;
        return kOk;
    }));
    count = n;
    return kOk;
}

Status allocated_records(const CdfFile& cdf, const Variable& var, std::int64_t& count,
                         std::int64_t& max_allocated) {
    if (!cdf.single_file()) {
        count = var.vdr.max_rec + 1;
        max_allocated = var.vdr.max_rec;
        return kOk;
    }
    if (var.stage.active) {
        count = var.index.allocated_count();
        max_allocated = var.index.max_allocated();
        return kOk;
    }
    std::int64_t n = 0, max = -1;
    CDFGATE_TRY(walk_index(cdf, var, [&](const IndexSlot& s) -> Status {
        n += static_cast<std::int64_t>(s.last) - s.first + 1;
        max = std::max<std::int64_t>(max, s.last);
        return kOk;
    }));
    count = n;
    max_allocated = max;
    return kOk;
}

Status release_variable_data(CdfFile& cdf, Variable& var) {
    std::vector<std::pair<std::int64_t, std::int64_t>> blocks;
    CDFGATE_TRY(walk_index(
        cdf, var,
        [&](const IndexSlot& s) -> Status {
            blocks.emplace_back(s.offset, s.size);
            return kOk;
        },
        [&](std::int64_t offset, std::int64_t size) { blocks.emplace_back(offset, size); }));
    for (const auto& [offset, size] : blocks) cdf.space().release(offset, size);
    var.vdr.vxr_head = 0;
    var.vdr.vxr_tail = 0;
    var.vdr.max_rec = -1;
    return kOk;
}

}  // namespace cdfgate::engine::store
