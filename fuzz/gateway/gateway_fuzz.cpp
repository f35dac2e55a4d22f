// Feeds host arrays of random classes and shapes to the 93 commands on an open file.
// Every input starts from the same small file (row- or column-major), opened afresh; the bytes then
// choose up to kMaxCalls calls. A call may succeed, raise a HostError, or let through the standard
// library's logic error for a text argument (the command name included) that is not text; anything
// else, and any crash, overrun or leak, is a finding.
#include <fuzzer/FuzzedDataProvider.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cdf.h"
#include "cdfgate/embedded.h"
#include "gateway/command_table.h"
#include "gateway/open_file_registry.h"
#include "template_file.h"

namespace fs = std::filesystem;
using cdfgate::embedded::Array;

namespace {

constexpr int kMaxCalls = 8;
constexpr std::size_t kMaxDim = 4;
// Requests whose sizes multiply past this are legitimate work a user could ask for
// (allocate a million records, read a gigabyte), not hostile input: skipped.
constexpr double kMaxRequest = 1e6;

[[noreturn]] void finding(const char* what, const std::string& detail) {
    std::fprintf(stderr, "finding: %s: %s\n", what, detail.c_str());
    std::abort();
}

struct Scratch {
    Scratch() = default;
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    Scratch(Scratch&& other) noexcept
        : dir(std::exchange(other.dir, {})), templates(std::move(other.templates)) {}
    Scratch& operator=(Scratch&&) = delete;
    // Removes the folder at exit; a crash leaves it for inspection.
    ~Scratch() {
        std::error_code ignored;
        if (!dir.empty()) fs::remove_all(dir, ignored);
    }

    fs::path dir;
    // The template in each majority; the work file is a copy of one of them.
    std::array<std::vector<std::uint8_t>, 2> templates;
};

std::vector<std::uint8_t> read_file(const fs::path& path) {
    std::vector<std::uint8_t> bytes(fs::file_size(path));
    std::FILE* in = std::fopen(path.c_str(), "rb");
    if (in == nullptr || std::fread(bytes.data(), 1, bytes.size(), in) != bytes.size()) {
        finding("setup", "cannot read " + path.string());
    }
    std::fclose(in);
    return bytes;
}

const Scratch& scratch() {
    static const Scratch s = [] {
        Scratch out;
        const fs::path shm("/dev/shm");
        const fs::path base = fs::is_directory(shm) ? shm : fs::temp_directory_path();
        out.dir = base / ("cdfgate-fuzz-gateway-" + std::to_string(getpid()));
        fs::remove_all(out.dir);
        fs::create_directories(out.dir);
        for (const bool row : {true, false}) {
            const fs::path path = out.dir / (row ? "row.cdf" : "column.cdf");
            if (!cdfgate::fuzz::write_template_file(path.string(), row)) {
                finding("setup", "cannot write " + path.string());
            }
            out.templates[row ? 0 : 1] = read_file(path);
            fs::remove(path);
        }
        // Writes that would grow a file past 64 MiB fail with a status instead.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64u << 20, 64u << 20};
        setrlimit(RLIMIT_FSIZE, &limit);
        return out;
    }();
    return s;
}

// Fresh copy of a template, opened through the gateway.
Array open_work_file(bool row_major) {
    const Scratch& s = scratch();
    for (const auto& entry : fs::directory_iterator(s.dir)) fs::remove_all(entry.path());
    const fs::path work = s.dir / "work.cdf";
    const auto& bytes = s.templates[row_major ? 0 : 1];
    std::FILE* out = std::fopen(work.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), out);
    std::fclose(out);
    try {
        return cdfgate::embedded::call("open", {Array::text(work.string())})[0];
    } catch (const std::exception& e) {
        finding("setup", std::string("cannot open the work file: ") + e.what());
    }
}

const std::array kNumbers = {0.0,
                             1.0,
                             2.0,
                             3.0,
                             4.0,
                             5.0,
                             -1.0,
                             -2.0,
                             0.5,
                             -0.0,
                             7.0,
                             10.0,
                             100.0,
                             255.0,
                             256.0,
                             65535.0,
                             2147483648.0,
                             4294967297.0,
                             -2147483649.0,
                             9007199254740993.0,
                             9.2e18,
                             9.3e18,
                             -9.3e18,
                             1e300,
                             -1e300,
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN(),
                             45.0,
                             51.0,
                             32.0,
                             33.0,
                             -9223372036854775808.0,
                             63113904000000.0};

