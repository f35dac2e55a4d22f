#include "constants/constant_table.h"

#include <array>
#include <utility>

#include "errors/errors.h"

namespace cdfgate::constants {
namespace {

struct ConstantEntry {
    const char* name;
    std::int64_t value;
};

// The names are all upper case (unlike some spellings of the C interface) so that
// every key survives the upper-casing of the lookup.
constexpr std::array<ConstantEntry, 61> kConstantEntries{{
    {"VARIABLE_SCOPE", 2},
    {"GLOBAL_SCOPE", 1},
    {"CDF_BYTE", 41},
    {"CDF_CHAR", 51},
    {"CDF_DOUBLE", 45},
    {"CDF_EPOCH", 31},
    {"CDF_EPOCH16", 32},
    {"CDF_TIME_TT2000", 33},
    {"CDF_FLOAT", 44},
    {"CDF_INT1", 1},
    {"CDF_INT2", 2},
    {"CDF_INT4", 4},
    {"CDF_INT8", 8},
    {"CDF_REAL4", 21},
    {"CDF_REAL8", 22},
    {"CDF_UCHAR", 52},
    {"CDF_UINT1", 11},
    {"CDF_UINT2", 12},
    {"CDF_UINT4", 14},
    {"MD5_CHECKSUM", 1},
    {"NO_CHECKSUM", 0},
    {"OTHER_CHECKSUM", 2},
    {"AHUFF_COMPRESSION", 3},
    {"GZIP_COMPRESSION", 5},
    {"HUFF_COMPRESSION", 2},
    {"RLE_COMPRESSION", 1},
    {"NO_COMPRESSION", 0},
    {"OPTIMAL_ENCODING_TREES", 0},
    {"RLE_OF_ZEROS", 0},
    {"NETWORK_ENCODING", 1},
    {"SUN_ENCODING", 2},
    {"VAX_ENCODING", 3},
    {"DECSTATION_ENCODING", 4},
    {"SGI_ENCODING", 5},
    {"IBMPC_ENCODING", 6},
    {"IBMRS_ENCODING", 7},
    {"HOST_ENCODING", 8},
    {"MAC_ENCODING", 9},
    {"HP_ENCODING", 11},
    {"NEXT_ENCODING", 12},
    {"ALPHAOSF1_ENCODING", 13},
    {"ALPHAMVSD_ENCODING", 14},
    {"ALPHAMVSG_ENCODING", 15},
    {"ALPHAMVSI_ENCODING", 16},
    {"ARM_LITTLE_ENCODING", 17},
    {"ARM_BIG_ENCODING", 18},
    {"MULTI_FILE", 2},
    {"SINGLE_FILE", 1},
    {"ROW_MAJOR", 1},
    {"COLUMN_MAJOR", 2},
    {"READONLYOFF", 0},
    {"READONLYON", -1},
    {"NO_SPARSERECORDS", 0},
    {"PAD_SPARSERECORDS", 1},
    {"PREV_SPARSERECORDS", 2},
    {"VARY", -1},
    {"NOVARY", 0},
    {"VALIDATEFILEON", -1},
    {"VALIDATEFILEOFF", 0},
    {"BACKWARDFILEON", 1},
    {"BACKWARDFILEOFF", 0},
}};

ConstantTable buildConstantTable() {
    ConstantTable table;
    for (const ConstantEntry& entry : kConstantEntries) {
        table.emplace(entry.name, static_cast<double>(entry.value));  // first insertion wins
    }
    return table;
}

// All tables are built once at load and never change afterwards. The mode names keep
// the mixed-case spellings the getters return (validation: 1 is "on", unlike the
// constant table's -1).
const ConstantTable kConstantTable = buildConstantTable();
const ModeNameMap kBackwardFileModeNames{{0, "BACKWARDFILEoff"}, {1, "BACKWARDFILEon"}};
const ModeNameMap kFormatNames{{2, "MULTI_FILE"}, {1, "SINGLE_FILE"}};
const ModeNameMap kChecksumNames{{0, "NO_CHECKSUM"}, {1, "MD5_CHECKSUM"}, {2, "OTHER_CHECKSUM"}};
const ModeNameMap kReadOnlyModeNames{{-1, "READONLYon"}, {0, "READONLYoff"}};
const ModeNameMap kMajorityNames{{1, "ROW_MAJOR"}, {2, "COLUMN_MAJOR"}};
const ModeNameMap kValidationModeNames{{0, "VALIDATEFILEoff"}, {1, "VALIDATEFILEon"}};
const ModeNameMap kSparseRecordsNames{
    {0, "NO_SPARSERECORDS"}, {1, "PAD_SPARSERECORDS"}, {2, "PREV_SPARSERECORDS"}};
const ModeNameMap kScopeNames{{1, "GLOBAL_SCOPE"}, {2, "VARIABLE_SCOPE"}};

}  // namespace

const ConstantTable& constantTable() {
    return kConstantTable;
}
const ModeNameMap& backwardFileModeNames() {
    return kBackwardFileModeNames;
}
const ModeNameMap& formatNames() {
    return kFormatNames;
}
const ModeNameMap& checksumNames() {
    return kChecksumNames;
}
const ModeNameMap& readOnlyModeNames() {
    return kReadOnlyModeNames;
}
const ModeNameMap& majorityNames() {
    return kMajorityNames;
}
const ModeNameMap& validationModeNames() {
    return kValidationModeNames;
}
const ModeNameMap& sparseRecordsNames() {
    return kSparseRecordsNames;
}
const ModeNameMap& scopeNames() {
    return kScopeNames;
}

std::string lookupModeName(const ModeNameMap& map, std::int64_t value,
                           const std::string& description) {
    const auto found = map.find(value);
    if (found == map.end()) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(value, description));
    }
    return found->second;
}

}  // namespace cdfgate::constants
