// Variable data through CDFlib against plain positioned reads and writes of the
// same bytes, timed in the same run; and the open of a metadata-heavy file.
// Files live in a private temporary directory that is removed at exit.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench_support.h"
#include "cdf.h"

namespace {

namespace fs = std::filesystem;
using cdfgate::bench::check;
using cdfgate::bench::fail;
using cdfgate::bench::scratch;
using cdfgate::bench::seconds;
using Clock = std::chrono::steady_clock;  // wall time: the plain calls are compared in it

constexpr long kValuesPerRecord = 1024;  // 8 KiB records
constexpr long kRecords = 32768;         // 256 MiB of CDF_REAL8
constexpr std::size_t kBytes = std::size_t{kRecords} * kValuesPerRecord * 8;

std::vector<double>& values() {
    static std::vector<double> v = [] {
        std::vector<double> out(kBytes / 8);
        for (std::size_t i = 0; i < out.size(); ++i) out[i] = static_cast<double>(i) * 0.25;
        return out;
    }();
    return v;
}

// Creates name.cdf holding one CDF_REAL8 [1024] variable with every record written
// in one hyperslab call; returns the time of that call.
Clock::duration write_variable(const std::string& name) {
    CDFid id = nullptr;
    check(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), "create");
    long dims[] = {kValuesPerRecord}, varys[] = {VARY}, var = -1;
    check(CDFlib(CREATE_, zVAR_, "data", CDF_REAL8, 1L, 1L, dims, VARY, varys, &var, NULL_),
          "create variable");
    long zero[] = {0}, one[] = {1};
    check(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, kRecords, zVAR_RECINTERVAL_, 1L,
                 zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, dims, zVAR_DIMINTERVALS_, one, NULL_),
          "select");
    const auto start = Clock::now();
    check(CDFlib(PUT_, zVAR_HYPERDATA_, values().data(), NULL_), "write");
    const auto took = Clock::now() - start;
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    return took;
}

const std::string& data_file() {
    static const std::string name = [] {
        const std::string n = scratch().path("read");
        (void)write_variable(n);
        return n;
    }();
    return name;
}

// Reads the last bytes of file (where the variable's values are) with plain preads.
Clock::duration plain_read(const std::string& file, std::size_t bytes, std::uint8_t* out) {
    const auto from = static_cast<off_t>(fs::file_size(file) - bytes);
    const int fd = ::open(file.c_str(), O_RDONLY);
    const auto start = Clock::now();
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t n = ::pread(fd, out + done, bytes - done, from + static_cast<off_t>(done));
        if (n <= 0) fail("plain read");
        done += static_cast<std::size_t>(n);
    }
    const auto took = Clock::now() - start;
    ::close(fd);
    return took;
}

// engine and plain: total seconds over all iterations.
void report(benchmark::State& state, double engine, double plain, std::size_t bytes) {
    const double total = static_cast<double>(bytes) * static_cast<double>(state.iterations());
    state.counters["engine_GiB/s"] = total / engine / (1 << 30);
    state.counters["plain_GiB/s"] = total / plain / (1 << 30);
    state.counters["ratio"] = plain / engine;
}

void BM_WholeVariableRead(benchmark::State& state) {
    const std::string file = data_file() + ".cdf";
    std::vector<double> out(kBytes / 8);
    CDFid id = nullptr;
    check(CDFlib(OPEN_, CDF_, data_file().c_str(), &id, SELECT_, zVAR_, 0L, NULL_), "open");
    long dims[] = {kValuesPerRecord}, zero[] = {0}, one[] = {1};
    check(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, kRecords, zVAR_DIMINDICES_, zero,
                 zVAR_DIMCOUNTS_, dims, zVAR_DIMINTERVALS_, one, NULL_),
          "select");
    double engine = 0, plain = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        check(CDFlib(GET_, zVAR_HYPERDATA_, out.data(), NULL_), "read");
        const double e = seconds(Clock::now() - start);
        benchmark::DoNotOptimize(out.data());
        plain += seconds(plain_read(file, kBytes, reinterpret_cast<std::uint8_t*>(out.data())));
        engine += e;
        state.SetIterationTime(e);
    }
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    report(state, engine, plain, kBytes);
}

Clock::duration plain_write(const std::string& name) {
    const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(values().data());
    const auto start = Clock::now();
    std::size_t done = 0;
    while (done < kBytes) {
        const ssize_t w = ::pwrite(fd, bytes + done, kBytes - done, static_cast<off_t>(916 + done));
        if (w <= 0) fail("plain write");
        done += static_cast<std::size_t>(w);
    }
    const auto took = Clock::now() - start;
    ::close(fd);
    return took;
}

// Each iteration writes a new file both ways, in alternating order so that the
// kernel's write-back of earlier iterations weighs on both alike.
void BM_WholeVariableWrite(benchmark::State& state) {
    double engine = 0, plain = 0;
    int n = 0;
    for (auto _ : state) {
        const std::string name = scratch().path("write" + std::to_string(n));
        const std::string raw = scratch().path("raw" + std::to_string(n));
        double e = 0;
        if (n % 2 == 0) {
            e = seconds(write_variable(name));
            plain += seconds(plain_write(raw));
        } else {
            plain += seconds(plain_write(raw));
            e = seconds(write_variable(name));
        }
        fs::remove(name + ".cdf");
        fs::remove(raw);
        engine += e;
        state.SetIterationTime(e);
        ++n;
    }
    report(state, engine, plain, kBytes);
}

