// Moving values between the library and host storage: a read creates the host array
// and lets the library fill its storage; a write hands the host array's storage to
// the library. Only character data pass through a byte buffer.
#pragma once

#include <cstddef>
#include <span>

#include "hv/array.h"
#include "variables/character_data.h"
#include "variables/datatypes.h"
#include "variables/majority.h"

namespace cdfgate::gateway {

// Host array of the datatype's class and the given shape, filled by `fill(void*)`,
// which writes exactly as many elements as the shape holds (and checks its status).
template <typename Fill>
matrix::array_ptr readValues(long datatype, std::span<const std::size_t> dims, Fill&& fill) {
    if (isCharacterDatatype(datatype)) {
        ByteBuffer bytes(checkedProduct(dims));
        fill(static_cast<void*>(bytes.data()));
        return createCharArray(dims, bytes);
    }
    matrix::array_ptr array =
        matrix::detail::do_create_uninitnumeric(dims, datatypeClass(datatype), hvREAL);
    fill(hvGetData(array.get()));
    return array;
}

// The bytes a write hands to the library: the host array's own storage, or for the
// character types the first `count` characters narrowed to bytes.
class WriteSource {
  public:
    WriteSource(const hvArray* value, long datatype, std::size_t count);
    WriteSource(const WriteSource&) = delete;
    WriteSource& operator=(const WriteSource&) = delete;

    void* data() noexcept { return data_; }

  private:
    ByteBuffer bytes_;
    void* data_;
};

// Product of extents as the element count a write expects; an overflow is a
// numeric-range failure of the arguments ("argumentOutOfBounds").
long expectedCount(std::span<const long> factors);

}  // namespace cdfgate::gateway
