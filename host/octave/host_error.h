// The error that hvErrMsgId throws inside the MEX function. It carries the
// identifier and the finished message text to the boundary, which raises it in
// Octave once every C++ frame of the call is gone.
#pragma once

#include <string>
#include <utility>

namespace cdfgate::host::octave {

// Deliberately not a std::exception, so that no catch of the standard hierarchy
// inside the gateway mistakes it for a failure of its own.
class HostError {
  public:
    HostError(std::string identifier, std::string text)
        : identifier_(std::move(identifier)), text_(std::move(text)) {}
    const std::string& identifier() const noexcept { return identifier_; }
    const std::string& text() const noexcept { return text_; }

  private:
    std::string identifier_;
    std::string text_;
};

}  // namespace cdfgate::host::octave
