// Variable data read through the gateway ("hyperGetVarData", "getVarData") beside the
// engine-only calls that do the same work, timed in the same run. The gateway calls
// go straight to cdflib with inputs built once, as a host would pass them.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
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

// One cdflib call with prebuilt inputs; the result is destroyed with the slot.
class GatewayCall {
  public:
    GatewayCall(const char* command, std::vector<Array> arguments) : inputs_(std::move(arguments)) {
        inputs_.insert(inputs_.begin(), Array::text(command));
        for (const Array& input : inputs_) prhs_.push_back(input.get());
    }
    void run() {
        cdflib(1, slots_.data(), static_cast<int>(prhs_.size()), prhs_.data());
        benchmark::DoNotOptimize(hvGetData(slots_[0].get()));
        slots_[0].reset();
    }

  private:
    std::vector<Array> inputs_;
    std::vector<const hvArray*> prhs_;
    std::array<matrix::array_ptr, 1> slots_;
};

// The file opened through the gateway, so that its identifier is registered.
struct OpenFile {
    explicit OpenFile(const std::string& name)
        : id(cdfgate::embedded::call("open", {Array::text(name)})[0]) {
        handle = reinterpret_cast<CDFid>(static_cast<std::uintptr_t>(id.data<std::uint64_t>()[0]));
    }
    ~OpenFile() { cdfgate::embedded::call("close", {id}, 0); }
    Array id;
    CDFid handle;
};

// The whole variable: the engine into a buffer allocated for the call (the work a C
// program does to get new values), the engine into a buffer reused across calls, and
// the gateway, which creates a host array per call and lets the engine fill it.
void BM_WholeVariableRead(benchmark::State& state) {
    const long records = state.range(0);
    const std::size_t count = static_cast<std::size_t>(records * kValuesPerRecord);
    OpenFile file(real8_file(records));
    GatewayCall gateway(
        "hyperGetVarData",
        {file.id, Array::scalar(0), Array::scalar(0), Array::scalar(static_cast<double>(records)),
         Array::scalar(1), Array::scalar(0), Array::scalar(kValuesPerRecord), Array::scalar(1)});
    long dims[] = {kValuesPerRecord}, zero[] = {0}, one[] = {1};
    const auto engineRead = [&](double* out) {
        check(CDFlib(SELECT_, CDF_, file.handle, zVAR_, 0L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_,
                     records, zVAR_RECINTERVAL_, 1L, zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, dims,
                     zVAR_DIMINTERVALS_, one, GET_, zVAR_HYPERDATA_, out, NULL_),
              "read");
        benchmark::DoNotOptimize(out);
    };
    std::vector<double> reused(count);
    double fresh = 0, warm = 0, viaGateway = 0;
    bool gatewayFirst = false;
    for (auto _ : state) {
        // Alternate the order so that neither side inherits the other's cache state.
        const auto timeGateway = [&] {
            const auto start = Clock::now();
            gateway.run();
            const double g = seconds(Clock::now() - start);
            viaGateway += g;
            state.SetIterationTime(g);
        };
        if (gatewayFirst) timeGateway();
        auto start = Clock::now();
        {
            const std::unique_ptr<double[]> buffer(new double[count]);
            engineRead(buffer.get());
        }
        fresh += seconds(Clock::now() - start);
        if (!gatewayFirst) timeGateway();
        start = Clock::now();
        engineRead(reused.data());
        warm += seconds(Clock::now() - start);
        gatewayFirst = !gatewayFirst;
    }
    const double n = static_cast<double>(state.iterations());
    state.counters["engine_new_buffer_ms"] = fresh / n * 1e3;
    state.counters["engine_reused_buffer_ms"] = warm / n * 1e3;
    state.counters["gateway_ms"] = viaGateway / n * 1e3;
    state.counters["gateway_added_%"] = (viaGateway / fresh - 1) * 100;
    state.counters["MiB"] = static_cast<double>(count * 8) / (1 << 20);
}

void inquire(CDFid id) {
    std::array<char, CDF_VAR_NAME_LEN256 + 1> name{};
    std::array<long, CDF_MAX_DIMS> sizes{}, varys{};
    long datatype = 0, numElements = 0, numDims = 0, recVary = 0, majority = 0;
    check(CDFlib(SELECT_, CDF_, id, zVAR_, 0L, GET_, zVAR_NAME_, name.data(), zVAR_DATATYPE_,
                 &datatype, zVAR_NUMELEMS_, &numElements, zVAR_NUMDIMS_, &numDims, zVAR_DIMSIZES_,
                 sizes.data(), zVAR_RECVARY_, &recVary, zVAR_DIMVARYS_, varys.data(), NULL_),
          "inquire");
    check(CDFlib(SELECT_, CDF_, id, GET_, CDF_MAJORITY_, &majority, NULL_), "majority");
    benchmark::DoNotOptimize(majority);
}

// One value at a record and index: the engine's select-and-get call against the
// gateway's getVarData (inquiry, majority, checks, host array, the same read), in
// alternating batches of the same size.
void BM_SingleValueRead(benchmark::State& state) {
    OpenFile file(real8_file(64));
    GatewayCall gateway("getVarData",
                        {file.id, Array::scalar(0), Array::scalar(37), Array::of<double>({17})});
    constexpr int kBatch = 1000;
    long at[] = {17};
    double value = 0;
    double engine = 0, viaGateway = 0, inquiries = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        for (int i = 0; i < kBatch; ++i) {
            check(CDFlib(SELECT_, CDF_, file.handle, zVAR_, 0L, zVAR_RECNUMBER_, 37L,
                         zVAR_DIMINDICES_, at, GET_, zVAR_DATA_, &value, NULL_),
                  "read");
            benchmark::DoNotOptimize(value);
        }
        engine += seconds(Clock::now() - start);
        start = Clock::now();
        for (int i = 0; i < kBatch; ++i) gateway.run();
        const double g = seconds(Clock::now() - start);
        viaGateway += g;
        state.SetIterationTime(g / kBatch);
        start = Clock::now();
        for (int i = 0; i < kBatch; ++i) inquire(file.handle);
        inquiries += seconds(Clock::now() - start);
    }
    const double calls = static_cast<double>(state.iterations()) * kBatch;
    // The definition and majority queries every variable-data command makes first.
    state.counters["engine_inquiry_ns"] = inquiries / calls * 1e9;
    state.counters["engine_ns"] = engine / calls * 1e9;
    state.counters["gateway_ns"] = viaGateway / calls * 1e9;
    state.counters["gateway_added_ns"] = (viaGateway - engine) / calls * 1e9;
}

BENCHMARK(BM_WholeVariableRead)  // 1 MiB
    ->Arg(128)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(400);
BENCHMARK(BM_WholeVariableRead)  // 16 MiB
    ->Arg(2048)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(40);
BENCHMARK(BM_WholeVariableRead)  // 128 MiB
    ->Arg(16384)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(8);
BENCHMARK(BM_SingleValueRead)->UseManualTime()->Unit(benchmark::kNanosecond)->Iterations(200);

}  // namespace

BENCHMARK_MAIN();
