// The host's error facility: message-identifier exceptions and the calls that
// hand errors and warnings to the host.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace foundation::core::msg {

// One argument of a message: a signed integer or a text.
using MessageArgument = std::variant<std::int64_t, std::string, std::u16string>;
using MessageArguments = std::vector<MessageArgument>;

// "COMPONENT:name", built from its two parts, with the number of arguments fixed.
class MessageId {
  public:
    MessageId(std::string_view component, std::string_view name, std::size_t argumentCount)
        : text_(std::string(component) + ":" + std::string(name)), argumentCount_(argumentCount) {}
    const std::string& str() const noexcept { return text_; }
    std::size_t argumentCount() const noexcept { return argumentCount_; }

  private:
    std::string text_;
    std::size_t argumentCount_;
};

}  // namespace foundation::core::msg

namespace foundation::core::except {

// What every message-identifier error offers, whatever its concrete class.
class IMsgIdException {
  public:
    virtual ~IMsgIdException() = default;
    virtual const msg::MessageId& messageId() const noexcept = 0;
    virtual const msg::MessageArguments& arguments() const noexcept = 0;
};

// Base of every error class: carries the identifier and the arguments; what()
// answers the identifier.
template <typename Derived, typename Base>
class Exception : public Base, public IMsgIdException {
  public:
    Exception(msg::MessageId id, msg::MessageArguments arguments)
        : id_(std::move(id)), arguments_(std::move(arguments)) {}

    const char* what() const noexcept override { return id_.str().c_str(); }
    const msg::MessageId& messageId() const noexcept override { return id_; }
    const msg::MessageArguments& arguments() const noexcept override { return arguments_; }

  private:
    msg::MessageId id_;
    msg::MessageArguments arguments_;
};

}  // namespace foundation::core::except

// Raises the error through the host's error path; never returns.
[[noreturn]] void hvErrMsgId(const foundation::core::except::IMsgIdException& error);
// Issues a warning with its identifier and arguments; returns.
void hvWarningMsgId(const foundation::core::msg::MessageId& id,
                    const foundation::core::msg::MessageArguments& arguments);
