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
#include <vector>

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

inline constexpr long kReal8RecordValues = 1024;  // 8 KiB records

// A file of the scratch folder with one CDF_REAL8 [1024] variable "data" of
// `records` records, written by the engine once per program.
inline std::string real8_file(long records) {
    const std::string name = scratch().path("real8_" + std::to_string(records) + ".cdf");
    if (std::filesystem::exists(name)) return name;
    std::vector<double> values(static_cast<std::size_t>(records * kReal8RecordValues));
    for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<double>(i) * 0.5;
    CDFid id = nullptr;
    check(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), "create");
    long dims[] = {kReal8RecordValues}, varys[] = {VARY}, zero[] = {0}, one[] = {1}, var = -1;
    check(CDFlib(CREATE_, zVAR_, "data", CDF_REAL8, 1L, 1L, dims, VARY, varys, &var, NULL_),
          "create variable");
    check(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, records, zVAR_RECINTERVAL_, 1L,
                 zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, dims, zVAR_DIMINTERVALS_, one, PUT_,
                 zVAR_HYPERDATA_, values.data(), NULL_),
          "write");
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    return name;
}

}  // namespace cdfgate::bench
