// The one inquiry of a zVariable's definition made first by every variable-data command.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "cdf.h"

namespace cdfgate::gateway {

// One entry per dimension, up to the library's maximum, kept without heap allocation.
class DimensionList {
  public:
    long* data() noexcept { return values_.data(); }
    const long* data() const noexcept { return values_.data(); }
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    long* begin() noexcept { return values_.data(); }
    long* end() noexcept { return values_.data() + size_; }
    const long* begin() const noexcept { return values_.data(); }
    const long* end() const noexcept { return values_.data() + size_; }
    long operator[](std::size_t i) const noexcept { return values_[i]; }
    // Sizes beyond the maximum are cut to it.
    void resize(std::size_t n) noexcept { size_ = std::min<std::size_t>(n, CDF_MAX_DIMS); }

  private:
    std::array<long, CDF_MAX_DIMS> values_{};
    std::size_t size_ = 0;
};

struct VariableInfo {
    std::string name;  // up to CDF_VAR_NAME_LEN256 characters
    long datatype = 0;
    long numElements = 0;    // characters per value for the character types, else 1
    DimensionList dimSizes;  // library order; its size is the number of dimensions
    long recordVariance = 0;
    DimensionList dimVariances;  // library order

    std::size_t numDims() const noexcept { return dimSizes.size(); }
};

// Selects the file and the variable and reads its definition ("CDFinquirezVar").
VariableInfo inquireVariable(CDFid id, long varNum);

}  // namespace cdfgate::gateway
