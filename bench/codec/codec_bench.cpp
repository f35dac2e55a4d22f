// Single-thread throughput of the codecs on CDF_REAL4-like data cut into 64 KiB blocks
// (the default blocking factor for 4-byte records), with zlib's compress2 and
// libdeflate's raw inflate on the same blocks as yardsticks. Rates are of uncompressed
// bytes.
#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <zlib.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "codec/adaptive_huffman.h"
#include "codec/gzip.h"
#include "codec/huffman.h"
#include "codec/rle.h"

namespace codec = cdfgate::engine::codec;

namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::size_t kBlock = 64 * 1024;
constexpr std::size_t kTotal = 32u << 20;

// Quantised instrument-like floats: a slow wave plus noise, in tenths, with fill gaps.
Bytes real4_data() {
    std::mt19937 gen(42);
    std::normal_distribution<float> noise(0.0f, 20.0f);
    Bytes b(kTotal);
    for (std::size_t i = 0; i < kTotal / 4; ++i) {
        float v = std::round(500.0f * std::sin(static_cast<float>(i) * 0.001f) + noise(gen)) * 0.1f;
        if ((i / 4096) % 16 == 5) v = 0.0f;  // a gap written as zeros
        std::memcpy(b.data() + 4 * i, &v, 4);
    }
    return b;
}

const Bytes& data() {
    static const Bytes d = real4_data();
    return d;
}

std::vector<codec::ByteView> blocks() {
    std::vector<codec::ByteView> v;
    for (std::size_t at = 0; at < data().size(); at += kBlock) {
        v.emplace_back(data().data() + at, std::min(kBlock, data().size() - at));
    }
    return v;
}

template <class Encode>
std::vector<Bytes> encode_all(Encode&& encode) {
    std::vector<Bytes> out;
    for (const auto b : blocks()) {
        Bytes p;
        if (encode(b, p) != codec::Result::Ok) std::abort();
        out.push_back(std::move(p));
    }
    return out;
}

void finish(benchmark::State& state, const std::vector<Bytes>& payloads) {
    std::size_t packed = 0;
    for (const auto& p : payloads) packed += p.size();
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * data().size()));
    state.counters["ratio_pct"] =
        100.0 * static_cast<double>(packed) / static_cast<double>(data().size());
}

template <class Encode>
void run_encode(benchmark::State& state, Encode&& encode) {
    const auto in = blocks();
    std::vector<Bytes> out(in.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < in.size(); ++i) {
            out[i].clear();
            if (encode(in[i], out[i]) != codec::Result::Ok) state.SkipWithError("encode failed");
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(state, out);
}

template <class Encode, class Decode>
void run_decode(benchmark::State& state, Encode&& encode, Decode&& decode) {
    const auto in = blocks();
    const auto payloads = encode_all(encode);
    Bytes out(kBlock);
    for (auto _ : state) {
        for (std::size_t i = 0; i < in.size(); ++i) {
            if (decode(payloads[i], codec::MutableBytes(out.data(), in[i].size())) !=
                codec::Result::Ok) {
                state.SkipWithError("decode failed");
            }
        }
        benchmark::DoNotOptimize(out.data());
    }
    finish(state, payloads);
}

auto rle_enc = [](codec::ByteView in, Bytes& out) { return codec::rle_encode(in, out); };
auto huff_enc = [](codec::ByteView in, Bytes& out) { return codec::huff_encode(in, out); };
auto ahuff_enc = [](codec::ByteView in, Bytes& out) { return codec::ahuff_encode(in, out); };
auto gzip6_enc = [](codec::ByteView in, Bytes& out) { return codec::gzip_compress(in, 6, out); };

void BM_RleEncode(benchmark::State& s) {
    run_encode(s, rle_enc);
}
void BM_RleDecode(benchmark::State& s) {
    run_decode(s, rle_enc,
               [](codec::ByteView p, codec::MutableBytes o) { return codec::rle_decode(p, o); });
}
void BM_HuffEncode(benchmark::State& s) {
    run_encode(s, huff_enc);
}
void BM_HuffDecode(benchmark::State& s) {
    run_decode(s, huff_enc,
               [](codec::ByteView p, codec::MutableBytes o) { return codec::huff_decode(p, o); });
}
void BM_AhuffEncode(benchmark::State& s) {
    run_encode(s, ahuff_enc);
}
void BM_AhuffDecode(benchmark::State& s) {
    run_decode(s, ahuff_enc,
               [](codec::ByteView p, codec::MutableBytes o) { return codec::ahuff_decode(p, o); });
}

// Our GZIP write path: one compressor kept for the variable, as the store keeps it.
void BM_GzipEncode(benchmark::State& s) {
    codec::GzipCompressor c(static_cast<int>(s.range(0)));
    run_encode(s, [&c](codec::ByteView in, Bytes& out) { return c.compress(in, out); });
}

// zlib's own compress2 on the same blocks at the same level.
void BM_ZlibCompress2(benchmark::State& s) {
    const int level = static_cast<int>(s.range(0));
    run_encode(s, [level](codec::ByteView in, Bytes& out) {
        uLongf n = compressBound(static_cast<uLong>(in.size()));
        out.resize(n);
        if (compress2(out.data(), &n, in.data(), static_cast<uLong>(in.size()), level) != Z_OK) {
            return codec::Result::Failed;
        }
        out.resize(n);
        return codec::Result::Ok;
    });
}

void BM_GzipDecode(benchmark::State& s) {
    codec::GzipDecompressor d;
    run_decode(s, gzip6_enc,
               [&d](codec::ByteView p, codec::MutableBytes o) { return d.decompress(p, o); });
}

// libdeflate's raw inflate of the deflate streams inside the same members (no header,
// no CRC): the ceiling for our GZIP read path.
void BM_LibdeflateRawDecode(benchmark::State& s) {
    libdeflate_decompressor* d = libdeflate_alloc_decompressor();
    run_decode(s, gzip6_enc, [d](codec::ByteView p, codec::MutableBytes o) {
        const auto r = libdeflate_deflate_decompress(d, p.data() + 10, p.size() - 18, o.data(),
                                                     o.size(), nullptr);
        return r == LIBDEFLATE_SUCCESS ? codec::Result::Ok : codec::Result::Corrupt;
    });
    libdeflate_free_decompressor(d);
}

}  // namespace

BENCHMARK(BM_RleEncode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RleDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_HuffEncode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_HuffDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AhuffEncode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AhuffDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GzipEncode)->Arg(1)->Arg(6)->Arg(9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZlibCompress2)->Arg(1)->Arg(6)->Arg(9)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GzipDecode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LibdeflateRawDecode)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