// Names the commands look up: variables, attributes, constants, modes.
const std::array kWords = {"temperature",
                           "label",
                           "epoch",
                           "counts",
                           "tt",
                           "TITLE",
                           "UNITS",
                           "CDF_DOUBLE",
                           "CDF_CHAR",
                           "CDF_EPOCH16",
                           "GLOBAL_SCOPE",
                           "VARIABLE_SCOPE",
                           "ROW_MAJOR",
                           "COLUMN_MAJOR",
                           "GZIP",
                           "GZIP_COMPRESSION",
                           "RLE",
                           "HUFF",
                           "AHUFF",
                           "NO_COMPRESSION",
                           "MD5",
                           "NONE",
                           "SINGLE_FILE",
                           "MULTI_FILE",
                           "pad",
                           "new.cdf",
                           "work.cdf",
                           "work",
                           "x",
                           "",
                           "CDF_TIME_TT2000",
                           "VALIDATEFILEON",
                           "BACKWARDFILEON",
                           "READONLYON",
                           "cdf_uint2"};

// Character units that never narrow to '/' or leave the scratch folder.
const std::array<char16_t, 16> kUnits = {u'a', u'b', u'z',   u'0',   u'9',   u'_',   u'.',   u' ',
                                         u'T', u'E', 0x00E9, 0xFF80, 0x4E2D, 0x0000, 0x00FF, u'-'};

class Maker {
  public:
    explicit Maker(FuzzedDataProvider& in) : in_(in) {}

    std::vector<std::size_t> dims() {
        switch (in_.ConsumeIntegralInRange(0, 4)) {
            case 0:
                return {1, 1};
            case 1:
                return {1, in_.ConsumeIntegralInRange<std::size_t>(0, kMaxDim)};
            case 2:
                return {0, 0};
            default: {
                std::vector<std::size_t> d(in_.ConsumeIntegralInRange<std::size_t>(2, 4));
                for (auto& n : d) n = in_.ConsumeIntegralInRange<std::size_t>(0, kMaxDim);
                return d;
            }
        }
    }

    static std::size_t count(const std::vector<std::size_t>& d) {
        std::size_t n = 1;
        for (const std::size_t x : d) n *= x;
        return n;
    }

    double number() {
        if (in_.ConsumeBool()) return in_.PickValueInArray(kNumbers);
        return static_cast<double>(in_.ConsumeIntegralInRange<int>(-3, 12));
    }

    Array doubles() {
        const auto d = dims();
        std::vector<double> v(count(d));
        for (double& x : v) x = number();
        return Array::of<double>(std::span<const double>(v), d);
    }

    template <typename T>
    Array integers() {
        const auto d = dims();
        std::vector<T> v(count(d));
        for (T& x : v) x = in_.ConsumeIntegral<T>();
        return Array::of<T>(std::span<const T>(v), d);
    }

    Array text() {
        if (in_.ConsumeBool()) return Array::text(std::string(in_.PickValueInArray(kWords)));
        std::u16string units(in_.ConsumeIntegralInRange<std::size_t>(0, 12), u'a');
        for (char16_t& u : units) u = in_.PickValueInArray(kUnits);
        if (in_.ConsumeBool()) return Array::text(units);
        // A character matrix rather than a row.
        const auto d = dims();
        std::vector<char16_t> v(count(d));
        for (char16_t& u : v) u = in_.PickValueInArray(kUnits);
        return Array::of<char16_t>(std::span<const char16_t>(v), d);
    }

    Array any(const Array& id, int depth = 0) {
        switch (in_.ConsumeIntegralInRange(0, 16)) {
            case 0:
            case 1:
            case 2:
                return id;
            case 3:
            case 4:
                return Array::scalar(number());
            case 5:
                return doubles();
            case 6:
            case 7:
                return text();
            case 8:
                return integers<std::int8_t>();
            case 9:
                return in_.ConsumeBool() ? integers<std::uint8_t>() : integers<std::int16_t>();
            case 10:
                return in_.ConsumeBool() ? integers<std::int32_t>() : integers<std::uint32_t>();
            case 11:
                return in_.ConsumeBool() ? integers<std::int64_t>() : integers<std::uint64_t>();
            case 12: {
                const auto d = dims();
                std::vector<float> v(count(d));
                for (float& x : v) x = static_cast<float>(number());
                return Array::of<float>(std::span<const float>(v), d);
            }
            case 13: {
                const auto d = dims();
                Array out = Array::zeros(hvLOGICAL_CLASS, d);
                for (bool& b : out.data<bool>()) b = in_.ConsumeBool();
                return out;
            }
            case 14: {
                if (depth > 0) return Array::empty();
                std::vector<Array> cells(in_.ConsumeIntegralInRange(0, 3));
                for (Array& c : cells) c = any(id, depth + 1);
                return Array::cell(std::move(cells));
            }
            case 15:
                return Array::uint64(in_.ConsumeIntegral<std::uint64_t>());
            default: {
                static constexpr std::array kClasses = {
                    hvDOUBLE_CLASS, hvSINGLE_CLASS, hvCHAR_CLASS,  hvLOGICAL_CLASS, hvCELL_CLASS,
                    hvINT8_CLASS,   hvUINT64_CLASS, hvINT32_CLASS, hvUINT16_CLASS};
                return Array::zeros(in_.PickValueInArray(kClasses), dims());
            }
        }
    }

