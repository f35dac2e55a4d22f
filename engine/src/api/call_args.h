// Sequential access to the variadic arguments of one CDFlib call.
#pragma once

#include <cstdarg>

namespace cdfgate::engine::api {

// Reads arguments with the exact C types the caller passed. Holds a pointer to the
// call's va_list, which stays owned by CDFlib.
class CallArgs {
  public:
    explicit CallArgs(va_list* ap) : ap_(ap) {}

    long next_long() { return va_arg(*ap_, long); }
    void* next_pointer() { return va_arg(*ap_, void*); }
    template <typename T>
    T* next() {
        return static_cast<T*>(next_pointer());
    }

  private:
    va_list* ap_;
};

}  // namespace cdfgate::engine::api
