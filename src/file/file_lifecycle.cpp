// "open", "create", "close" and "delete": the only commands that add or remove a file
// identifier. The registry follows the CDF interface's result, never precedes it.
#include <cstdint>
#include <string>

#include "errors/check_status.h"
#include "errors/errors.h"
#include "file/file_commands.h"
#include "gateway/arguments.h"
#include "gateway/open_file_registry.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

std::uint64_t handleOf(CDFid id) {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(id));
}

void registerAndReturn(OutputSlot* plhs, CDFid id) {
    openFileRegistry().registerFileId(handleOf(id));
    plhs[0] = createUint64Scalar(handleOf(id));
}

}  // namespace

void openCdf(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    std::string name = getAsciiString(prhs[0]);
    CDFid id = nullptr;
    // The open's own status is deliberately not passed on.
    if (CDFlib(OPEN_, CDF_, name.data(), &id, NULL_) < CDF_OK) {
        hvErrMsgId(QUORIN::imagesci::cdflib::fileOpenError());
    }
    // Every variable is addressed as a zVariable. If this fails the file stays open in
    // the CDF interface but is never registered.
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, CDF_zMODE_, zMODEon2, NULL_), "CDFsetzMode");
    registerAndReturn(plhs, id);
}

void createCdf(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    std::string name = getAsciiString(prhs[0]);
    CDFid id = nullptr;
    if (CDFcreateCDF(name.data(), &id) < CDF_OK) {
        hvErrMsgId(QUORIN::imagesci::cdflib::fileCreateError());
    }
    registerAndReturn(plhs, id);
}

void closeCdf(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_), "CDFcloseCDF");
    openFileRegistry().unregisterFileId(handleOf(id));
}

void deleteCdf(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, DELETE_, CDF_, NULL_), "CDFdelete");
    openFileRegistry().unregisterFileId(handleOf(id));
}

}  // namespace cdfgate::gateway
