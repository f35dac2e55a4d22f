#include <iostream>

#include "cdfgate/host_error.h"
#include "hv/catalog.h"

namespace cdfgate::embedded {
namespace {

// The host's warning log: the one piece of state the built-in host keeps.
std::vector<Warning>& warningLog() {
    static std::vector<Warning> log;
    return log;
}

}  // namespace

HostError::HostError(std::string identifier, foundation::core::msg::MessageArguments arguments,
                     const std::string& text)
    : std::runtime_error(text),
      details_(
          std::make_shared<const Details>(Details{std::move(identifier), std::move(arguments)})) {}

const std::vector<Warning>& warnings() {
    return warningLog();
}

void clearWarnings() {
    warningLog().clear();
}

}  // namespace cdfgate::embedded

void hvErrMsgId(const foundation::core::except::IMsgIdException& error) {
    const std::string& identifier = error.messageId().str();
    throw cdfgate::embedded::HostError(identifier, error.arguments(),
                                       cdfgate::host::formatMessage(identifier, error.arguments()));
}

void hvWarningMsgId(const foundation::core::msg::MessageId& id,
                    const foundation::core::msg::MessageArguments& arguments) {
    std::string text = cdfgate::host::formatMessage(id.str(), arguments);
    std::cerr << "Warning: " << text << '\n';
    cdfgate::embedded::warningLog().push_back({id.str(), arguments, std::move(text)});
}
