// An error raised from a bare message identifier, for the identifiers that have no
// error class of their own.
#pragma once

#include <string_view>

#include "errors/errors.h"

namespace cdfgate::gateway {

class BareMessageError : public errors::ErrorBase<BareMessageError> {
  public:
    BareMessageError(std::string_view component, std::string_view name)
        : Exception({component, name, 0}, {}) {}
};

// "dimSizeTooLarge": a hyperslab count exceeds its dimension's size.
inline BareMessageError dimSizeTooLarge() {
    return BareMessageError(errors::kCdflibComponent, "dimSizeTooLarge");
}

}  // namespace cdfgate::gateway
