#include "codec_test_data.h"

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <stdexcept>

namespace cdfgate::engine::codec::testing {

Bytes read_shared(const std::string& relative_path) {
    const std::string path = std::string(CDFGATE_SHARED_DATA) + "/" + relative_path;
    std::ifstream f(path, std::ios::binary);
    if (!f) throw std::runtime_error("cannot open " + path);
    return Bytes(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

Bytes from_hex(const std::string& hex) {
    if (hex.size() % 2 != 0) throw std::runtime_error("odd hex length");
    Bytes b;
    b.reserve(hex.size() / 2);
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        b.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
    }
    return b;
}

std::vector<RawVector> read_vectors(const std::string& relative_path) {
    const Bytes raw = read_shared(relative_path);
    std::istringstream text(std::string(raw.begin(), raw.end()));
    std::vector<RawVector> vectors;
    std::string line;
    auto value = [](const std::string& l, const std::string& key) {
        std::string v = l.substr(key.size());
        while (!v.empty() && (v.front() == ' ')) v.erase(v.begin());
        while (!v.empty() && (v.back() == ' ' || v.back() == '\r')) v.pop_back();
        return v;
    };
    while (std::getline(text, line)) {
        if (line.rfind("name:", 0) == 0) {
            vectors.push_back({value(line, "name:"), {}, {}});
        } else if (line.rfind("in:", 0) == 0) {
            if (vectors.empty()) throw std::runtime_error("in: before name:");
            vectors.back().in = from_hex(value(line, "in:"));
        } else if (line.rfind("out:", 0) == 0) {
            if (vectors.empty()) throw std::runtime_error("out: before name:");
            vectors.back().out = from_hex(value(line, "out:"));
        }
    }
    if (vectors.empty()) throw std::runtime_error("no vectors in " + relative_path);
    return vectors;
}

std::string method_name(Method m) {
    // Indexed by the compression type number.
    static const char* const names[] = {"None", "Rle", "Huff", "Ahuff", "Unknown", "Gzip"};
    const auto i = static_cast<std::size_t>(m);
    return i < std::size(names) ? names[i] : "Unknown";
}

Bytes random_bytes(std::size_t n, std::uint32_t seed) {
    std::mt19937 gen(seed);
    Bytes b(n);
    for (auto& x : b) x = static_cast<std::uint8_t>(gen() >> 24);
    return b;
}

}  // namespace cdfgate::engine::codec::testing
