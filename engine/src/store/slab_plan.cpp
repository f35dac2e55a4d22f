#include "store/slab_plan.h"

#include <cstring>

namespace cdfgate::engine::store {
namespace {

// Moves count runs of kRun bytes between a strided side and a packed side.
template <std::int64_t kRun, bool kGather>
void move_fixed(const std::uint8_t* from, std::uint8_t* to, std::int64_t count,
                std::int64_t stride) {
    for (std::int64_t i = 0; i < count; ++i) {
        if constexpr (kGather) {
            std::memcpy(to + i * kRun, from + i * stride, kRun);
        } else {
            std::memcpy(to + i * stride, from + i * kRun, kRun);
        }
    }
}

template <bool kGather>
void move_runs(const std::uint8_t* from, std::uint8_t* to, std::int64_t count, std::int64_t stride,
               std::int64_t run) {
    switch (run) {
        case 1:
            return move_fixed<1, kGather>(from, to, count, stride);
        case 2:
            return move_fixed<2, kGather>(from, to, count, stride);
        case 4:
            return move_fixed<4, kGather>(from, to, count, stride);
        case 8:
            return move_fixed<8, kGather>(from, to, count, stride);
        case 16:
            return move_fixed<16, kGather>(from, to, count, stride);
        default:
            break;
    }
    const auto bytes = static_cast<std::size_t>(run);
    for (std::int64_t i = 0; i < count; ++i) {
        if constexpr (kGather) {
            std::memcpy(to + i * run, from + i * stride, bytes);
        } else {
            std::memcpy(to + i * stride, from + i * run, bytes);
        }
    }
}

}  // namespace

SlabPlan::SlabPlan(const DataShape& shape, const Hyperslab& slab) {
    // Stored stride of each dimension, in values: the fastest varying dimension 1.
    std::array<std::int64_t, kMaxDims> stride{};
    std::int64_t step = 1;
    for (std::size_t k = 0; k < shape.num_dims; ++k) {
        const std::size_t d = shape.row_major ? shape.num_dims - 1 - k : k;
        if (!shape.varys[d]) continue;
        stride[d] = step;
        step *= shape.sizes[d];
    }
    const std::int64_t value = shape.value_bytes;
    std::int64_t values = 1;
    for (std::size_t k = 0; k < shape.num_dims; ++k) {
        const std::size_t d = shape.row_major ? k : shape.num_dims - 1 - k;
        base_ += slab.indices[d] * stride[d] * value;
        values *= slab.counts[d];
        if (slab.counts[d] > 1) {
            loops_[n_loops_++] = Loop{slab.counts[d], stride[d] * slab.intervals[d] * value};
        }
    }
    box_bytes_ = values * value;
    // Merge innermost loops into the contiguous run while they continue it.
    run_ = value;
    while (n_loops_ > 0 && loops_[n_loops_ - 1].stride == run_) {
        run_ *= loops_[n_loops_ - 1].count;
        --n_loops_;
    }
    span_end_ = base_ + run_;
    for (std::size_t l = 0; l < n_loops_; ++l) {
        span_end_ += (loops_[l].count - 1) * loops_[l].stride;
    }
    whole_ = n_loops_ == 0 && base_ == 0 && run_ == shape.record_bytes;
}

template <bool kGather>
void SlabPlan::walk(const std::uint8_t* from, std::uint8_t* to) const {
    // kGather: from is the record's span, to the box; otherwise the reverse.
    if (n_loops_ == 0) {
        if constexpr (kGather) {
            std::memcpy(to, from, static_cast<std::size_t>(run_));
        } else {
            std::memcpy(to, from, static_cast<std::size_t>(run_));
        }
        return;
    }
    const Loop inner = loops_[n_loops_ - 1];
    const std::size_t outer = n_loops_ - 1;
    std::array<std::int64_t, kMaxDims> at{};
    std::int64_t offset = 0;  // in the span
    std::int64_t packed = 0;  // in the box
    const std::int64_t inner_bytes = inner.count * run_;
    for (;;) {
        if constexpr (kGather) {
            move_runs<true>(from + offset, to + packed, inner.count, inner.stride, run_);
        } else {
            move_runs<false>(from + packed, to + offset, inner.count, inner.stride, run_);
        }
        packed += inner_bytes;
        std::size_t l = outer;
        while (l > 0) {
            --l;
            if (++at[l] < loops_[l].count) {
                offset += loops_[l].stride;
                break;
            }
            offset -= (loops_[l].count - 1) * loops_[l].stride;
            at[l] = 0;
            if (l == 0) return;
        }
        if (outer == 0) return;
    }
}

void SlabPlan::gather(const std::uint8_t* span, std::uint8_t* box) const {
    walk<true>(span, box);
}

void SlabPlan::scatter(const std::uint8_t* box, std::uint8_t* span) const {
    walk<false>(box, span);
}

WriteRecords write_records(const DataShape& shape, const Hyperslab& slab, std::int64_t box_bytes,
                           const void* in) {
    const auto* const values = static_cast<const std::uint8_t*>(in);
    if (!shape.rec_vary) return {values + (slab.rec_count - 1) * box_bytes, 0, 1, 1};
    return {values, slab.rec_start, slab.rec_count, slab.rec_interval};
}

}  // namespace cdfgate::engine::store
