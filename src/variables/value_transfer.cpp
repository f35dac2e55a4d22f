#include "variables/value_transfer.h"

#include <boost/numeric/conversion/cast.hpp>

namespace cdfgate::gateway {

WriteSource::WriteSource(const hvArray* value, long datatype, std::size_t count) : data_(nullptr) {
    if (isCharacterDatatype(datatype)) {
        bytes_ = charsToBytes(value, count);
        // Never a null pointer, even for no characters.
        bytes_.push_back('\0');
        data_ = bytes_.data();
    } else {
        data_ = hvGetData(value);
    }
}

long expectedCount(std::span<const long> factors) {
    long product = 1;
    for (const long factor : factors) {
        if (__builtin_mul_overflow(product, factor, &product)) {
            throw boost::numeric::positive_overflow();
        }
    }
    return product;
}

}  // namespace cdfgate::gateway
