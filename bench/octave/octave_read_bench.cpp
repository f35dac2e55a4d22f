// A whole variable read with "hyperGetVarData" through GNU Octave (an embedded
// interpreter calling cdflib.mex, as a user's script does) and through the built-in
// host, alternately in the same loop, so that both see the same machine state.
// The counter octave_vs_builtin_% is the extra time that Octave's way takes; times
// are the thread's CPU time.
#include <benchmark/benchmark.h>
#include <octave/interpreter.h>
#include <octave/oct.h>
#include <octave/parse.h>
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "bench_support.h"
#include "cdf.h"
#include "cdfgate/embedded.h"
#include "hv/entry.h"

namespace {

using cdfgate::embedded::Array;

using cdfgate::bench::check;
using cdfgate::bench::real8_file;
using cdfgate::bench::seconds;
using Clock = cdfgate::bench::ThreadClock;

constexpr long kValuesPerRecord = cdfgate::bench::kReal8RecordValues;

// Minor page faults of the calling thread so far: new memory touched for the first time.
long minorFaults() {
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_minflt;
}

octave_value_list valueList(std::initializer_list<octave_value> values) {
    octave_value_list list;
    for (const octave_value& value : values) list.append(value);
    return list;
}

// The interpreter, started once, with cdflib.mex on its path.
octave::interpreter& interpreter() {
    static const std::unique_ptr<octave::interpreter> instance = [] {
        auto started = std::make_unique<octave::interpreter>();
        started->read_site_files(false);
        started->read_init_files(false);
        started->initialize_history(false);
        started->initialize_load_path(true);
        started->initialize();
        if (!started->initialized() || started->execute() != 0) {
            std::fprintf(stderr, "the Octave interpreter did not start\n");
            std::abort();
        }
        octave::feval("addpath", valueList({octave_value(CDFGATE_OCTAVE_DIR)}));
        return started;
    }();
    return *instance;
}

// The same hyperslab call on both hosts: every record, the whole dimension.
struct Reads {
    explicit Reads(long records) {
        const std::string name = real8_file(records);
        const double recordCount = static_cast<double>(records);
        const double extent = static_cast<double>(kValuesPerRecord);

        builtInId = cdfgate::embedded::call("open", {Array::text(name)})[0];
        builtInInputs = {Array::text("hyperGetVarData"),
                         builtInId,
                         Array::scalar(0),
                         Array::scalar(0),
                         Array::scalar(recordCount),
                         Array::scalar(1),
                         Array::scalar(0),
                         Array::scalar(extent),
                         Array::scalar(1)};
        for (const Array& input : builtInInputs) builtInArgs.push_back(input.get());

        interpreter();
        octaveId =
            octave::feval("cdflib", valueList({octave_value("open"), octave_value(name)}), 1)(0);
        octaveArgs = valueList({octave_value("hyperGetVarData"), octaveId, octave_value(0.0),
                                octave_value(0.0), octave_value(recordCount), octave_value(1.0),
                                octave_value(0.0), octave_value(extent), octave_value(1.0)});
    }
    ~Reads() {
        cdfgate::embedded::call("close", {builtInId}, 0);
        octave::feval("cdflib", valueList({octave_value("close"), octaveId}), 0);
    }

    void builtIn() {
        std::array<matrix::array_ptr, 1> slots;
        cdflib(1, slots.data(), static_cast<int>(builtInArgs.size()), builtInArgs.data());
        benchmark::DoNotOptimize(hvGetData(slots[0].get()));
    }
    void throughOctave() {
        const octave_value_list result = octave::feval("cdflib", octaveArgs, 1);
        benchmark::DoNotOptimize(result(0).mex_get_data());
    }

    Array builtInId;
    std::vector<Array> builtInInputs;
    std::vector<const hvArray*> builtInArgs;
    octave_value octaveId;
    octave_value_list octaveArgs;
};

void BM_WholeVariableRead(benchmark::State& state) {
    Reads reads(state.range(0));
    reads.builtIn();
    reads.throughOctave();
    double builtIn = 0, viaOctave = 0;
    long builtInFaults = 0, octaveFaults = 0;
    for (auto _ : state) {
        long faults = minorFaults();
        auto start = Clock::now();
        reads.builtIn();
        builtIn += seconds(Clock::now() - start);
        builtInFaults += minorFaults() - faults;
        faults = minorFaults();
        start = Clock::now();
        reads.throughOctave();
        const double o = seconds(Clock::now() - start);
        octaveFaults += minorFaults() - faults;
        viaOctave += o;
        state.SetIterationTime(o);
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["builtin_ms"] = builtIn / n * 1e3;
    state.counters["octave_ms"] = viaOctave / n * 1e3;
    state.counters["octave_vs_builtin_%"] = (viaOctave / builtIn - 1) * 100;
    state.counters["builtin_faults"] = static_cast<double>(builtInFaults) / n;
    state.counters["octave_faults"] = static_cast<double>(octaveFaults) / n;
    state.counters["MiB"] = static_cast<double>(state.range(0) * kValuesPerRecord * 8) / (1 << 20);
}

BENCHMARK(BM_WholeVariableRead)
    ->Arg(16)    // 128 KiB
    ->Arg(128)   // 1 MiB
    ->Arg(2048)  // 16 MiB
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->MinTime(1.0);

}  // namespace

BENCHMARK_MAIN();
