// The library-wide state of the C interface: open CDFs, the current CDF, the current
// status and the process-wide modes. This is the engine's only global mutable state.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "api/open_cdf.h"

namespace cdfgate::engine::api {

struct LibraryState {
    long current_status = -1;  // RESERVED_CDFSTATUS until a status is selected
    bool backward_file = false;
    bool validate = true;
    std::map<std::uintptr_t, std::unique_ptr<OpenCdf>> open;
    std::uintptr_t current = 0;  // 0: no current CDF
    std::uintptr_t next_id = 0x1000;

    // The current CDF, or nullptr.
    OpenCdf* current_cdf();
    // The open CDF of an id, or nullptr (never-issued and closed ids alike).
    OpenCdf* find(const void* id);
    // Registers a CDF under a fresh id that is never reused; returns the id.
    void* add(std::unique_ptr<OpenCdf> cdf);
    // Forgets an id; clears the current CDF if it was that one.
    void remove(std::uintptr_t key);
};

LibraryState& library_state();

inline std::uintptr_t key_of(const void* id) {
    return reinterpret_cast<std::uintptr_t>(id);
}

}  // namespace cdfgate::engine::api
