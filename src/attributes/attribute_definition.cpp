// createAttr, deleteAttr, renameAttr.
#include "attributes/attribute_commands.h"
#include "errors/check_status.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {

void createAttr(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const std::string name = getStringArg(prhs[1]);
    // The scope goes through unchecked: an invalid code is the library's to refuse.
    const long scope = getInt64Scalar(prhs[2], "SCOPE");
    long attrNum = 0;
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, CREATE_, ATTR_, name.c_str(), scope, &attrNum, NULL_),
        "CDFcreateAttr");
    plhs[0] = createDoubleScalar(static_cast<double>(attrNum));
}

void deleteAttr(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, DELETE_, ATTR_, NULL_),
                        "CDFdeleteAttr");
}

void renameAttr(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    // This command alone names its attribute number "ATTNUM".
    const long attrNum = getInt64Scalar(prhs[1], "ATTNUM");
    const std::string newName = getStringArg(prhs[2]);
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, PUT_, ATTR_NAME_, newName.c_str(), NULL_),
        "CDFrenameAttr");
}

}  // namespace cdfgate::gateway
