// Conversions of host arrays into the values the CDF interface takes. Each either
// returns the value or raises the error of its argument; handlers call them in
// argument order so that the first bad argument is the one reported.
#pragma once

#include <string>
#include <vector>

#include "cdf.h"
#include "hv/array.h"

namespace cdfgate::gateway {

// A 1-by-1 uint64 array holding the handle of a file the gateway has open.
CDFid getCdfId(const hvArray* array);

// A 1-by-1 double, truncated toward zero; NaN gives the integer-indefinite value.
// Values at or beyond +-2^63 raise a Boost numeric-range exception.
long getInt64Scalar(const hvArray* array, const std::string& argumentName);

// Every element read as a double and converted as getInt64Scalar does; the class is
// not examined, so the caller checks it where it matters.
std::vector<long> getInt64Vector(const hvArray* array, const std::string& argumentName);
std::vector<double> getDoubleVector(const hvArray* array, const std::string& argumentName);

// The text of a character array; any other class raises the standard logic error.
std::string getStringArg(const hvArray* array);
// The text of a character array, refused with "invalidCharError" if not all ASCII.
std::string getAsciiString(const hvArray* array);

// The range-checked truncating conversion shared by the integer arguments.
long toInt64(double value);

}  // namespace cdfgate::gateway
