#include "api/library_state.h"

namespace cdfgate::engine::api {

OpenCdf* LibraryState::current_cdf() {
    const auto it = open.find(current);
    return it == open.end() ? nullptr : it->second.get();
}

OpenCdf* LibraryState::find(const void* id) {
    const auto it = open.find(key_of(id));
    return it == open.end() ? nullptr : it->second.get();
}

void* LibraryState::add(std::unique_ptr<OpenCdf> cdf) {
    const std::uintptr_t key = next_id;
    next_id += 0x10;
    open.emplace(key, std::move(cdf));
    return reinterpret_cast<void*>(key);
}

void LibraryState::remove(std::uintptr_t key) {
    open.erase(key);
    if (current == key) current = 0;
}

LibraryState& library_state() {
    static LibraryState state;
    return state;
}

}  // namespace cdfgate::engine::api
