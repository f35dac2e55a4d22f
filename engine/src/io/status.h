// The engine's internal status: a status code of the C interface.
#pragma once

#include "cdf.h"

namespace cdfgate::engine {

struct [[nodiscard]] Status {
    long code = CDF_OK;

    constexpr Status() = default;
    constexpr Status(long c) : code(c) {}  // NOLINT: implicit from a status code

    constexpr operator long() const { return code; }  // NOLINT: the C interface's status

    constexpr bool failed() const { return code < CDF_WARN; }
    constexpr bool ok() const { return code == CDF_OK; }
};

inline constexpr Status kOk{};

}  // namespace cdfgate::engine

// Returns from the enclosing function when the status is an error.
#define CDFGATE_TRY(expr)                                         \
    do {                                                          \
        const ::cdfgate::engine::Status cdfgate_status_ = (expr); \
        if (cdfgate_status_.failed()) return cdfgate_status_;     \
    } while (false)
