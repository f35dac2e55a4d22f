#include "variables/majority.h"

#include <limits>
#include <stdexcept>

#include "errors/check_status.h"
#include "variables/datatypes.h"

namespace cdfgate::gateway {
namespace {

std::size_t toSize(long value) {
    if (value < 0) throw std::length_error("negative extent in a dimension list");
    return static_cast<std::size_t>(value);
}

// Appends the library-order extents, in host order.
void appendExtents(std::vector<std::size_t>& dims, std::span<const long> extents, long majority) {
    const std::size_t first = dims.size();
    for (const long extent : extents) dims.push_back(toSize(extent));
    if (isRowMajor(majority)) {
        std::reverse(dims.begin() + static_cast<std::ptrdiff_t>(first), dims.end());
    }
}

}  // namespace

long readMajority(CDFid id) {
    long majority = 0;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, GET_, CDF_MAJORITY_, &majority, NULL_),
                        "CDFgetMajority");
    return majority;
}

std::vector<std::size_t> recordDimensions(long datatype, long numElements,
                                          std::span<const long> dimSizes, long majority) {
    std::vector<std::size_t> dims;
    dims.reserve(dimSizes.size() + 2);
    if (datatype == CDF_EPOCH16) {
        dims.push_back(2);
    } else if (isCharacterDatatype(datatype)) {
        if (numElements != 1 || dimSizes.empty()) dims.push_back(toSize(numElements));
    } else if (dimSizes.empty()) {
        dims.push_back(toSize(numElements));
    }
    appendExtents(dims, dimSizes, majority);
    return hostShape(std::move(dims));
}

std::vector<std::size_t> hyperslabDimensions(long datatype, long numElements,
                                             std::span<const long> dimCounts, long recCount,
                                             long majority) {
    std::vector<std::size_t> dims;
    dims.reserve(dimCounts.size() + 3);
    if (datatype == CDF_EPOCH16) {
        dims.push_back(2);
    } else if (isCharacterDatatype(datatype)) {
        dims.push_back(toSize(numElements));
    }
    appendExtents(dims, dimCounts, majority);
    dims.push_back(toSize(recCount));
    return hostShape(std::move(dims));
}

std::vector<std::size_t> hostShape(std::vector<std::size_t> dims) {
    if (dims.empty()) dims.push_back(1);
    if (dims.size() == 1) dims.push_back(1);
    return dims;
}

std::size_t checkedProduct(std::span<const std::size_t> values) {
    std::size_t product = 1;
    for (const std::size_t value : values) {
        if (value != 0 && product > std::numeric_limits<std::size_t>::max() / value) {
            throw std::length_error("dimension product overflows");
        }
        product *= value;
    }
    return product;
}

}  // namespace cdfgate::gateway
