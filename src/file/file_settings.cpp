// File-wide settings of an open CDF: cache sizes, format, majority, checksum and
// read-only mode. Read-only mode and caches are selected and confirmed; format,
// majority and checksum are put and got.
#include "constants/constant_table.h"
#include "file/cdf_item_calls.h"
#include "file/file_commands.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

void returnNumber(OutputSlot* plhs, long value) {
    plhs[0] = createDoubleScalar(static_cast<double>(value));
}

void returnModeName(OutputSlot* plhs, const constants::ModeNameMap& names, long value,
                    const char* description) {
    plhs[0] = createString(constants::lookupModeName(names, value, description));
}

// id, then one numeric argument under `argumentName`, written as `op` `item`.
void setFileItem(const hvArray* const* prhs, const char* argumentName, long op, long item,
                 const char* functionName) {
    const CDFid id = getCdfId(prhs[0]);
    const long value = getInt64Scalar(prhs[1], argumentName);
    writeFileItem(id, op, item, value, functionName);
}

}  // namespace

void getCacheSize(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnNumber(plhs, readFileItem(id, CONFIRM_, CDF_CACHESIZE_, "CDFgetCacheSize"));
}

void setCacheSize(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setFileItem(prhs, "NUMBUFFERS", SELECT_, CDF_CACHESIZE_, "CDFsetCacheSize");
}

void getCompressionCacheSize(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                             const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnNumber(plhs,
                 readFileItem(id, CONFIRM_, COMPRESS_CACHESIZE_, "CDFgetCompressionCacheSize"));
}

void setCompressionCacheSize(int, OutputSlot*, int, const hvArray* const* prhs,
                             const CommandEntry*) {
    setFileItem(prhs, "NUMBUFFERS", SELECT_, COMPRESS_CACHESIZE_, "CDFsetCompressionCacheSize");
}

void getStageCacheSize(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                       const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnNumber(plhs, readFileItem(id, CONFIRM_, STAGE_CACHESIZE_, "CDFgetStageCacheSize"));
}

void setStageCacheSize(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setFileItem(prhs, "NUMBUFFERS", SELECT_, STAGE_CACHESIZE_, "CDFsetStageCacheSize");
}

void setVarsCacheSize(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setFileItem(prhs, "NUMBUFFERS", SELECT_, zVARs_CACHESIZE_, "CDFsetzVarsCacheSize");
}

void getFormat(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnModeName(plhs, constants::formatNames(),
                   readFileItem(id, GET_, CDF_FORMAT_, "CDFgetFormat"), "FORMAT");
}

void setFormat(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    // The value shares the cache setters' argument name.
    setFileItem(prhs, "NUMBUFFERS", PUT_, CDF_FORMAT_, "CDFsetFormat");
}

void getMajority(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnModeName(plhs, constants::majorityNames(),
                   readFileItem(id, GET_, CDF_MAJORITY_, "CDFgetMajority"), "MAJORITY");
}

void setMajority(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setFileItem(prhs, "MAJORITY", PUT_, CDF_MAJORITY_, "CDFsetMajority");
}

void getChecksum(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnModeName(plhs, constants::checksumNames(),
                   readFileItem(id, GET_, CDF_CHECKSUM_, "CDFgetChecksum"), "CHECKSUM");
}

void setChecksum(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setFileItem(prhs, "MODE", PUT_, CDF_CHECKSUM_, "CDFsetChecksum");
}

void getReadOnlyMode(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    returnModeName(plhs, constants::readOnlyModeNames(),
                   readFileItem(id, CONFIRM_, CDF_READONLY_MODE_, "CDFgetReadOnlyMode"),
                   "READONLY MODE");
}

void setReadOnlyMode(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    setFileItem(prhs, "MODE", SELECT_, CDF_READONLY_MODE_, "CDFsetReadOnlyMode");
}

}  // namespace cdfgate::gateway
