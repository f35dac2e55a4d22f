// Caller values turned into their stored form in place: the file's encoding,
// character values blank-filled from their first zero byte, and -0.0 stored as
// +0.0 when the CDF's negative-to-positive zero mode is on.
#pragma once

#include <cstdint>

#include "store/data_shape.h"

namespace cdfgate::engine::store {

class CdfFile;

// values: how many values (element size x elements each) start at data.
void to_stored_form(const CdfFile& cdf, const DataShape& shape, std::uint8_t* data,
                    std::int64_t values, bool positive_zeros);

// Stored values brought to host form in place, as they are read back.
void to_host_form(const CdfFile& cdf, const DataShape& shape, std::uint8_t* data,
                  std::int64_t values);

}  // namespace cdfgate::engine::store
