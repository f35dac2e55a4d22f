// Sequential access to the variadic arguments of one CDFlib call.
#pragma once

#include <cstdarg>
#include <cstddef>

namespace cdfgate::engine::api {

// Thrown when a pointer the item needs is null; CDFlib answers BAD_ARGUMENT.
struct MissingArgument {};

// Reads arguments with the exact C types the caller passed. Holds a pointer to the
// call's va_list, which stays owned by CDFlib.
class CallArgs {
  public:
    explicit CallArgs(va_list* ap) : ap_(ap) {}

    long next_long() { return va_arg(*ap_, long); }
    // A pointer that may be null (a CDF id), or one the item checks itself.
    void* next_pointer() { return va_arg(*ap_, void*); }
    // A pointer the item reads or writes through: never null.
    template <typename T>
    T* next() {
        return static_cast<T*>(required(next_pointer()));
    }
    // An array of count elements: null only when it is empty.
    template <typename T>
    T* next_array(std::size_t count) {
        void* const p = next_pointer();
        return static_cast<T*>(count == 0 ? p : required(p));
    }

  private:
    static void* required(void* p) {
        if (p == nullptr) throw MissingArgument{};
        return p;
    }

    va_list* ap_;
};

}  // namespace cdfgate::engine::api