// Every fourth value of every record: the engine reads the records and gathers;
// the plain read moves the same records' bytes.
void BM_StridedHyperslabRead(benchmark::State& state) {
    const std::string file = data_file() + ".cdf";
    std::vector<double> out(kBytes / 8 / 4);
    std::vector<std::uint8_t> raw(kBytes);
    CDFid id = nullptr;
    check(CDFlib(OPEN_, CDF_, data_file().c_str(), &id, SELECT_, zVAR_, 0L, NULL_), "open");
    long counts[] = {kValuesPerRecord / 4}, zero[] = {0}, four[] = {4};
    check(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, kRecords, zVAR_DIMINDICES_, zero,
                 zVAR_DIMCOUNTS_, counts, zVAR_DIMINTERVALS_, four, NULL_),
          "select");
    double engine = 0, plain = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        check(CDFlib(GET_, zVAR_HYPERDATA_, out.data(), NULL_), "read");
        const double e = seconds(Clock::now() - start);
        benchmark::DoNotOptimize(out.data());
        plain += seconds(plain_read(file, kBytes, raw.data()));
        engine += e;
        state.SetIterationTime(e);
    }
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    report(state, engine, plain, kBytes);
}

// One value of an open, selected variable; the plain figure is the mean of as
// many 8-byte preads, timed in the same run before the loop.
void BM_SingleValueRead(benchmark::State& state) {
    CDFid id = nullptr;
    check(CDFlib(OPEN_, CDF_, data_file().c_str(), &id, SELECT_, zVAR_, 0L, NULL_), "open");
    long at[] = {17};
    check(CDFlib(SELECT_, zVAR_RECNUMBER_, 1234L, zVAR_DIMINDICES_, at, NULL_), "select");
    double value = 0;
    const int fd = ::open((data_file() + ".cdf").c_str(), O_RDONLY);
    constexpr int kPlainReads = 200000;
    const auto start = Clock::now();
    for (int i = 0; i < kPlainReads; ++i) {
        if (::pread(fd, &value, 8, 4096 + 8 * (i % 512)) != 8) fail("plain read");
        benchmark::DoNotOptimize(value);
    }
    const double plain = seconds(Clock::now() - start) / kPlainReads;
    ::close(fd);
    for (auto _ : state) {
        check(CDFlib(GET_, zVAR_DATA_, &value, NULL_), "read");
        benchmark::DoNotOptimize(value);
    }
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    state.counters["plain_pread_ns"] = plain * 1e9;
}

// Single values walking through a record and on to the next ones: the read-ahead
// window is refilled now and then.
void BM_SingleValueScan(benchmark::State& state) {
    CDFid id = nullptr;
    check(CDFlib(OPEN_, CDF_, data_file().c_str(), &id, SELECT_, zVAR_, 0L, NULL_), "open");
    double value = 0;
    long i = 0;
    for (auto _ : state) {
        long at[] = {i % kValuesPerRecord};
        check(CDFlib(SELECT_, zVAR_RECNUMBER_, (i / kValuesPerRecord) % kRecords, zVAR_DIMINDICES_,
                     at, GET_, zVAR_DATA_, &value, NULL_),
              "read");
        benchmark::DoNotOptimize(value);
        ++i;
    }
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
}

// A file of 1,000 variables and 100 attributes (10 global, 90 variable-scoped with
// an entry for every tenth variable), opened and closed.
const std::string& metadata_file() {
    static const std::string name = [] {
        const std::string n = scratch().path("meta");
        CDFid id = nullptr;
        check(CDFcreateCDF(const_cast<char*>(n.c_str()), &id), "create");
        long dims[] = {3}, varys[] = {VARY};
        for (long v = 0; v < 1000; ++v) {
            long num = -1;
            const std::string var = "variable_" + std::to_string(v);
            check(CDFlib(CREATE_, zVAR_, var.c_str(), CDF_REAL4, 1L, 1L, dims, VARY, varys, &num,
                         NULL_),
                  "create variable");
        }
        for (long a = 0; a < 100; ++a) {
            long num = -1;
            const std::string attr = "attribute_" + std::to_string(a);
            const bool global = a < 10;
            check(CDFlib(CREATE_, ATTR_, attr.c_str(), global ? GLOBAL_SCOPE : VARIABLE_SCOPE, &num,
                         NULL_),
                  "create attribute");
            char text[] = "some descriptive text";
            if (global) {
                check(CDFputAttrEntry(id, 1, num, 0, CDF_CHAR, 21, text), "gEntry");
                continue;
            }
            for (long v = a % 10; v < 1000; v += 10) {
                check(CDFputAttrEntry(id, 3, num, v, CDF_CHAR, 21, text), "zEntry");
            }
        }
        check(CDFlib(CLOSE_, CDF_, NULL_), "close");
        return n;
    }();
    return name;
}

void BM_OpenManyVariables(benchmark::State& state) {
    const std::string& name = metadata_file();
    for (auto _ : state) {
        CDFid id = nullptr;
        check(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), "open");
        check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    }
    state.counters["file_KiB"] = static_cast<double>(fs::file_size(name + ".cdf")) / 1024.0;
}

BENCHMARK(BM_WholeVariableRead)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(8);
BENCHMARK(BM_WholeVariableWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(6);
BENCHMARK(BM_StridedHyperslabRead)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(8);
BENCHMARK(BM_SingleValueRead)->Unit(benchmark::kNanosecond);
BENCHMARK(BM_SingleValueScan)->Unit(benchmark::kNanosecond);
BENCHMARK(BM_OpenManyVariables)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
