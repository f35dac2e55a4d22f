// computeTT2000 and breakdownTT2000 over 10 million values spread over the whole
// TT2000 range (every era of the leap-second table included); reports values/second.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "cdf.h"

namespace {

constexpr std::size_t kValues = 10'000'000;

const std::vector<long long>& values() {
    static const std::vector<long long> v = [] {
        std::mt19937_64 random(10);
        std::uniform_int_distribution<long long> any(std::numeric_limits<long long>::min() + 4,
                                                     std::numeric_limits<long long>::max());
        std::vector<long long> out(kValues);
        for (long long& t : out) t = any(random);
        return out;
    }();
    return v;
}

const std::vector<std::array<double, 9>>& tuples() {
    static const std::vector<std::array<double, 9>> v = [] {
        std::vector<std::array<double, 9>> out(kValues);
        for (std::size_t i = 0; i < kValues; ++i) {
            auto& p = out[i];
            breakdownTT2000(values()[i], &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7],
                            &p[8]);
        }
        return out;
    }();
    return v;
}

void BM_ComputeTT2000(benchmark::State& state) {
    const auto& in = tuples();
    for (auto _ : state) {
        long long sum = 0;
        for (const auto& p : in) {
            sum += computeTT2000(p[0], p[1], p[2], p[3], p[4], p[5], p[6], p[7], p[8]);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * in.size()));
}

void BM_BreakdownTT2000(benchmark::State& state) {
    const auto& in = values();
    for (auto _ : state) {
        std::array<double, 9> p{};
        double sum = 0;
        for (const long long t : in) {
            breakdownTT2000(t, &p[0], &p[1], &p[2], &p[3], &p[4], &p[5], &p[6], &p[7], &p[8]);
            sum += p[0] + p[8];
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * in.size()));
}

}  // namespace

BENCHMARK(BM_ComputeTT2000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BreakdownTT2000)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
