#include "gateway/command_table.h"

#include <array>
#include <stdexcept>

#include "constants/constant_commands.h"
#include "errors/errors.h"

namespace cdfgate::gateway {
namespace {

// Row order is the lookup order; it is neither alphabetical nor the order of the ids,
// and ids 49 and 83 belong to no row. "putAttrEntry" and "putAttrgEntry" share one
// handler.
constexpr std::array<CommandEntry, 93> kCommandTable{{
    {0, "close", 1, 1, notAvailableYet},
    {1, "closeVar", 2, 2, notAvailableYet},
    {2, "computeEpoch", 1, 1, notAvailableYet},
    {3, "computeEpoch16", 1, 1, notAvailableYet},
    {4, "computeTT2000", 1, 1, notAvailableYet},
    {5, "create", 1, 1, notAvailableYet},
    {6, "createAttr", 3, 3, notAvailableYet},
    {7, "createVar", 7, 7, notAvailableYet},
    {8, "delete", 1, 1, notAvailableYet},
    {9, "deleteAttr", 2, 2, notAvailableYet},
    {10, "deleteAttrEntry", 3, 3, notAvailableYet},
    {11, "deleteAttrgEntry", 3, 3, notAvailableYet},
    {12, "deleteVar", 2, 2, notAvailableYet},
    {13, "deleteVarRecords", 4, 4, notAvailableYet},
    {14, "epochBreakdown", 1, 1, notAvailableYet},
    {15, "epoch16Breakdown", 1, 1, notAvailableYet},
    {16, "breakdownTT2000", 1, 1, notAvailableYet},
    {21, "getAttrName", 2, 2, notAvailableYet},
    {22, "getAttrNum", 2, 2, notAvailableYet},
    {17, "getAttrgEntry", 3, 3, notAvailableYet},
    {19, "getAttrMaxEntry", 2, 2, notAvailableYet},
    {20, "getAttrMaxgEntry", 2, 2, notAvailableYet},
    {23, "getAttrScope", 2, 2, notAvailableYet},
    {18, "getAttrEntry", 3, 3, notAvailableYet},
    {24, "getCacheSize", 1, 1, notAvailableYet},
    {25, "getChecksum", 1, 1, notAvailableYet},
    {26, "getCompression", 1, 1, notAvailableYet},
    {27, "getCompressionCacheSize", 1, 1, notAvailableYet},
    {28, "getCopyright", 1, 1, notAvailableYet},
    {29, "getFileBackward", 0, 0, notAvailableYet},
    {30, "getFormat", 1, 1, notAvailableYet},
    {32, "getLibraryVersion", 0, 0, notAvailableYet},
    {31, "getLibraryCopyright", 0, 0, notAvailableYet},
    {33, "getMajority", 1, 1, notAvailableYet},
    {36, "getName", 1, 1, notAvailableYet},
    {37, "getNumAttrgEntries", 2, 2, notAvailableYet},
    {38, "getNumAttrEntries", 2, 2, notAvailableYet},
    {39, "getNumgAttributes", 1, 1, notAvailableYet},
    {40, "getNumvAttributes", 1, 1, notAvailableYet},
    {41, "getReadOnlyMode", 1, 1, notAvailableYet},
    {42, "getStageCacheSize", 1, 1, notAvailableYet},
    {43, "getValidate", 0, 0, notAvailableYet},
    {44, "getVarAllocRecords", 2, 2, notAvailableYet},
    {45, "getVarCacheSize", 2, 2, notAvailableYet},
    {46, "getVarName", 2, 2, notAvailableYet},
    {34, "getVarNum", 2, 2, notAvailableYet},
    {47, "getVarPadValue", 2, 2, notAvailableYet},
    {35, "getVarReservePercent", 2, 2, notAvailableYet},
    {48, "getVersion", 1, 1, notAvailableYet},
    {50, "getVarBlockingFactor", 2, 2, notAvailableYet},
    {51, "getVarCompression", 2, 2, notAvailableYet},
    {52, "getVarData", 3, 4, notAvailableYet},
    {54, "getVarMaxWrittenRecNum", 2, 2, notAvailableYet},
    {53, "getVarMaxAllocRecNum", 2, 2, notAvailableYet},
    {55, "getVarNumRecsWritten", 2, 2, notAvailableYet},
    {56, "getVarRecordData", 3, 3, notAvailableYet},
    {57, "getVarsMaxWrittenRecNum", 1, 1, notAvailableYet},
    {58, "getVarSparseRecords", 2, 2, notAvailableYet},
    {60, "hyperGetVarData", 8, 8, notAvailableYet},
    {59, "hyperPutVarData", 9, 9, notAvailableYet},
    {61, "inquire", 1, 1, notAvailableYet},
    {65, "inquireVar", 2, 2, notAvailableYet},
    {62, "inquireAttr", 2, 2, notAvailableYet},
    {63, "inquireAttrgEntry", 3, 3, notAvailableYet},
    {64, "inquireAttrEntry", 3, 3, notAvailableYet},
    {66, "open", 1, 1, notAvailableYet},
    {67, "putAttrEntry", 5, 5, notAvailableYet},
    {68, "putAttrgEntry", 5, 5, notAvailableYet},
    {69, "putVarData", 5, 5, notAvailableYet},
    {70, "putVarRecordData", 4, 4, notAvailableYet},
    {71, "renameAttr", 3, 3, notAvailableYet},
    {72, "renameVar", 3, 3, notAvailableYet},
    {73, "setCacheSize", 2, 2, notAvailableYet},
    {74, "setChecksum", 2, 2, notAvailableYet},
    {75, "setCompression", 2, 3, notAvailableYet},
    {76, "setCompressionCacheSize", 2, 2, notAvailableYet},
    {77, "setFileBackward", 1, 1, notAvailableYet},
    {78, "setFormat", 2, 2, notAvailableYet},
    {79, "setMajority", 2, 2, notAvailableYet},
    {80, "setReadOnlyMode", 2, 2, notAvailableYet},
    {91, "setStageCacheSize", 2, 2, notAvailableYet},
    {81, "setValidate", 1, 1, notAvailableYet},
    {82, "setVarAllocBlockRecords", 4, 4, notAvailableYet},
    {84, "setVarBlockingFactor", 3, 3, notAvailableYet},
    {85, "setVarCacheSize", 3, 3, notAvailableYet},
    {86, "setVarsCacheSize", 2, 2, notAvailableYet},
    {88, "setVarPadValue", 3, 3, notAvailableYet},
    {89, "setVarReservePercent", 3, 3, notAvailableYet},
    {90, "setVarSparseRecords", 3, 3, notAvailableYet},
    {87, "setVarInitialRecs", 3, 3, notAvailableYet},
    {92, "setVarCompression", 3, 4, notAvailableYet},
    {93, "getConstantNames", 0, 0, getConstantNames},
    {94, "getConstantValue", 1, 1, getConstantValue},
}};

}  // namespace

std::span<const CommandEntry> commandTable() {
    return kCommandTable;
}

const CommandEntry& lookupCommand(const std::string& name, int nargs) {
    for (const CommandEntry& entry : kCommandTable) {
        if (name.compare(entry.name) != 0) continue;
        if (entry.minArgs > nargs || entry.maxArgs < nargs) {
            hvErrMsgId(QUORIN::imagesci::validate::wrongNumberOfInputs());
        }
        return entry;
    }
    hvErrMsgId(QUORIN::imagesci::cdflib::invalidOperation(name));
}

void notAvailableYet(int, OutputSlot*, int, const hvArray* const*, const CommandEntry* entry) {
    throw std::runtime_error(std::string("cdflib: the command \"") + entry->name +
                             "\" is not available yet in this build");
}

}  // namespace cdfgate::gateway
