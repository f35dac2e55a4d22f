// Damage aimed at one field: looped lists, absurd counts and sizes, and compressed
// data that inflates past what its record declares. Each row names a sample, finds
// its target record through the layout and patches one field.
#include <functional>
#include <ostream>

#include "corrupt_fixture.h"

namespace cdfgate::corrupt {
namespace {

constexpr std::int32_t kVdrZ = 8, kVdrR = 3, kAdr = 4, kAgrEdr = 5, kAzEdr = 9, kVxr = 6, kUir = -1,
                       kCcr = 10, kCpr = 11, kCvvr = 13;

struct Damage {
    const char* what;
    const char* file;
    Expect expect;
    // Patches the bytes; false when the sample lacks the target (a broken row).
    std::function<bool(const Layout&, Bytes&)> patch;
};

// Sets a field of the first record of a type, by its v3 and v2 offsets; size 0 is
// an offset-sized field (8 bytes in v3, 4 in v2).
std::function<bool(const Layout&, Bytes&)> set_field(std::int32_t type, std::size_t v3_offset,
                                                     std::size_t v2_offset, std::size_t size,
                                                     std::uint64_t value) {
    return [=](const Layout& l, Bytes& b) {
        const auto records = l.of_type(type);
        if (records.empty()) return false;
        put(b, l.at(records.front(), v3_offset, v2_offset), size == 0 ? l.width() : size, value);
        return true;
    };
}

// Points a next-field of the last record of a type back at the first one (or, for a
// single record, at itself): the list never ends.
std::function<bool(const Layout&, Bytes&)> loop_list(std::int32_t type, std::size_t v3_offset,
                                                     std::size_t v2_offset) {
    return [=](const Layout& l, Bytes& b) {
        const auto records = l.of_type(type);
        if (records.empty()) return false;
        put(b, l.at(records.back(), v3_offset, v2_offset), l.width(), records.front());
        return true;
    };
}

// Points the first slot of the first VXR at the VXR itself: an index that contains
// itself, so a descent never reaches a value record.
bool vxr_slot_to_itself(const Layout& l, Bytes& b) {
    const auto vxrs = l.of_type(kVxr);
    if (vxrs.empty()) return false;
    const std::size_t vxr = vxrs.front();
    const std::size_t n = l.field(l.at(vxr, 20, 12), 4);
    if (n == 0 || n > 64) return false;
    const std::size_t offsets = l.at(vxr, 28, 20) + 8 * n;
    put(b, offsets, l.width(), vxr);
    return true;
}

// Every slot of every VXR pointing at the first VXR: a deep, wide self-reference.
bool all_slots_to_first_vxr(const Layout& l, Bytes& b) {
    const auto vxrs = l.of_type(kVxr);
    if (vxrs.empty()) return false;
    for (const std::size_t vxr : vxrs) {
        const std::size_t n = l.field(l.at(vxr, 20, 12), 4);
        if (n == 0 || n > 64) return false;
        const std::size_t first = l.at(vxr, 28, 20);
        for (std::size_t i = 0; i < n; ++i) {
            put(b, first + 8 * n + i * l.width(), l.width(), vxrs.front());
            put(b, first + 4 * i, 4, 0);
            put(b, first + 4 * n + 4 * i, 4, 0x7FFFFFFF);
        }
        put(b, l.at(vxr, 24, 16), 4, n);
    }
    return true;
}

// The first index slot pointing at a compressed block claims fewer records than the
// block holds, so the block inflates past the space its records need.
bool cvvr_slot_shorter(const Layout& l, Bytes& b) {
    for (const std::size_t vxr : l.of_type(kVxr)) {
        const std::size_t n = l.field(l.at(vxr, 20, 12), 4);
        const std::size_t used = l.field(l.at(vxr, 24, 16), 4);
        const std::size_t first = l.at(vxr, 28, 20);
        for (std::size_t i = 0; i < used && i < n; ++i) {
            const std::size_t target = l.field(first + 8 * n + i * l.width(), l.width());
            const auto lo = static_cast<std::int32_t>(l.field(first + 4 * i, 4));
            const auto hi = static_cast<std::int32_t>(l.field(first + 4 * n + 4 * i, 4));
            if (target < b.size() && l.type_of(target) == kCvvr && hi > lo) {
                put(b, first + 4 * n + 4 * i, 4, static_cast<std::uint32_t>(lo));
                return true;
            }
        }
    }
    return false;
}

const std::uint64_t kHuge32 = 0x7FFFFFFF;
const std::uint64_t kHuge64 = 0x7FFFFFFFFFFFFFF0;

const Damage kDamages[] = {
    // Looped lists.
    {"zVDR list loops", "format/zvar_int4_row.cdf", Expect::Error, loop_list(kVdrZ, 12, 8)},
    {"zVDR list loops (v2.7)", "format/zvar_int4_row_v27.cdf", Expect::Error,
     loop_list(kVdrZ, 12, 8)},
    {"rVDR list loops", "format/rvars_network.cdf", Expect::Error, loop_list(kVdrR, 12, 8)},
    {"ADR list loops", "format/gattr.cdf", Expect::Error, loop_list(kAdr, 12, 8)},
    {"ADR list loops (v2.7)", "format/vattr_v27.cdf", Expect::Error, loop_list(kAdr, 12, 8)},
    {"gEntry list loops", "format/gattr.cdf", Expect::Error, loop_list(kAgrEdr, 12, 8)},
    {"zEntry list loops", "format/vattr.cdf", Expect::Error, loop_list(kAzEdr, 12, 8)},
    {"VXR list loops", "format/vxr_tree.cdf", Expect::Error, loop_list(kVxr, 12, 8)},
    {"VXR slot points at its own VXR", "format/vxr_tree.cdf", Expect::Error, vxr_slot_to_itself},
    {"every VXR slot points at the first VXR", "format/vxr_tree.cdf", Expect::Error,
     all_slots_to_first_vxr},
    {"UIR list loops", "format/uir_attr_deleted.cdf", Expect::Anything, loop_list(kUir, 12, 8)},
    {"many variables' lists loop", "samples/example1.cdf", Expect::Error, loop_list(kVdrZ, 12, 8)},
    // Absurd counts and sizes.
    {"GDR claims 2^31 zVariables", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(2, 60, 40, 4, kHuge32)},
    {"GDR claims 2^31 attributes", "format/gattr.cdf", Expect::Error,
     set_field(2, 48, 28, 4, kHuge32)},
    {"GDR claims 2^31 rVariable dimensions", "format/rvars_network.cdf", Expect::Error,
     set_field(2, 56, 36, 4, kHuge32)},
    {"GDR eof far past the end", "format/gattr.cdf", Expect::Error,
     set_field(2, 36, 20, 0, kHuge64)},
    {"VDR of 2^31 elements", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(kVdrZ, 64, 48, 4, kHuge32)},
    {"VDR of 2^31 dimensions", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(kVdrZ, 340, 132, 4, kHuge32)},
    {"VDR of 11 dimensions", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(kVdrZ, 340, 132, 4, 11)},
    {"VDR dimension of 2^31", "format/zvar_int4_row.cdf", Expect::Anything,
     set_field(kVdrZ, 344, 136, 4, kHuge32)},
    {"VDR dimension of 0", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(kVdrZ, 344, 136, 4, 0)},
    {"VDR maxrec of 2^31-2", "format/zvar_int4_row.cdf", Expect::Anything,
     set_field(kVdrZ, 24, 16, 4, kHuge32 - 1)},
    {"VDR blocking factor of 2^31", "format/compressed_vars.cdf", Expect::Anything,
     set_field(kVdrZ, 80, 60, 4, kHuge32)},
    {"VDR record size of 2^62", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(kVdrZ, 0, 0, 0, std::uint64_t{1} << 62)},
    {"VDR of an unknown data type", "format/zvar_int4_row.cdf", Expect::Error,
     set_field(kVdrZ, 20, 12, 4, 99)},
    {"ADR claims 2^31 gEntries", "format/gattr.cdf", Expect::Anything,
     set_field(kAdr, 36, 24, 4, kHuge32)},
    {"ADR's highest gEntry 2^31-1", "format/gattr.cdf", Expect::Anything,
     set_field(kAdr, 40, 28, 4, kHuge32)},
    {"gEntry of 2^31 elements", "format/gattr.cdf", Expect::Error,
     set_field(kAgrEdr, 32, 24, 4, kHuge32)},
    {"zEntry of 2^31 elements", "format/vattr.cdf", Expect::Error,
     set_field(kAzEdr, 32, 24, 4, kHuge32)},
    {"gEntry of an unknown data type", "format/gattr.cdf", Expect::Error,
     set_field(kAgrEdr, 24, 16, 4, 77)},
    {"VXR of 2^31 slots", "format/vxr_tree.cdf", Expect::Error,
     set_field(kVxr, 20, 12, 4, kHuge32)},
    {"VXR using more slots than it has", "format/vxr_tree.cdf", Expect::Error,
     set_field(kVxr, 24, 16, 4, 1000)},
    {"CPR of 2^31 parameters", "format/compressed_vars.cdf", Expect::Error,
     set_field(kCpr, 20, 16, 4, kHuge32)},
    // Compressed data against declared sizes: a whole-file image claiming fewer
    // bytes than its payload inflates to (CCR uSize 100).
    {"whole-file image inflates past its declared size", "compression/file_gzip6.cdf",
     Expect::Error, set_field(kCcr, 20, 12, 0, 100)},
    {"whole-file RLE image inflates past its declared size", "compression/file_rle.cdf",
     Expect::Error, set_field(kCcr, 20, 12, 0, 100)},
    {"whole-file AHUFF image inflates past its declared size", "compression/file_ahuff.cdf",
     Expect::Error, set_field(kCcr, 20, 12, 0, 100)},
    // A block that decodes long is read up to what its records need and the excess
    // ignored, as other readers do: bounded work, and no error to expect.
    {"GZIP block inflates past its records", "compression/var_gzip6.cdf", Expect::Anything,
     cvvr_slot_shorter},
    {"HUFF block inflates past its records", "compression/var_huff.cdf", Expect::Anything,
     cvvr_slot_shorter},
    {"compressed block claims more bytes than its record", "compression/var_gzip6.cdf",
     Expect::Error, set_field(kCvvr, 16, 12, 0, 0x7FFFFFFFFFFF)},
};

void PrintTo(const Damage& d, std::ostream* out) {
    *out << d.what << " in " << d.file;
}

class TargetedDamage : public CorruptFiles, public ::testing::WithParamInterface<Damage> {};

TEST_P(TargetedDamage, GivesStatusesAndErrors) {
    const Damage& d = GetParam();
    Bytes bytes = sample(d.file);
    ASSERT_FALSE(bytes.empty());
    const Bytes original = bytes;
    const Layout layout(original);
    ASSERT_TRUE(d.patch(layout, bytes)) << d.what << ": no target record in " << d.file;
    ASSERT_NE(bytes, original) << d.what << ": the patch changed nothing";
    expect_handled(bytes, std::string(d.what) + " in " + d.file, d.expect, true, &original);
}

INSTANTIATE_TEST_SUITE_P(Rows, TargetedDamage, ::testing::ValuesIn(kDamages),
                         [](const auto& info) { return test_name(info.param.what); });

}  // namespace
}  // namespace cdfgate::corrupt
