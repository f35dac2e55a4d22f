// A zVariable's cache size, which only multi-file CDFs have: both commands ask for the
// file's format after converting every argument and before touching the variable.
#include "errors/errors.h"
#include "file/cdf_item_calls.h"
#include "file/file_commands.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

void requireMultiFile(CDFid id) {
    if (fileFormat(id) == SINGLE_FILE) {
        hvErrMsgId(QUORIN::imagesci::cdflib::varCacheSizeOpInappropriate());
    }
}

}  // namespace

void getVarCacheSize(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    requireMultiFile(id);
    const long buffers = readVarItem(id, varNum, CONFIRM_, zVAR_CACHESIZE_, "CDFgetzVarCacheSize");
    plhs[0] = createDoubleScalar(static_cast<double>(buffers));
}

void setVarCacheSize(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    const long buffers = getInt64Scalar(prhs[2], "NUMBUFFERS");
    requireMultiFile(id);
    writeVarItem(id, varNum, SELECT_, zVAR_CACHESIZE_, buffers, "CDFsetzVarCacheSize");
}

}  // namespace cdfgate::gateway
