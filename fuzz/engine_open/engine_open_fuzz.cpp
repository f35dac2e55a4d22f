// Opens arbitrary bytes as a CDF and reads everything in it through the C interface,
// once with validation at open and once without, so that damage also reaches the
// data layer. Any crash, hang, overrun, unnamed status or runaway allocation is a
// finding.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "cdf.h"
#include "exercise.h"

namespace {

std::string scratch_path() {
    const std::filesystem::path shm("/dev/shm");
    const auto dir =
        std::filesystem::is_directory(shm) ? shm : std::filesystem::temp_directory_path();
    return (dir / ("cdfgate-fuzz-open-" + std::to_string(getpid()) + ".cdf")).string();
}

void write_file(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = scratch_path();
    for (const long validate : {VALIDATEFILEon, VALIDATEFILEoff}) {
        write_file(path, data, size);
        CDFsetValidate(validate);
        const auto report = cdfgate::exercise::read_everything(path);
        if (report.faulty()) std::abort();
    }
    CDFsetValidate(VALIDATEFILEon);
    std::filesystem::remove(path);
    return 0;
}
