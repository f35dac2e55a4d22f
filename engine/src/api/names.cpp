#include "api/names.h"

#include <cstring>

namespace cdfgate::engine::api {
namespace {

std::size_t trimmed_length(const std::string& s) {
    std::size_t n = s.size();
    while (n > 0 && s[n - 1] == ' ') --n;
    return n;
}

}  // namespace

Status prepare_name(const char* name, std::size_t max_length, long bad_name, long truncated,
                    std::string& out) {
    if (name == nullptr || name[0] == '\0') return bad_name;
    std::string text(name);
    for (const char c : text) {
        const auto u = static_cast<unsigned char>(c);
        if (u < 0x20 || u > 0x7E) return bad_name;
    }
    Status status = kOk;
    if (text.size() > max_length) {
        text.resize(max_length);
        status = truncated;
    }
    out = std::move(text);
    return status;
}

bool same_name(const std::string& a, const std::string& b) {
    const std::size_t n = trimmed_length(a);
    return n == trimmed_length(b) && a.compare(0, n, b, 0, n) == 0;
}

void copy_name(const std::string& name, char* out) {
    std::memcpy(out, name.c_str(), name.size() + 1);
}

}  // namespace cdfgate::engine::api