  private:
    FuzzedDataProvider& in_;
};

bool sizes_request(const std::string& name) {
    static constexpr std::array kSizing = {"createVar",
                                           "setVarInitialRecs",
                                           "setVarAllocBlockRecords",
                                           "setVarBlockingFactor",
                                           "hyperGetVarData",
                                           "hyperPutVarData",
                                           "setCacheSize",
                                           "setVarCacheSize",
                                           "setVarsCacheSize",
                                           "setStageCacheSize",
                                           "setCompressionCacheSize"};
    for (const char* s : kSizing) {
        if (name == s) return true;
    }
    return false;
}

// Product of the magnitudes of the numbers passed that a file could hold as sizes
// (at least 1 each). Larger numbers must be refused, so they stay in play.
double request_size(std::span<const Array> inputs) {
    double product = 1;
    for (const Array& a : inputs.subspan(1)) {
        if (a.classId() != hvDOUBLE_CLASS) continue;
        for (const double x : a.data<double>()) {
            const double m = std::fabs(x);
            if (std::isfinite(x) && m > 1 && m <= 2147483647.0) product *= m;
        }
    }
    return product;
}

void one_call(FuzzedDataProvider& in, Maker& make, const Array& id) {
    const auto table = cdfgate::gateway::commandTable();
    const auto& row = table[in.ConsumeIntegralInRange<std::size_t>(0, table.size() - 1)];
    std::vector<Array> inputs;
    const int mode = in.ConsumeIntegralInRange(0, 15);
    if (mode == 0) {
        inputs.push_back(make.any(id));  // any first input, text or not
    } else if (mode == 1) {
        inputs.push_back(make.text());  // a name that may match no row
    } else {
        inputs.push_back(Array::text(std::string(row.name)));
    }
    int nargs = in.ConsumeIntegralInRange(row.minArgs, row.maxArgs);
    if (in.ConsumeIntegralInRange(0, 15) == 0) nargs += in.ConsumeBool() ? 1 : -1;
    for (int i = 0; i < nargs; ++i) inputs.push_back(make.any(id));
    const int nlhs = in.ConsumeIntegralInRange(0, 6);

    const bool named = inputs[0].classId() == hvCHAR_CLASS;
    const std::string name = named ? inputs[0].text() : std::string();
    // File names land in the scratch folder: generated text never holds '/'.
    if ((name == "create" || name == "open") && inputs.size() > 1 &&
        inputs[1].classId() == hvCHAR_CLASS) {
        inputs[1] = Array::text((scratch().dir / "").u16string() + inputs[1].utext());
    }
    if (sizes_request(name) && request_size(inputs) > kMaxRequest) return;
    try {
        const auto outputs = cdfgate::embedded::callWithInputs(inputs, nlhs);
        for (const Array& out : outputs) {
            if (out.hasArray()) (void)out.numel();
        }
    } catch (const cdfgate::embedded::HostError& e) {
        if (e.identifier().empty()) finding("error without identifier", name);
    } catch (const std::logic_error& e) {
        // A text argument (the command name included) given as another class.
        if (std::string_view(e.what()) != "basic_string: construction from null is not valid") {
            finding("logic error", name + ": " + e.what());
        }
    } catch (const std::exception& e) {
        finding("unexpected exception", name + ": " + e.what());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CDFsetValidate(VALIDATEFILEon);
    CDFsetFileBackward(BACKWARDFILEoff);
    FuzzedDataProvider in(data, size);
    const Array id = open_work_file(in.ConsumeBool());
    Maker make(in);
    for (int i = 0; i < kMaxCalls && in.remaining_bytes() > 0; ++i) one_call(in, make, id);
    // Close what the input left open and forget every handle, so that inputs do
    // not see each other's files.
    auto& registry = cdfgate::gateway::openFileRegistry();
    const auto handles = registry.handles();
    for (const std::uint64_t handle : handles) {
        (void)CDFlib(SELECT_, CDF_, reinterpret_cast<CDFid>(static_cast<std::uintptr_t>(handle)),
                     CLOSE_, CDF_, NULL_);
        registry.unregisterFileId(handle);
    }
    cdfgate::embedded::clearWarnings();
    return 0;
}
