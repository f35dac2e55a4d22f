#include "variables/datatypes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <map>

#include "cdf.h"
#include "errors/errors.h"

namespace cdfgate::gateway {
namespace {

constexpr std::size_t kTableSize = 53;  // codes 0..52

struct DatatypeRow {
    long code;
    const char* name;
    std::uint8_t elementSize;
    hvClassID classId;
};

constexpr std::array<DatatypeRow, 17> kDatatypes{{
    {CDF_INT1, "CDF_INT1", 1, hvINT8_CLASS},
    {CDF_INT2, "CDF_INT2", 2, hvINT16_CLASS},
    {CDF_INT4, "CDF_INT4", 4, hvINT32_CLASS},
    {CDF_INT8, "CDF_INT8", 8, hvINT64_CLASS},
    {CDF_UINT1, "CDF_UINT1", 1, hvUINT8_CLASS},
    {CDF_UINT2, "CDF_UINT2", 2, hvUINT16_CLASS},
    {CDF_UINT4, "CDF_UINT4", 4, hvUINT32_CLASS},
    {CDF_REAL4, "CDF_REAL4", 4, hvSINGLE_CLASS},
    {CDF_REAL8, "CDF_REAL8", 8, hvDOUBLE_CLASS},
    {CDF_EPOCH, "CDF_EPOCH", 8, hvDOUBLE_CLASS},
    {CDF_EPOCH16, "CDF_EPOCH16", 16, hvDOUBLE_CLASS},
    {CDF_TIME_TT2000, "CDF_TIME_TT2000", 8, hvINT64_CLASS},
    {CDF_BYTE, "CDF_BYTE", 1, hvINT8_CLASS},
    {CDF_FLOAT, "CDF_FLOAT", 4, hvSINGLE_CLASS},
    {CDF_DOUBLE, "CDF_DOUBLE", 8, hvDOUBLE_CLASS},
    {CDF_CHAR, "CDF_CHAR", 1, hvCHAR_CLASS},
    {CDF_UCHAR, "CDF_UCHAR", 1, hvCHAR_CLASS},
}};

constexpr std::uint64_t acceptedMask() {
    std::uint64_t mask = 0;
    for (const DatatypeRow& row : kDatatypes) mask |= std::uint64_t{1} << row.code;
    return mask;
}

// Indexed by code; 0 marks an unsupported code.
template <typename Field>
constexpr std::array<std::uint8_t, kTableSize> tableOf(Field field) {
    std::array<std::uint8_t, kTableSize> table{};
    for (const DatatypeRow& row : kDatatypes) {
        table[static_cast<std::size_t>(row.code)] = static_cast<std::uint8_t>(field(row));
    }
    return table;
}

constexpr std::uint64_t kAcceptedMask = acceptedMask();
constexpr auto kClassTable = tableOf([](const DatatypeRow& row) { return row.classId; });
constexpr auto kSizeTable = tableOf([](const DatatypeRow& row) { return row.elementSize; });

bool inTable(long code) noexcept {
    return code >= 0 && static_cast<unsigned long>(code) < kTableSize;
}

[[noreturn]] void refuseDatatype(long code) {
    hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(code, "DATATYPE"));
}

const std::map<long, std::string>& nameMap() {
    static const std::map<long, std::string> names = [] {
        std::map<long, std::string> built;
        for (const DatatypeRow& row : kDatatypes) built.emplace(row.code, row.name);
        return built;
    }();
    return names;
}

}  // namespace

void checkDatatype(long code) {
    const bool accepted = code >= 0 && code < 64 && ((kAcceptedMask >> code) & 1U) != 0;
    if (!accepted) refuseDatatype(code);
}

hvClassID datatypeClass(long code) {
    checkDatatype(code);
    return inTable(code) ? static_cast<hvClassID>(kClassTable[static_cast<std::size_t>(code)])
                         : hvUNKNOWN_CLASS;
}

std::size_t datatypeElementSize(long code) {
    checkDatatype(code);
    return kSizeTable[static_cast<std::size_t>(code)];
}

bool isCharacterDatatype(long code) noexcept {
    return code == CDF_CHAR || code == CDF_UCHAR;
}

const std::string& datatypeName(long code) {
    const auto& names = nameMap();
    const auto found = names.find(code);
    if (found == names.end()) refuseDatatype(code);
    return found->second;
}

matrix::array_ptr datatypeNameLower(long code) {
    // ASCII only: the names are fixed ASCII, and a host's locale must not change them.
    std::string lower = datatypeName(code);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return matrix::create(lower.data(), lower.size());
}

void resizeBuffer(ByteBuffer& buffer, long code, std::size_t n) {
    checkDatatype(code);
    const std::size_t bytes =
        isCharacterDatatype(code) ? n + 1 : n * kSizeTable[static_cast<std::size_t>(code)];
    buffer.resize(bytes);
}

matrix::array_ptr bufferToArray(const ByteBuffer& buffer, long code) {
    checkDatatype(code);
    if (isCharacterDatatype(code)) {
        const auto zero = std::find(buffer.begin(), buffer.end(), '\0');
        return matrix::create(buffer.data(), static_cast<std::size_t>(zero - buffer.begin()));
    }
    const std::size_t elementSize = kSizeTable[static_cast<std::size_t>(code)];
    const std::size_t count = buffer.size() / elementSize;
    const std::array<std::size_t, 2> dims = code == CDF_EPOCH16
                                                ? std::array<std::size_t, 2>{2, count}
                                                : std::array<std::size_t, 2>{1, count};
    matrix::array_ptr array =
        matrix::detail::do_create_uninitnumeric(dims, datatypeClass(code), hvREAL);
    if (count != 0) std::memcpy(hvGetData(array.get()), buffer.data(), count * elementSize);
    return array;
}

void checkValueClass(const hvArray* value, long code) {
    if (hvGetClassID(value) != datatypeClass(code)) {
        hvErrMsgId(
            QUORIN::imagesci::cdflib::datatypeMismatch(datatypeName(code), hvGetClassName(value)));
    }
}

}  // namespace cdfgate::gateway
