#include "allocation_probe.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace cdfgate::corrupt {
namespace {

std::atomic<std::size_t> largest{0};

void* allocate(std::size_t size) noexcept {
    std::size_t seen = largest.load(std::memory_order_relaxed);
    while (size > seen && !largest.compare_exchange_weak(seen, size, std::memory_order_relaxed)) {
    }
    return std::malloc(size == 0 ? 1 : size);
}

void* allocate_or_throw(std::size_t size) {
    void* const memory = allocate(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

void reset_largest_allocation() {
    largest.store(0, std::memory_order_relaxed);
}

std::size_t largest_allocation() {
    return largest.load(std::memory_order_relaxed);
}

}  // namespace cdfgate::corrupt

// The plain (not over-aligned) forms; the over-aligned ones keep the library's own
// pair of allocation and release.
void* operator new(std::size_t size) {
    return cdfgate::corrupt::allocate_or_throw(size);
}
void* operator new[](std::size_t size) {
    return cdfgate::corrupt::allocate_or_throw(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return cdfgate::corrupt::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return cdfgate::corrupt::allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
