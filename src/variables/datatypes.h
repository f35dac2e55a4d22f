// The 17 CDF datatypes the gateway moves between files and the host: element sizes,
// host classes, constant names, byte buffers sized for them, and the strict class
// rule for values written to a file.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "hv/array.h"

namespace cdfgate::gateway {

// Raw bytes as the CDF interface delivers or takes them.
using ByteBuffer = std::vector<char>;

// Returns when the code is one of the 17 supported datatypes; raises
// "unrecognizedValue" (code, "DATATYPE") otherwise.
void checkDatatype(long code);

// Host class that holds values of the datatype (checked first).
hvClassID datatypeClass(long code);

// Bytes of one element: 16 for CDF_EPOCH16, 1 per character for the character types.
// Checks the code first.
std::size_t datatypeElementSize(long code);

bool isCharacterDatatype(long code) noexcept;

// "CDF_INT4" ...; raises "unrecognizedValue" (code, "DATATYPE") for an unknown code.
const std::string& datatypeName(long code);

// datatypeName in lower case as a host character row ("cdf_int4").
matrix::array_ptr datatypeNameLower(long code);

// Sizes the buffer for n elements of the datatype: n times the element size, plus one
// byte for the terminating zero of the character types. New bytes are zero.
void resizeBuffer(ByteBuffer& buffer, long code, std::size_t n);

// Host array of a filled buffer: a character row up to the first zero byte for the
// character types, 2-by-N doubles for CDF_EPOCH16, 1-by-N of the datatype's class
// otherwise. The bytes are copied unchanged.
matrix::array_ptr bufferToArray(const ByteBuffer& buffer, long code);

// The class rule for values written to a variable: the value's class must be exactly
// the datatype's; raises "datatypeMismatch" (datatype name, host class name) otherwise.
void checkValueClass(const hvArray* value, long code);

}  // namespace cdfgate::gateway
