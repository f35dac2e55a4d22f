// One-item calls of the CDF interface on a selected file or zVariable, each with its
// status checked under the function name the command reports.
#pragma once

#include <string>

#include "cdf.h"

namespace cdfgate::gateway {

// SELECT_ CDF_ id, then `op` `item` into a long (GET_ or CONFIRM_).
long readFileItem(CDFid id, long op, long item, const std::string& functionName);
// SELECT_ CDF_ id, then `op` `item` value (PUT_ or SELECT_).
void writeFileItem(CDFid id, long op, long item, long value, const std::string& functionName);

// The same on zVariable `varNum` of the file.
long readVarItem(CDFid id, long varNum, long op, long item, const std::string& functionName);
void writeVarItem(CDFid id, long varNum, long op, long item, long value,
                  const std::string& functionName);

// SELECT_ CDF_ id, GET_ CDF_FORMAT_.
long fileFormat(CDFid id);

}  // namespace cdfgate::gateway
