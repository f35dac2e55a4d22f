#include "api/file_names.h"

#include <algorithm>
#include <cctype>

#include "cdf.h"
#include "io/file.h"

namespace cdfgate::engine::api {
namespace {

bool has_cdf_extension(const std::string& name) {
    if (name.size() < 4) return false;
    const std::string ext = name.substr(name.size() - 4);
    return ext[0] == '.' && std::tolower(static_cast<unsigned char>(ext[1])) == 'c' &&
           std::tolower(static_cast<unsigned char>(ext[2])) == 'd' &&
           std::tolower(static_cast<unsigned char>(ext[3])) == 'f';
}

// The longest file or directory name the system accepts, in bytes.
constexpr std::size_t kMaxComponent = 255;

bool has_overlong_component(const std::string& path) {
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t slash = std::min(path.find('/', start), path.size());
        if (slash - start > kMaxComponent) return true;
        start = slash + 1;
    }
    return false;
}

}  // namespace

std::string base_name(const std::string& name) {
    return has_cdf_extension(name) ? name.substr(0, name.size() - 4) : name;
}

Status path_to_create(const std::string& name, std::string& path) {
    const std::string base = base_name(name);
    if (base.empty()) return BAD_CDF_NAME;
    // A name the system cannot hold fails as creating it would, before the length check.
    if (has_overlong_component(base + ".cdf")) return CDF_CREATE_ERROR;
    if (base.size() + 4 > CDF_PATHNAME_LEN) return BAD_CDF_NAME;
    path = base + ".cdf";
    return kOk;
}

Status path_to_open(const std::string& name, std::string& path) {
    const std::string base = base_name(name);
    if (base.empty()) return NO_SUCH_CDF;
    if (base.size() + 4 > CDF_PATHNAME_LEN) return BAD_CDF_NAME;
    for (const std::string& candidate : {base + ".cdf", base + ".CDF", base}) {
        if (io::is_regular_file(candidate)) {
            path = candidate;
            return kOk;
        }
    }
    return NO_SUCH_CDF;
}

}  // namespace cdfgate::engine::api
