#include "corrupt_fixture.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "allocation_probe.h"
#include "cdf.h"
#include "exercise.h"
#include "gateway_read.h"

namespace cdfgate::corrupt {

std::filesystem::path shared_data(const std::string& relative) {
    return std::filesystem::path(CDFGATE_SHARED_DATA) / relative;
}

Bytes file_bytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> cdfs_in(const std::filesystem::path& dir, const std::string& prefix) {
    std::vector<std::string> out;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(dir, ec)) {
        if (entry.path().extension() == ".cdf")
            out.push_back(prefix + entry.path().filename().string());
    }
    std::sort(out.begin(), out.end());
    return out;
}

std::string test_name(const std::string& relative) {
    std::string name = relative;
    for (char& c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    }
    return name;
}

void CorruptFiles::SetUp() {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(info->test_suite_name()) + "-" + info->name();
    for (char& c : name) {
        if (c == '/') c = '_';
    }
    dir_ = std::filesystem::temp_directory_path() / ("cdfgate-corrupt-" + name);
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
    CDFsetValidate(VALIDATEFILEon);
}

void CorruptFiles::TearDown() {
    CDFsetValidate(VALIDATEFILEon);
    std::filesystem::remove_all(dir_);
}

Bytes CorruptFiles::sample(const std::string& relative) const {
    const Bytes bytes = file_bytes(shared_data(relative));
    EXPECT_FALSE(bytes.empty()) << "missing sample " << relative;
    return bytes;
}

namespace {

// Allocations below this are never questioned; above it, an allocation must be
// explained by the file: at most what its bytes could inflate to.
constexpr std::size_t kAllocationFloor = std::size_t{64} << 20;
constexpr std::size_t kMaxExpansion = 1100;

void write(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
}

void expect_sound(const exercise::Report& r, const std::string& what, const char* mode) {
    EXPECT_EQ(r.unnamed, 0) << what << " (" << mode << "): unnamed status " << r.first_unnamed;
    EXPECT_EQ(r.shape_faults, 0) << what << " (" << mode << "): impossible shape or overrun";
}

}  // namespace

std::string CorruptFiles::write_copy(const Bytes& bytes) {
    // A fresh name each time: the engine may still know a closed file by its name.
    const std::string path = (dir_ / ("d" + std::to_string(written_++) + ".cdf")).string();
    write(path, bytes);
    return path;
}

void CorruptFiles::expect_handled(const Bytes& bytes, const std::string& what, Expect expect,
                                  bool through_gateway, const Bytes* intact) {
    ASSERT_TRUE(expect != Expect::Error || intact != nullptr) << what << ": no baseline";
    reset_largest_allocation();
    exercise::Limits limits;
    limits.max_records = 16;
    limits.max_entries = 256;

    CDFsetValidate(VALIDATEFILEon);
    const auto checked = exercise::read_everything(write_copy(bytes), limits);
    expect_sound(checked, what, "validated");
    if (expect == Expect::RefusedAtOpen) {
        EXPECT_FALSE(checked.opened()) << what << ": opened with status " << checked.open_status;
    }
    if (expect == Expect::Error) {
        const auto baseline = exercise::read_everything(write_copy(*intact), limits);
        EXPECT_TRUE(!checked.opened() || checked.errors > baseline.errors)
            << what << ": no more errors than the intact file (" << baseline.errors << ")";
    }

    if (through_gateway) {
        const GatewayRead read = read_through_gateway(write_copy(bytes));
        for (const std::string& id : read.errors) {
            EXPECT_EQ(id.rfind("QUORIN:imagesci:", 0), 0u) << what << ": identifier " << id;
        }
        if (expect == Expect::RefusedAtOpen) {
            EXPECT_FALSE(read.opened) << what;
        }
        if (expect == Expect::Error) {
            const GatewayRead baseline = read_through_gateway(write_copy(*intact));
            EXPECT_TRUE(!read.opened || read.errors.size() > baseline.errors.size())
                << what << ": the gateway raised no more errors than on the intact file ("
                << baseline.errors.size() << ")";
        }
    }

    CDFsetValidate(VALIDATEFILEoff);
    expect_sound(exercise::read_everything(write_copy(bytes), limits), what, "unvalidated");
    CDFsetValidate(VALIDATEFILEon);

    // No block may claim more than its compressed payload can expand to, and the
    // readers above ask for small buffers only.
    const std::size_t bound = std::max(kAllocationFloor, bytes.size() * kMaxExpansion);
    EXPECT_LE(largest_allocation(), bound) << what << ": an allocation out of proportion";
}

}  // namespace cdfgate::corrupt
