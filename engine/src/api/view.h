// How variables and entries appear through CDFlib in the current zMode: in zMode 2
// the rVariables are zVariables numbered first, and rEntry n is zEntry n.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "cdf.h"

#include "api/open_cdf.h"

namespace cdfgate::engine::api {

struct VarRef {
    bool z = true;
    std::size_t index = 0;
};

// Number of variables the zVAR_ items see.
std::size_t zvar_count(const OpenCdf& cdf);
// The variable behind a zVAR_ number, if it exists.
std::optional<VarRef> zvar_ref(const OpenCdf& cdf, long number);
// The zVAR_ number of a stored variable.
long zvar_number(const OpenCdf& cdf, VarRef ref);

store::Variable& variable(OpenCdf& cdf, VarRef ref);
VarSelection& selection(OpenCdf& cdf, VarRef ref);

// The shape seen through the zVAR_ items: zMode 2 hides the non-varying
// dimensions of rVariables; rVariables take the file's rDimensions.
// Shapes are built on every inquiry, so they keep their at most CDF_MAX_DIMS
// values in place instead of on the heap.
template <typename T>
class DimList {
  public:
    // Values past the capacity are dropped; parsing and creation keep every
    // variable within CDF_MAX_DIMS dimensions.
    void push_back(T value) {
        if (size_ < values_.size()) values_[size_++] = value;
    }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    T operator[](std::size_t i) const { return values_[i]; }
    const T* begin() const { return values_.data(); }
    const T* end() const { return values_.data() + size_; }

  private:
    std::array<T, CDF_MAX_DIMS> values_{};
    std::size_t size_ = 0;
};

struct Shape {
    DimList<long> sizes;
    DimList<long> varys;   // VARY or NOVARY
    DimList<bool> stored;  // per full dimension of the variable: shown in this view
};
Shape variable_shape(const OpenCdf& cdf, VarRef ref);

// Where a zENTRY_ number of a variable attribute lives: the stored list (false
// for rEntries) and the stored number.
struct EntryRef {
    bool z = true;
    std::int32_t number = 0;
};
EntryRef zentry_ref(const OpenCdf& cdf, long number);
long zentry_number(const OpenCdf& cdf, bool stored_z, std::int32_t stored_number);

// Entries of a variable attribute as zEntries (zMode 2 merges rEntries in).
long zentry_count(const OpenCdf& cdf, const store::Attribute& attr);
long zentry_max(const OpenCdf& cdf, const store::Attribute& attr);

}  // namespace cdfgate::engine::api
