#include "io/file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace cdfgate::engine::io {

File::File(File&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)),
      writable_(other.writable_),
      size_(other.size_),
      ahead_(std::move(other.ahead_)),
      ahead_at_(other.ahead_at_) {}

File& File::operator=(File&& other) noexcept {
    if (this != &other) {
        close();
        fd_ = std::exchange(other.fd_, -1);
        writable_ = other.writable_;
        size_ = other.size_;
        ahead_ = std::move(other.ahead_);
        ahead_at_ = other.ahead_at_;
    }
    return *this;
}

File::~File() {
    close();
}

void File::close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

Status File::open(const std::string& path, File& out) {
    if (path.empty() || !is_regular_file(path)) return NO_SUCH_CDF;
    bool writable = true;
    int fd = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        writable = false;
        fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    }
    if (fd < 0) return errno == ENOENT ? NO_SUCH_CDF : CDF_OPEN_ERROR;
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return NO_SUCH_CDF;
    }
    File file;
    file.fd_ = fd;
    file.writable_ = writable;
    file.size_ = static_cast<std::uint64_t>(st.st_size);
    out = std::move(file);
    return kOk;
}

Status File::create(const std::string& path, File& out) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) return errno == EEXIST ? CDF_EXISTS : CDF_CREATE_ERROR;
    File file;
    file.fd_ = fd;
    file.writable_ = true;
    file.size_ = 0;
    out = std::move(file);
    return kOk;
}

Status File::create_scratch(File& out) {
    // In memory: a file that is only read never leaves a copy on disk. Where that
    // is not available, an unlinked file in the temporary directory.
    int fd = ::memfd_create("cdfgate-scratch", MFD_CLOEXEC);
    if (fd < 0) {
        const char* dir = std::getenv("TMPDIR");
        std::string pattern = std::string(dir && *dir ? dir : "/tmp") + "/cdfgate-XXXXXX";
        fd = ::mkstemp(pattern.data());
        if (fd < 0) return SCRATCH_CREATE_ERROR;
        ::unlink(pattern.c_str());
    }
    File file;
    file.fd_ = fd;
    file.writable_ = true;
    out = std::move(file);
    return kOk;
}

namespace {
constexpr std::size_t kSmallRead = 4096;
constexpr std::uint64_t kReadAhead = 65536;
}  // namespace

Status File::read(std::uint64_t offset, std::span<std::uint8_t> out) const {
    if (fd_ < 0) return CDF_READ_ERROR;
    if (offset > size_ || out.size() > size_ - offset) return CDF_READ_ERROR;
    if (out.size() > kSmallRead) return read_direct(offset, out);
    if (offset < ahead_at_ || offset + out.size() > ahead_at_ + ahead_.size()) {
        ahead_.resize(static_cast<std::size_t>(std::min(kReadAhead, size_ - offset)));
        if (const Status s = read_direct(offset, ahead_); s.failed()) {
            ahead_.clear();
            return s;
        }
        ahead_at_ = offset;
    }
    if (!out.empty()) std::memcpy(out.data(), ahead_.data() + (offset - ahead_at_), out.size());
    return kOk;
}

Status File::read_direct(std::uint64_t offset, std::span<std::uint8_t> out) const {
    std::size_t done = 0;
    while (done < out.size()) {
        const ssize_t n =
            ::pread(fd_, out.data() + done, out.size() - done, static_cast<off_t>(offset + done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return CDF_READ_ERROR;
        done += static_cast<std::size_t>(n);
    }
    return kOk;
}

Status File::write(std::uint64_t offset, std::span<const std::uint8_t> bytes) {
    if (fd_ < 0 || !writable_) return CDF_WRITE_ERROR;
    ahead_.clear();
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::pwrite(fd_, bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(offset + done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return CDF_WRITE_ERROR;
        done += static_cast<std::size_t>(n);
    }
    if (offset + bytes.size() > size_) size_ = offset + bytes.size();
    return kOk;
}

Status File::truncate(std::uint64_t size) {
    if (fd_ < 0 || !writable_) return CDF_WRITE_ERROR;
    ahead_.clear();
    if (::ftruncate(fd_, static_cast<off_t>(size)) != 0) return CDF_WRITE_ERROR;
    size_ = size;
    return kOk;
}

Status File::sync() {
    if (fd_ >= 0 && writable_ && ::fsync(fd_) != 0) return CDF_WRITE_ERROR;
    return kOk;
}

Status overwrite_file(const std::string& path, std::span<const std::uint8_t> bytes) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) return CDF_WRITE_ERROR;
    File file;
    file.fd_ = fd;
    file.writable_ = true;
    return file.write(0, bytes);
}

bool path_exists(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0;
}

bool is_regular_file(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

Status remove_file(const std::string& path) {
    if (::unlink(path.c_str()) != 0) return errno == EACCES ? NO_DELETE_ACCESS : CDF_DELETE_ERROR;
    return kOk;
}

}  // namespace cdfgate::engine::io
