// Compressed variables through CDFlib, timed beside the bare codecs on the same
// blocks in the same run: a GZIP whole-variable read of 256 MiB of CDF_REAL4
// against libdeflate's decompression of the same payloads, the level-6 write
// against zlib's compress2 of the same blocks at level 6, and reads and writes
// with RLE, HUFF and AHUFF. Single-threaded, as the library is. Files live in a
// private temporary directory removed at exit.
#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <zlib.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
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
using Clock = cdfgate::bench::ThreadClock;

constexpr long kValuesPerRecord = 1024;  // 4 KiB records: blocks of 16 records, 64 KiB
constexpr std::size_t kBlockBytes = 65536;
constexpr long kGzipRecords = 65536;  // 256 MiB of CDF_REAL4
constexpr long kOtherRecords = 8192;  // 32 MiB for the slower coders

// A slowly varying signal with a little quantised noise, as instruments give:
// compressible, but far from trivially.
const std::vector<float>& values() {
    static const std::vector<float> v = [] {
        std::vector<float> out(static_cast<std::size_t>(kGzipRecords) * kValuesPerRecord);
        std::uint32_t noise = 12345;
        for (std::size_t i = 0; i < out.size(); ++i) {
            noise = noise * 1664525u + 1013904223u;
            const double signal = 1000.0 * std::sin(static_cast<double>(i) / 5000.0);
            out[i] = static_cast<float>(std::round(signal * 8 + (noise >> 28)) / 8);
        }
        return out;
    }();
    return v;
}

// Creates name.cdf with one CDF_REAL4 [1024] variable compressed with type/parm
// and writes records 0..records-1 in one call; returns the time to the close.
Clock::duration write_variable(const std::string& name, long type, long parm, long records) {
    fs::remove(name + ".cdf");
    const auto start = Clock::now();
    CDFid id = nullptr;
    check(CDFcreateCDF(const_cast<char*>(name.c_str()), &id), "create");
    long dims[] = {kValuesPerRecord}, varys[] = {VARY}, var = -1, parms[] = {parm};
    check(CDFlib(CREATE_, zVAR_, "data", CDF_REAL4, 1L, 1L, dims, VARY, varys, &var, NULL_),
          "create variable");
    check(CDFlib(PUT_, zVAR_COMPRESSION_, type, parms, NULL_), "compression");
    long zero[] = {0}, one[] = {1};
    check(CDFlib(SELECT_, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, records, zVAR_RECINTERVAL_, 1L,
                 zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, dims, zVAR_DIMINTERVALS_, one, PUT_,
                 zVAR_HYPERDATA_, values().data(), NULL_),
          "write");
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    return Clock::now() - start;
}

// Reads every record of name.cdf into out; returns the time from the open.
Clock::duration read_variable(const std::string& name, long records, std::vector<float>& out) {
    out.resize(static_cast<std::size_t>(records) * kValuesPerRecord);
    const auto start = Clock::now();
    CDFid id = nullptr;
    check(CDFlib(OPEN_, CDF_, name.c_str(), &id, NULL_), "open");
    long dims[] = {kValuesPerRecord}, zero[] = {0}, one[] = {1};
    check(CDFlib(SELECT_, zVAR_, 0L, zVAR_RECNUMBER_, 0L, zVAR_RECCOUNT_, records,
                 zVAR_RECINTERVAL_, 1L, zVAR_DIMINDICES_, zero, zVAR_DIMCOUNTS_, dims,
                 zVAR_DIMINTERVALS_, one, GET_, zVAR_HYPERDATA_, out.data(), NULL_),
          "read");
    check(CDFlib(CLOSE_, CDF_, NULL_), "close");
    return Clock::now() - start;
}

std::size_t block_count(long records) {
    return static_cast<std::size_t>(records) * kValuesPerRecord * 4 / kBlockBytes;
}
const std::uint8_t* block(std::size_t i) {
    return reinterpret_cast<const std::uint8_t*>(values().data()) + i * kBlockBytes;
}

// The gzip members the engine stores: libdeflate at level 6, one per block.
const std::vector<std::vector<std::uint8_t>>& gzip_payloads() {
    static const std::vector<std::vector<std::uint8_t>> p = [] {
        libdeflate_compressor* c = libdeflate_alloc_compressor(6);
        std::vector<std::vector<std::uint8_t>> out(block_count(kGzipRecords));
        for (std::size_t i = 0; i < out.size(); ++i) {
            out[i].resize(libdeflate_gzip_compress_bound(c, kBlockBytes));
            out[i].resize(
                libdeflate_gzip_compress(c, block(i), kBlockBytes, out[i].data(), out[i].size()));
        }
        libdeflate_free_compressor(c);
        return out;
    }();
    return p;
}

