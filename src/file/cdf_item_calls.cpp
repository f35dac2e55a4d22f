#include "file/cdf_item_calls.h"

#include "errors/check_status.h"

namespace cdfgate::gateway {

long readFileItem(CDFid id, long op, long item, const std::string& functionName) {
    long value = 0;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, op, item, &value, NULL_), functionName);
    return value;
}

void writeFileItem(CDFid id, long op, long item, long value, const std::string& functionName) {
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, op, item, value, NULL_), functionName);
}

long readVarItem(CDFid id, long varNum, long op, long item, const std::string& functionName) {
    long value = 0;
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, zVAR_, varNum, op, item, &value, NULL_),
                        functionName);
    return value;
}

void writeVarItem(CDFid id, long varNum, long op, long item, long value,
                  const std::string& functionName) {
    errors::checkStatus(CDFlib(SELECT_, CDF_, id, zVAR_, varNum, op, item, value, NULL_),
                        functionName);
}

long fileFormat(CDFid id) {
    return readFileItem(id, GET_, CDF_FORMAT_, "CDFgetFormat");
}

}  // namespace cdfgate::gateway
