// What an open CDF says about itself: version, copyright, name, maximum record number
// of its zVariables and the general description of "inquire".
#include <array>
#include <map>
#include <string>

#include "constants/constant_table.h"
#include "errors/check_status.h"
#include "errors/errors.h"
#include "file/cdf_item_calls.h"
#include "file/file_commands.h"
#include "file/text_buffer.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

// Encoding value to name, built on first use. There is no encoding 10.
const std::map<double, std::string>& encodingNames() {
    static const std::map<double, std::string> names{
        {1, "NETWORK_ENCODING"},     {2, "SUN_ENCODING"},        {3, "VAX_ENCODING"},
        {4, "DECSTATION_ENCODING"},  {5, "SGI_ENCODING"},        {6, "IBMPC_ENCODING"},
        {7, "IBMRS_ENCODING"},       {8, "HOST_ENCODING"},       {9, "MAC_ENCODING"},
        {11, "HP_ENCODING"},         {12, "NEXT_ENCODING"},      {13, "ALPHAOSF1_ENCODING"},
        {14, "ALPHAMVSD_ENCODING"},  {15, "ALPHAMVSG_ENCODING"}, {16, "ALPHAMVSI_ENCODING"},
        {17, "ARM_LITTLE_ENCODING"}, {18, "ARM_BIG_ENCODING"},
    };
    return names;
}

const std::string& encodingName(long encoding) {
    const auto& names = encodingNames();
    const auto found = names.find(static_cast<double>(encoding));
    if (found == names.end()) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(encoding, "ENCODING"));
    }
    return found->second;
}

matrix::array_ptr number(long value) {
    return createDoubleScalar(static_cast<double>(value));
}

}  // namespace

void getVersion(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    long version = 0;
    long release = 0;
    long increment = 0;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, GET_, CDF_VERSION_, &version, CDF_RELEASE_,
                               &release, CDF_INCREMENT_, &increment, NULL_),
                        "CDFgetVersion");
    placeOutput(nlhs, plhs, 0, number(version));
    placeOutput(nlhs, plhs, 1, number(release));
    placeOutput(nlhs, plhs, 2, number(increment));
}

void getCopyright(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    TextBuffer<CDF_COPYRIGHT_LEN> text{};
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, GET_, CDF_COPYRIGHT_, text.data(), NULL_),
                        "CDFgetCopyright");
    plhs[0] = createString(textOf(text));
}

void getName(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    TextBuffer<CDF_PATHNAME_LEN> text{};
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, CONFIRM_, CDF_NAME_, text.data(), NULL_),
                        "CDFgetName");
    plhs[0] = createString(textOf(text));
}

void getVarsMaxWrittenRecNum(int, OutputSlot* plhs, int, const hvArray* const* prhs,
                             const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    plhs[0] = number(readFileItem(id, GET_, zVARs_MAXREC_, "CDFgetzVarsMaxWrittenRecNum"));
}

void inquireCdf(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    long numDims = 0;
    std::array<long, CDF_MAX_DIMS> dimSizes{};
    long encoding = 0;
    long majority = 0;
    long maxRec = 0;
    long numRVars = 0;
    long maxZRec = 0;
    long numZVars = 0;
    long numAttrs = 0;
    // The rVariable figures are fetched with the rest and not returned.
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, GET_, rVARs_NUMDIMS_, &numDims, rVARs_DIMSIZES_,
                               dimSizes.data(), CDF_ENCODING_, &encoding, CDF_MAJORITY_, &majority,
                               rVARs_MAXREC_, &maxRec, CDF_NUMrVARS_, &numRVars, zVARs_MAXREC_,
                               &maxZRec, CDF_NUMzVARS_, &numZVars, CDF_NUMATTRS_, &numAttrs, NULL_),
                        "CDFinquireCDF");
    const std::string& encodingText = encodingName(encoding);
    const std::string majorityText =
        constants::lookupModeName(constants::majorityNames(), majority, "MAJORITY");
    placeOutput(nlhs, plhs, 0, createString(encodingText));
    placeOutput(nlhs, plhs, 1, createString(majorityText));
    placeOutput(nlhs, plhs, 2, number(maxZRec));
    placeOutput(nlhs, plhs, 3, number(numZVars));
    placeOutput(nlhs, plhs, 4, number(numAttrs));
}

}  // namespace cdfgate::gateway
