// A file opened for positioned reads and writes, closed when the object goes away.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "io/status.h"

namespace cdfgate::engine::io {

class File {
  public:
    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    ~File();

    // Opens an existing regular file for reading, and for writing when it allows.
    // NO_SUCH_CDF when missing or not a regular file.
    static Status open(const std::string& path, File& out);
    // Creates a new empty file; CDF_EXISTS if the path exists, CDF_CREATE_ERROR otherwise.
    static Status create(const std::string& path, File& out);

    // An anonymous read-write file that vanishes when closed.
    static Status create_scratch(File& out);

    bool is_open() const { return fd_ >= 0; }
    bool writable() const { return writable_; }
    std::uint64_t size() const { return size_; }

    // Reads exactly out.size() bytes at offset; CDF_READ_ERROR when short or failed.
    // Small reads (record headers, descriptors) come from a read-ahead buffer so
    // that walking many small records takes few system calls; writes drop it.
    Status read(std::uint64_t offset, std::span<std::uint8_t> out) const;
    // Writes all bytes at offset, growing the file as needed.
    Status write(std::uint64_t offset, std::span<const std::uint8_t> bytes);
    Status truncate(std::uint64_t size);
    Status sync();
    void close();

  private:
    friend Status overwrite_file(const std::string& path, std::span<const std::uint8_t> bytes);

    Status read_direct(std::uint64_t offset, std::span<std::uint8_t> out) const;

    int fd_ = -1;
    bool writable_ = false;
    std::uint64_t size_ = 0;
    mutable std::vector<std::uint8_t> ahead_;  // bytes from ahead_at_ on
    mutable std::uint64_t ahead_at_ = 0;
};

// Replaces the contents of an existing or new file at path.
Status overwrite_file(const std::string& path, std::span<const std::uint8_t> bytes);
bool path_exists(const std::string& path);
bool is_regular_file(const std::string& path);
Status remove_file(const std::string& path);

}  // namespace cdfgate::engine::io
