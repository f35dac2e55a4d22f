#include "gateway/open_file_registry.h"

#include "cdf.h"
#include "errors/errors.h"
#include "hv/entry.h"

namespace cdfgate::gateway {
namespace {
OpenFileRegistry registry;  // the one piece of mutable gateway state
}  // namespace

OpenFileRegistry& openFileRegistry() {
    return registry;
}

void closeAllOpenFiles() {
    if (registry.count() != 0) {
        const QUORIN::imagesci::cdflib::closingFileHandle warning;
        hvWarningMsgId(warning.messageId(), warning.arguments());
    }
    for (const std::uint64_t handle : registry.handles()) {
        const CDFid id = reinterpret_cast<CDFid>(static_cast<std::uintptr_t>(handle));
        (void)CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
    }
}

}  // namespace cdfgate::gateway

void QNTerminate() {
    cdfgate::gateway::closeAllOpenFiles();
}
