// A C++ program that embeds cdfgate through the built-in host: it lists the symbolic
// constants the host can name, and shows how an error arrives with its identifier.
#include <cstdio>
#include <exception>
#include <string>

#include "cdfgate/embedded.h"

namespace {

using cdfgate::embedded::Array;
using cdfgate::embedded::call;

void listConstants() {
    const Array names = call("getConstantNames")[0];
    std::printf("%zu constants:\n", names.numel());
    for (std::size_t i = 0; i < names.numel(); ++i) {
        const std::string name = names.cell(i).text();
        const double value = call("getConstantValue", {Array::text(name)})[0].scalarValue();
        std::printf("  %-24s %4g\n", name.c_str(), value);
    }
}

void showAnError() {
    try {
        call("getConstantValue", {Array::text("cdf_int16")});
    } catch (const cdfgate::embedded::HostError& error) {
        std::printf("\nAsking for an unknown constant fails:\n  identifier: %s\n  message:    %s\n",
                    error.identifier().c_str(), error.what());
    }
}

}  // namespace

int main() {
    try {
        listConstants();
        showAnError();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cdfgate-example: %s\n", error.what());
        return 1;
    }
}
