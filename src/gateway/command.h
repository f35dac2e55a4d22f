// One row of the command table and the signature every command handler has.
#pragma once

#include <cstdint>

#include "hv/array.h"

namespace cdfgate::gateway {

struct CommandEntry;

using OutputSlot = matrix::array_ptr;
using CommandHandler = void (*)(int nlhs, OutputSlot* plhs, int nrhs, const hvArray* const* prhs,
                                const CommandEntry* entry);

struct CommandEntry {
    std::int64_t id;  // carried as row data only
    const char* name;
    std::int32_t minArgs;
    std::int32_t maxArgs;
    CommandHandler handler;
};

}  // namespace cdfgate::gateway
