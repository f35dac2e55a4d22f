// Shared by the benchmark programs: a clock of the calling thread's CPU time, one
// private scratch folder per program, and a stop on any failed call.
#pragma once

#include <stdlib.h>
#include <time.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "cdf.h"

namespace cdfgate::bench {

// Time the calling thread spent on the CPU, kernel time (page faults, file system
// work) included. Unlike the wall clock it does not count waiting for a core, so
// other load on the machine does not blur a comparison made in one run.
struct ThreadClock {
    using duration = std::chrono::nanoseconds;
    using time_point = std::chrono::time_point<ThreadClock, duration>;
    static time_point now() {
        timespec now{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return time_point(duration(std::int64_t{now.tv_sec} * 1000000000 + now.tv_nsec));
    }
};

template <typename Rep, typename Period>
double seconds(std::chrono::duration<Rep, Period> d) {
    return std::chrono::duration<double>(d).count();
}

[[noreturn]] inline void fail(const char* what, long status = 0) {
    std::fprintf(stderr, "%s failed (%ld)\n", what, status);
    std::abort();
}

// Stops the program on an error status: a benchmark of a failing call means nothing.
inline void check(long status, const char* what) {
    if (status < CDF_WARN) fail(what, status);
}

// A folder under $TMPDIR (or /tmp) of this program's files, removed at exit.
class ScratchDir {
  public:
    ScratchDir() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "cdfgate-bench-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) fail("temporary directory");
        dir_ = pattern;
    }
    ~ScratchDir() {
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    std::string path(const std::string& name) const { return (dir_ / name).string(); }

  private:
    std::filesystem::path dir_;
};

inline ScratchDir& scratch() {
    static ScratchDir dir;
    return dir;
}

}  // namespace cdfgate::bench
