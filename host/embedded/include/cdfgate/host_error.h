// How the built-in host delivers the gateway's errors and warnings to a C++ program.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "hv/except.h"

namespace cdfgate::embedded {

// What hvErrMsgId throws: the message identifier, its arguments and the text filled
// in from the message catalogue. what() is the text.
class HostError : public std::runtime_error {
  public:
    HostError(std::string identifier, foundation::core::msg::MessageArguments arguments,
              const std::string& text);

    const std::string& identifier() const noexcept { return details_->identifier; }
    const foundation::core::msg::MessageArguments& arguments() const noexcept {
        return details_->arguments;
    }

  private:
    // Shared so that copying the exception cannot throw.
    struct Details {
        std::string identifier;
        foundation::core::msg::MessageArguments arguments;
    };
    std::shared_ptr<const Details> details_;
};

// One warning issued through hvWarningMsgId.
struct Warning {
    std::string identifier;
    foundation::core::msg::MessageArguments arguments;
    std::string text;
};

// Warnings issued since the program started or since the last clearWarnings(), oldest
// first. The host serialises its calls, so the list is not guarded.
const std::vector<Warning>& warnings();
void clearWarnings();

}  // namespace cdfgate::embedded
