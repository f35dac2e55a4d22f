// The handles of the files the gateway has opened or created and not yet closed.
#pragma once

#include <cstdint>
#include <set>

namespace cdfgate::gateway {

class OpenFileRegistry {
  public:
    void registerFileId(std::uint64_t handle) { handles_.insert(handle); }
    void unregisterFileId(std::uint64_t handle) { handles_.erase(handle); }
    bool isFileIdUnknown(std::uint64_t handle) const { return !handles_.contains(handle); }
    std::size_t count() const { return handles_.size(); }
    // Ascending handle order.
    const std::set<std::uint64_t>& handles() const { return handles_; }

  private:
    std::set<std::uint64_t> handles_;
};

// The process-wide registry, built empty at load.
OpenFileRegistry& openFileRegistry();

// Warns "closingFileHandle" once if any file is open, then closes each in ascending
// handle order, ignoring their statuses. The members stay registered.
void closeAllOpenFiles();

}  // namespace cdfgate::gateway
