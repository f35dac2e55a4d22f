// The error facility over Octave: errors travel as HostError to the MEX boundary,
// warnings go straight to Octave's warning system.
#include <string>

#include "host_error.h"
#include "hv/catalog.h"
#include "hv/except.h"
#include "mx_cast.h"

void hvErrMsgId(const foundation::core::except::IMsgIdException& error) {
    const std::string& identifier = error.messageId().str();
    throw cdfgate::host::octave::HostError(
        identifier, cdfgate::host::formatMessage(identifier, error.arguments()));
}

// When the user has turned this warning into an error, Octave throws from here; the
// exception unwinds the gateway like any other and the boundary passes it on.
void hvWarningMsgId(const foundation::core::msg::MessageId& id,
                    const foundation::core::msg::MessageArguments& arguments) {
    const std::string text = cdfgate::host::formatMessage(id.str(), arguments);
    mexWarnMsgIdAndTxt(id.str().c_str(), "%s", text.c_str());
}
