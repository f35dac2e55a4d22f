#include "errors/check_status.h"

#include <array>

#include "errors/errors.h"

namespace cdfgate::errors {

void checkStatus(CDFstatus status, const std::string& functionName) {
    if (status >= CDF_OK) return;
    std::array<char, CDF_STATUSTEXT_LEN + 1> text{};
    // The text query itself cannot fail in a way worth reporting over the original status.
    (void)CDFlib(SELECT_, CDF_STATUS_, status, GET_, STATUS_TEXT_, text.data(), NULL_);
    text.back() = '\0';
    hvErrMsgId(QUORIN::imagesci::cdflib::libraryFailure(functionName, std::string(text.data())));
}

}  // namespace cdfgate::errors
