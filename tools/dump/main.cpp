// cdfgate-dump FILE: prints the contents of a CDF in the corpus dump format.
#include <cstdio>
#include <string>

#include "dump.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: cdfgate-dump FILE\n");
        return 2;
    }
    const std::string text = cdfgate::dump::dump_cdf(argv[1]);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return text.find("\nopenerror ") == std::string::npos ? 0 : 1;
}