Clock::duration libdeflate_inflate_all(std::vector<std::uint8_t>& out) {
    const auto& payloads = gzip_payloads();
    out.resize(payloads.size() * kBlockBytes);
    libdeflate_decompressor* d = libdeflate_alloc_decompressor();
    const auto start = Clock::now();
    for (std::size_t i = 0; i < payloads.size(); ++i) {
        if (libdeflate_gzip_decompress(d, payloads[i].data(), payloads[i].size(),
                                       out.data() + i * kBlockBytes, kBlockBytes,
                                       nullptr) != LIBDEFLATE_SUCCESS) {
            fail("libdeflate");
        }
    }
    const auto took = Clock::now() - start;
    libdeflate_free_decompressor(d);
    return took;
}

Clock::duration zlib_compress_all() {
    std::vector<Bytef> out(compressBound(kBlockBytes));
    const auto start = Clock::now();
    for (std::size_t i = 0; i < block_count(kGzipRecords); ++i) {
        uLongf size = out.size();
        if (compress2(out.data(), &size, block(i), kBlockBytes, 6) != Z_OK) fail("zlib");
        benchmark::DoNotOptimize(size);
    }
    return Clock::now() - start;
}

const std::string& gzip_file() {
    static const std::string name = [] {
        const std::string n = scratch().path("gzip6");
        write_variable(n, GZIP_COMPRESSION, 6, kGzipRecords);
        return n;
    }();
    return name;
}

constexpr double kMiB = 1024.0 * 1024.0;

void BM_GzipWholeVariableRead(benchmark::State& state) {
    const std::string& name = gzip_file();
    std::vector<float> out;
    std::vector<std::uint8_t> plain;
    double engine = 0, bare = 0;
    for (auto _ : state) {
        engine += seconds(read_variable(name, kGzipRecords, out));
        bare += seconds(libdeflate_inflate_all(plain));
    }
    if (out != values()) fail("values read back");
    const double bytes =
        static_cast<double>(out.size()) * 4 * static_cast<double>(state.iterations());
    state.counters["engine_MiB/s"] = bytes / engine / kMiB;
    state.counters["libdeflate_MiB/s"] = bytes / bare / kMiB;
    state.counters["ratio"] = bare / engine;
}

void BM_GzipWholeVariableWrite(benchmark::State& state) {
    const std::string name = scratch().path("gzip6w");
    double engine = 0, zlib = 0;
    for (auto _ : state) {
        engine += seconds(write_variable(name, GZIP_COMPRESSION, 6, kGzipRecords));
        zlib += seconds(zlib_compress_all());
    }
    const double bytes =
        static_cast<double>(values().size()) * 4 * static_cast<double>(state.iterations());
    state.counters["engine_MiB/s"] = bytes / engine / kMiB;
    state.counters["zlib_MiB/s"] = bytes / zlib / kMiB;
    state.counters["stored_%"] = 100.0 * static_cast<double>(fs::file_size(name + ".cdf")) *
                                 static_cast<double>(state.iterations()) / bytes;
    state.counters["ratio"] = zlib / engine;
}

void BM_CodecWrite(benchmark::State& state) {
    const long type = state.range(0);
    const std::string name = scratch().path("w" + std::to_string(type));
    double engine = 0;
    for (auto _ : state) engine += seconds(write_variable(name, type, 0, kOtherRecords));
    const double bytes = static_cast<double>(kOtherRecords) * kValuesPerRecord * 4 *
                         static_cast<double>(state.iterations());
    state.counters["engine_MiB/s"] = bytes / engine / kMiB;
    state.counters["stored_%"] =
        100.0 * static_cast<double>(fs::file_size(name + ".cdf")) * state.iterations() / bytes;
}

void BM_CodecRead(benchmark::State& state) {
    const long type = state.range(0);
    const std::string name = scratch().path("r" + std::to_string(type));
    write_variable(name, type, 0, kOtherRecords);
    std::vector<float> out;
    double engine = 0;
    for (auto _ : state) engine += seconds(read_variable(name, kOtherRecords, out));
    if (!std::equal(out.begin(), out.end(), values().begin())) fail("values read back");
    const double bytes =
        static_cast<double>(out.size()) * 4 * static_cast<double>(state.iterations());
    state.counters["engine_MiB/s"] = bytes / engine / kMiB;
}

BENCHMARK(BM_GzipWholeVariableRead)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_GzipWholeVariableWrite)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_CodecRead)
    ->ArgName("type")
    ->Arg(RLE_COMPRESSION)
    ->Arg(HUFF_COMPRESSION)
    ->Arg(AHUFF_COMPRESSION)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(BM_CodecWrite)
    ->ArgName("type")
    ->Arg(RLE_COMPRESSION)
    ->Arg(HUFF_COMPRESSION)
    ->Arg(AHUFF_COMPRESSION)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
