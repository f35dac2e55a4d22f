// getAttrName, getAttrNum, getAttrScope, inquireAttr.
#include <array>

#include "attributes/attribute_commands.h"
#include "attributes/attribute_scope.h"
#include "errors/check_status.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {
namespace {

using NameBuffer = std::array<char, CDF_ATTR_NAME_LEN256 + 1>;

// The text up to the first NUL; the last byte is forced to NUL so a name of the
// full length still ends inside the buffer.
matrix::array_ptr nameOutput(NameBuffer& buffer) {
    buffer.back() = '\0';
    return createString(buffer.data());
}

}  // namespace

void getAttrName(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    NameBuffer name{};
    errors::checkStatus(
        CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, GET_, ATTR_NAME_, name.data(), NULL_),
        "CDFgetAttrName");
    plhs[0] = nameOutput(name);
}

void getAttrNum(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    std::string name = getStringArg(prhs[1]);
    // The one result is either the number or a negative status.
    const long attrNum = CDFgetAttrNum(id, name.data());
    errors::checkStatus(attrNum, "CDFgetAttrNum");
    plhs[0] = createDoubleScalar(static_cast<double>(attrNum));
}

void getAttrScope(int, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    plhs[0] = createString(scopeName(attributeScope(id, attrNum)));
}

void inquireAttr(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long attrNum = getInt64Scalar(prhs[1], "ATTRNUM");
    NameBuffer name{};
    long scope = 0;
    long maxgEntry = 0;
    long maxrEntry = 0;  // asked for, never returned
    long maxzEntry = 0;
    // A failure here is reported as "CDFinquireCDF", as it always has been.
    errors::checkStatus(
        CDFinquireAttr(id, attrNum, name.data(), &scope, &maxgEntry, &maxrEntry, &maxzEntry),
        "CDFinquireCDF");
    matrix::array_ptr nameArray = nameOutput(name);
    matrix::array_ptr scopeArray = createString(scopeName(scope));
    placeOutput(nlhs, plhs, 0, std::move(nameArray));
    placeOutput(nlhs, plhs, 1, std::move(scopeArray));
    placeOutput(nlhs, plhs, 2, createDoubleScalar(static_cast<double>(maxgEntry)));
    placeOutput(nlhs, plhs, 3, createDoubleScalar(static_cast<double>(maxzEntry)));
}

}  // namespace cdfgate::gateway
