// Every method gives back its input on edge inputs, through both decoding forms.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>

#include "codec/dispatch.h"
#include "codec_test_data.h"

namespace cdfgate::engine::codec {
namespace {

using testing::Bytes;

struct Coder {
    Method method;
    int parameter;
};

std::string coder_name(const Coder& c) {
    return testing::method_name(c.method) +
           (c.method == Method::Gzip ? std::to_string(c.parameter) : std::string());
}

struct Input {
    const char* name;
    std::function<Bytes()> make;
};

Bytes zero_runs(std::initializer_list<std::size_t> runs) {
    Bytes b;
    for (const std::size_t n : runs) {
        b.insert(b.end(), n, 0);
        b.push_back(0x5a);
    }
    return b;
}

// Byte b occurs about fib(b) times: a skewed distribution that makes deep Huffman trees.
Bytes fibonacci_counts() {
    Bytes b;
    std::size_t f0 = 1, f1 = 1;
    for (int v = 0; v < 24; ++v) {
        b.insert(b.end(), f0, static_cast<std::uint8_t>(v * 7 + 1));
        const std::size_t f2 = f0 + f1;
        f0 = f1;
        f1 = f2;
    }
    return b;
}

// Slowly varying little-endian floats, like a science variable.
Bytes float_series(std::size_t n) {
    Bytes b;
    b.reserve(n * 4);
    for (std::size_t i = 0; i < n; ++i) {
        const float v = static_cast<float>(100.0 * std::sin(static_cast<double>(i) * 0.001));
        std::uint32_t u;
        std::memcpy(&u, &v, 4);
        for (int k = 0; k < 4; ++k) b.push_back(static_cast<std::uint8_t>(u >> (8 * k)));
    }
    return b;
}

const Input kInputs[] = {
    {"empty", [] { return Bytes{}; }},
    {"one_zero", [] { return Bytes{0}; }},
    {"one_ff", [] { return Bytes{0xff}; }},
    {"all_zeros_1000", [] { return Bytes(1000, 0); }},
    {"all_zeros_100000", [] { return Bytes(100000, 0); }},  // root weight limit reached
    {"no_zeros",
     [] {
         Bytes b(5000);
         for (std::size_t i = 0; i < b.size(); ++i) b[i] = static_cast<std::uint8_t>(1 + i % 255);
         return b;
     }},
    {"zero_runs_around_256",
     [] {
         return zero_runs({255, 256, 257, 300, 511, 512, 513, 1});
     }},
    {"ends_in_zero",
     [] {
         return Bytes{1, 2, 3, 0};
     }},
    {"every_value_many_times",
     [] {
         Bytes b(256 * 300);
         for (std::size_t i = 0; i < b.size(); ++i) b[i] = static_cast<std::uint8_t>(i * 37);
         return b;
     }},
    {"fibonacci_counts", fibonacci_counts},
    {"incompressible", [] { return testing::random_bytes(200000, 7); }},
    {"floats", [] { return float_series(50000); }},
};

class RoundTrip : public ::testing::TestWithParam<std::tuple<Coder, std::size_t>> {};

TEST_P(RoundTrip, DecodesBackToTheInput) {
    const auto [coder, index] = GetParam();
    const Bytes input = kInputs[index].make();
    Bytes payload;
    ASSERT_EQ(encode(coder.method, coder.parameter, input, payload), Result::Ok);

    Bytes exact(input.size());
    ASSERT_EQ(decode(coder.method, payload, exact), Result::Ok);
    EXPECT_TRUE(exact == input);

    Bytes grown;
    ASSERT_EQ(decode(coder.method, payload, grown, input.size()), Result::Ok);
    EXPECT_TRUE(grown == input);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, RoundTrip,
    ::testing::Combine(::testing::Values(Coder{Method::Rle, 0}, Coder{Method::Huff, 0},
                                         Coder{Method::Ahuff, 0}, Coder{Method::Gzip, 1},
                                         Coder{Method::Gzip, 6}, Coder{Method::Gzip, 9}),
                       ::testing::Range<std::size_t>(0, std::size(kInputs))),
    [](const auto& info) {
        return coder_name(std::get<0>(info.param)) + "_" + kInputs[std::get<1>(info.param)].name;
    });

class LargeRoundTrip : public ::testing::TestWithParam<Coder> {};

// 64 MiB of mixed content: zero runs, series and noise. AHUFF, which updates its tree
// after every byte, gets 8 MiB (still hundreds of rescalings) to keep the sanitizer
// build's run time reasonable.
TEST_P(LargeRoundTrip, MebibytesOfMixedContent) {
    const std::size_t kSize =
        (GetParam().method == Method::Ahuff ? std::size_t{8} : std::size_t{64}) << 20;
    Bytes input = float_series(kSize / 4);
    const Bytes noise = testing::random_bytes(1 << 20, 3);
    for (std::size_t i = 0; i < kSize; i += 3 << 20) {
        std::fill_n(input.begin() + i, std::min<std::size_t>(70000, kSize - i), 0);
        const std::size_t at = std::min(kSize - noise.size(), i + (1 << 20));
        std::copy(noise.begin(), noise.end(), input.begin() + at);
    }
    const auto coder = GetParam();
    Bytes payload;
    ASSERT_EQ(encode(coder.method, coder.parameter, input, payload), Result::Ok);
    Bytes decoded;
    ASSERT_EQ(decode(coder.method, payload, decoded, kSize), Result::Ok);
    EXPECT_TRUE(decoded == input);
}

INSTANTIATE_TEST_SUITE_P(Codecs, LargeRoundTrip,
                         ::testing::Values(Coder{Method::Rle, 0}, Coder{Method::Huff, 0},
                                           Coder{Method::Ahuff, 0}, Coder{Method::Gzip, 6}),
                         [](const auto& info) { return coder_name(info.param); });

TEST(RleExpansion, IsolatedZerosDoubleAndRunsShrink) {
    Bytes isolated;
    for (int i = 0; i < 100; ++i) isolated.insert(isolated.end(), {7, 0});
    Bytes out;
    ASSERT_EQ(encode(Method::Rle, 0, isolated, out), Result::Ok);
    EXPECT_EQ(out.size(), 300u);  // 7, 00 00 per pair
    out.clear();
    ASSERT_EQ(encode(Method::Rle, 0, Bytes(256 * 1000, 0), out), Result::Ok);
    EXPECT_EQ(out.size(), 2000u);
}

}  // namespace
}  // namespace cdfgate::engine::codec
