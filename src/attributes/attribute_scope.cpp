#include "attributes/attribute_scope.h"

#include "errors/check_status.h"
#include "errors/errors.h"

namespace cdfgate::gateway {

std::string scopeName(long scope) {
    if (scope == GLOBAL_SCOPE) return "GLOBAL_SCOPE";
    if (scope == VARIABLE_SCOPE) return "VARIABLE_SCOPE";
    // The assumed scopes of old files are reported, not folded into the two names.
    hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(scope, "SCOPE"));
}

long attributeScope(CDFid id, long attrNum) {
    long scope = 0;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, ATTR_, attrNum, GET_, ATTR_SCOPE_, &scope, NULL_),
                        "CDFgetAttrScope");
    return scope;
}

}  // namespace cdfgate::gateway
