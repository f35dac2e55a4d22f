// The error facility over Octave: errors travel as HostError to the MEX boundary,
// warnings go straight to Octave's warning system.
#include <octave/error.h>

#include <string>

#include "host_error.h"
#include "hv/catalog.h"
#include "hv/except.h"
#include "mex_context.h"

void hvErrMsgId(const foundation::core::except::IMsgIdException& error) {
    const std::string& identifier = error.messageId().str();
    throw cdfgate::host::octave::HostError(
        identifier, cdfgate::host::formatMessage(identifier, error.arguments()));
}

// Octave's own warning call rather than the MEX one: the MEX one names the running
// MEX function, and the shutdown warning comes when none is running. The prefix
// matches the one Octave gives the errors of a MEX function.
// When the user has turned this warning into an error, Octave throws from here; in
// a call the exception unwinds the gateway like any other and the boundary passes it
// on. At shutdown it is dropped, so that the hook goes on to close the files.
void hvWarningMsgId(const foundation::core::msg::MessageId& id,
                    const foundation::core::msg::MessageArguments& arguments) {
    const std::string text = cdfgate::host::formatMessage(id.str(), arguments);
    try {
        warning_with_id(id.str().c_str(), "cdflib: %s", text.c_str());
    } catch (...) {
        if (cdfgate::host::octave::insideMexCall()) throw;
    }
}
