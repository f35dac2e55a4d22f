#include "gateway/command_table.h"

#include <array>
#include <string_view>

#include "attributes/attribute_commands.h"
#include "constants/constant_commands.h"
#include "errors/errors.h"
#include "file/file_commands.h"
#include "time/time_commands.h"
#include "variables/variable_commands.h"

namespace cdfgate::gateway {
namespace {

// Row order is the lookup order; it is neither alphabetical nor the order of the ids,
// and ids 49 and 83 belong to no row. "putAttrEntry" and "putAttrgEntry" share one
// handler.
constexpr std::array<CommandEntry, 93> kCommandTable{{
    {0, "close", 1, 1, closeCdf},
    {1, "closeVar", 2, 2, closeVar},
    {2, "computeEpoch", 1, 1, computeEpoch},
    {3, "computeEpoch16", 1, 1, computeEpoch16},
    {4, "computeTT2000", 1, 1, computeTT2000},
    {5, "create", 1, 1, createCdf},
    {6, "createAttr", 3, 3, createAttr},
    {7, "createVar", 7, 7, createVar},
    {8, "delete", 1, 1, deleteCdf},
    {9, "deleteAttr", 2, 2, deleteAttr},
    {10, "deleteAttrEntry", 3, 3, deleteAttrEntry},
    {11, "deleteAttrgEntry", 3, 3, deleteAttrgEntry},
    {12, "deleteVar", 2, 2, deleteVar},
    {13, "deleteVarRecords", 4, 4, deleteVarRecords},
    {14, "epochBreakdown", 1, 1, epochBreakdown},
    {15, "epoch16Breakdown", 1, 1, epoch16Breakdown},
    {16, "breakdownTT2000", 1, 1, breakdownTT2000},
    {21, "getAttrName", 2, 2, getAttrName},
    {22, "getAttrNum", 2, 2, getAttrNum},
    {17, "getAttrgEntry", 3, 3, getAttrgEntry},
    {19, "getAttrMaxEntry", 2, 2, getAttrMaxEntry},
    {20, "getAttrMaxgEntry", 2, 2, getAttrMaxgEntry},
    {23, "getAttrScope", 2, 2, getAttrScope},
    {18, "getAttrEntry", 3, 3, getAttrEntry},
    {24, "getCacheSize", 1, 1, getCacheSize},
    {25, "getChecksum", 1, 1, getChecksum},
    {26, "getCompression", 1, 1, getCompression},
    {27, "getCompressionCacheSize", 1, 1, getCompressionCacheSize},
    {28, "getCopyright", 1, 1, getCopyright},
    {29, "getFileBackward", 0, 0, getFileBackward},
    {30, "getFormat", 1, 1, getFormat},
    {32, "getLibraryVersion", 0, 0, getLibraryVersion},
    {31, "getLibraryCopyright", 0, 0, getLibraryCopyright},
    {33, "getMajority", 1, 1, getMajority},
    {36, "getName", 1, 1, getName},
    {37, "getNumAttrgEntries", 2, 2, getNumAttrgEntries},
    {38, "getNumAttrEntries", 2, 2, getNumAttrEntries},
    {39, "getNumgAttributes", 1, 1, getNumgAttributes},
    {40, "getNumvAttributes", 1, 1, getNumvAttributes},
    {41, "getReadOnlyMode", 1, 1, getReadOnlyMode},
    {42, "getStageCacheSize", 1, 1, getStageCacheSize},
    {43, "getValidate", 0, 0, getValidate},
    {44, "getVarAllocRecords", 2, 2, getVarAllocRecords},
    {45, "getVarCacheSize", 2, 2, getVarCacheSize},
    {46, "getVarName", 2, 2, getVarName},
    {34, "getVarNum", 2, 2, getVarNum},
    {47, "getVarPadValue", 2, 2, getVarPadValue},
    {35, "getVarReservePercent", 2, 2, getVarReservePercent},
    {48, "getVersion", 1, 1, getVersion},
    {50, "getVarBlockingFactor", 2, 2, getVarBlockingFactor},
    {51, "getVarCompression", 2, 2, getVarCompression},
    {52, "getVarData", 3, 4, getVarData},
    {54, "getVarMaxWrittenRecNum", 2, 2, getVarMaxWrittenRecNum},
    {53, "getVarMaxAllocRecNum", 2, 2, getVarMaxAllocRecNum},
    {55, "getVarNumRecsWritten", 2, 2, getVarNumRecsWritten},
    {56, "getVarRecordData", 3, 3, getVarRecordData},
    {57, "getVarsMaxWrittenRecNum", 1, 1, getVarsMaxWrittenRecNum},
    {58, "getVarSparseRecords", 2, 2, getVarSparseRecords},
    {60, "hyperGetVarData", 8, 8, hyperGetVarData},
    {59, "hyperPutVarData", 9, 9, hyperPutVarData},
    {61, "inquire", 1, 1, inquireCdf},
    {65, "inquireVar", 2, 2, inquireVar},
    {62, "inquireAttr", 2, 2, inquireAttr},
    {63, "inquireAttrgEntry", 3, 3, inquireAttrgEntry},
    {64, "inquireAttrEntry", 3, 3, inquireAttrEntry},
    {66, "open", 1, 1, openCdf},
    {67, "putAttrEntry", 5, 5, putAttrEntry},
    {68, "putAttrgEntry", 5, 5, putAttrEntry},
    {69, "putVarData", 5, 5, putVarData},
    {70, "putVarRecordData", 4, 4, putVarRecordData},
    {71, "renameAttr", 3, 3, renameAttr},
    {72, "renameVar", 3, 3, renameVar},
    {73, "setCacheSize", 2, 2, setCacheSize},
    {74, "setChecksum", 2, 2, setChecksum},
    {75, "setCompression", 2, 3, setCompression},
    {76, "setCompressionCacheSize", 2, 2, setCompressionCacheSize},
    {77, "setFileBackward", 1, 1, setFileBackward},
    {78, "setFormat", 2, 2, setFormat},
    {79, "setMajority", 2, 2, setMajority},
    {80, "setReadOnlyMode", 2, 2, setReadOnlyMode},
    {91, "setStageCacheSize", 2, 2, setStageCacheSize},
    {81, "setValidate", 1, 1, setValidate},
    {82, "setVarAllocBlockRecords", 4, 4, setVarAllocBlockRecords},
    {84, "setVarBlockingFactor", 3, 3, setVarBlockingFactor},
    {85, "setVarCacheSize", 3, 3, setVarCacheSize},
    {86, "setVarsCacheSize", 2, 2, setVarsCacheSize},
    {88, "setVarPadValue", 3, 3, setVarPadValue},
    {89, "setVarReservePercent", 3, 3, setVarReservePercent},
    {90, "setVarSparseRecords", 3, 3, setVarSparseRecords},
    {87, "setVarInitialRecs", 3, 3, setVarInitialRecs},
    {92, "setVarCompression", 3, 4, setVarCompression},
    {93, "getConstantNames", 0, 0, getConstantNames},
    {94, "getConstantValue", 1, 1, getConstantValue},
}};

// The names with their lengths, so that the scan compares lengths before bytes.
constexpr std::array<std::string_view, kCommandTable.size()> kCommandNames = [] {
    std::array<std::string_view, kCommandTable.size()> names{};
    for (std::size_t i = 0; i < names.size(); ++i) names[i] = kCommandTable[i].name;
    return names;
}();

}  // namespace

std::span<const CommandEntry> commandTable() {
    return kCommandTable;
}

const CommandEntry& lookupCommand(const std::string& name, int nargs) {
    for (std::size_t row = 0; row < kCommandTable.size(); ++row) {
        if (kCommandNames[row] != name) continue;
        const CommandEntry& entry = kCommandTable[row];
        if (entry.minArgs > nargs || entry.maxArgs < nargs) {
            hvErrMsgId(QUORIN::imagesci::validate::wrongNumberOfInputs());
        }
        return entry;
    }
    hvErrMsgId(QUORIN::imagesci::cdflib::invalidOperation(name));
}

}  // namespace cdfgate::gateway
