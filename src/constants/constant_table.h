// The symbolic constant names the host uses, and the value-to-name maps through
// which mode getters answer.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace cdfgate::constants {

// Upper-case name to value, ordered byte-wise.
using ConstantTable = std::map<std::string, double>;
using ModeNameMap = std::map<std::int64_t, std::string>;

const ConstantTable& constantTable();

const ModeNameMap& backwardFileModeNames();
const ModeNameMap& formatNames();
const ModeNameMap& checksumNames();
const ModeNameMap& readOnlyModeNames();
const ModeNameMap& majorityNames();
const ModeNameMap& validationModeNames();
const ModeNameMap& sparseRecordsNames();
const ModeNameMap& scopeNames();

// The name of `value` in `map`; raises "unrecognizedValue" with the value and the
// description when the map has none.
std::string lookupModeName(const ModeNameMap& map, std::int64_t value,
                           const std::string& description);

}  // namespace cdfgate::constants
