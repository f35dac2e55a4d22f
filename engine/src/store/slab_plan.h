// Where the values of one record's box lie in a stored record and in the caller's
// buffer. The box is walked as a few nested loops over byte strides; adjacent
// values that are contiguous in the record merge into one copy, so a whole record
// is one memcpy and a strided box an inner loop of fixed-size moves. Dimensions
// that do not vary have stride 0: reads repeat their one stored value, writes
// leave the last value given.
#pragma once

#include <array>
#include <cstdint>

#include "store/data_shape.h"

namespace cdfgate::engine::store {

class SlabPlan {
  public:
    // slab must have passed check_slab for shape.
    SlabPlan(const DataShape& shape, const Hyperslab& slab);

    std::int64_t box_bytes() const { return box_bytes_; }
    // The box is the whole stored record in stored order: a plain copy.
    bool whole_record() const { return whole_; }
    // Bytes [span_begin, span_end) of the stored record hold every value of the box.
    std::int64_t span_begin() const { return base_; }
    std::int64_t span_end() const { return span_end_; }

    // Copies the box out of a stored record; span points at the record's byte
    // span_begin() (so a caller may hold only the span).
    void gather(const std::uint8_t* span, std::uint8_t* box) const;
    // Copies the box into a stored record, span as for gather.
    void scatter(const std::uint8_t* box, std::uint8_t* span) const;

  private:
    struct Loop {
        std::int64_t count = 1;
        std::int64_t stride = 0;  // bytes in the stored record
    };
    template <bool kGather>
    void walk(const std::uint8_t* from, std::uint8_t* to) const;

    std::array<Loop, kMaxDims> loops_{};
    std::size_t n_loops_ = 0;
    std::int64_t run_ = 0;  // contiguous bytes moved per innermost step
    std::int64_t base_ = 0;
    std::int64_t span_end_ = 0;
    std::int64_t box_bytes_ = 0;
    bool whole_ = false;
};

// The records a write goes to and the caller's values for the first of them. A
// non-record-variant variable has the one record 0: of several boxes given, the
// last one wins.
struct WriteRecords {
    const std::uint8_t* values = nullptr;
    std::int64_t first = 0;
    std::int64_t count = 1;
    std::int64_t interval = 1;
};
WriteRecords write_records(const DataShape& shape, const Hyperslab& slab, std::int64_t box_bytes,
                           const void* in);

}  // namespace cdfgate::engine::store
