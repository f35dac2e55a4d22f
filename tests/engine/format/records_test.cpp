// Internal records: serialized sizes, round trips in both layouts, and parsers
// that refuse malformed or short input instead of reading past it.
#include <gtest/gtest.h>

#include <vector>

#include "format/records.h"

namespace {

using namespace cdfgate::engine::format;

constexpr Layout kV3{true};
constexpr Layout kV2{false};

Vdr sample_vdr(bool z) {
    Vdr vdr;
    vdr.z = z;
    vdr.next = 1234;
    vdr.data_type = 4;
    vdr.max_rec = 7;
    vdr.vxr_head = 900;
    vdr.vxr_tail = 950;
    vdr.flags = kVdrRecVary | kVdrPadPresent;
    vdr.s_records = 1;
    vdr.num = 3;
    vdr.blocking_factor = 16;
    vdr.name = "Var";
    if (z) vdr.dim_sizes = {2, 3};
    vdr.dim_varys = {-1, 0};
    vdr.pad = {1, 0, 0, 0x80};
    return vdr;
}

TEST(Records, SizesFollowTheLayouts) {
    const struct {
        const char* label;
        std::size_t v3, v2;
        std::size_t got_v3, got_v2;
    } rows[] = {
        {"CDR", 312, 304, serialize_cdr({}, kV3).size(), serialize_cdr({}, kV2).size()},
        {"GDR", 84, 60, serialize_gdr({}, kV3).size(), serialize_gdr({}, kV2).size()},
        {"ADR", 324, 116, serialize_adr({}, kV3).size(), serialize_adr({}, kV2).size()},
        {"zVDR 2 dims + pad", 344 + 16 + 4, 132 + 16 + 4,
         serialize_vdr(sample_vdr(true), kV3).size(), serialize_vdr(sample_vdr(true), kV2).size()},
        {"rVDR 2 dims + pad", 340 + 8 + 4, 128 + 8 + 4,
         serialize_vdr(sample_vdr(false), kV3).size(),
         serialize_vdr(sample_vdr(false), kV2).size()},
        {"AEDR 9 bytes", 65, 57,
         serialize_aedr(Aedr{false, 0, 0, 51, 0, 9, std::vector<std::uint8_t>(9)}, kV3).size(),
         serialize_aedr(Aedr{false, 0, 0, 51, 0, 9, std::vector<std::uint8_t>(9)}, kV2).size()},
        {"CPR", 28, 24, serialize_cpr(Cpr{5, {9}}, kV3).size(),
         serialize_cpr(Cpr{5, {9}}, kV2).size()},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.got_v3, row.v3) << row.label;
        EXPECT_EQ(row.got_v2, row.v2) << row.label;
    }
}

// A parsed record serializes to the bytes it was parsed from: every field survives.
TEST(Records, RoundTripsInBothLayouts) {
    Adr adr{77, 88, 2, 4, 2, 9, 99, 1, 0, "UNITS"};
    const Aedr aedr{true, 5, 1, 22, 7, 2, std::vector<std::uint8_t>(16, 0xAB)};
    const Vxr vxr{10, 2, {0, 5, -1}, {4, 9, -1}, {100, 200, -1}};
    for (const Layout layout : {kV3, kV2}) {
        SCOPED_TRACE(layout.v3 ? "v3" : "v2");
        for (const bool z : {true, false}) {
            const auto bytes = serialize_vdr(sample_vdr(z), layout);
            Vdr out;
            ASSERT_TRUE(parse_vdr(bytes, layout, 2, out));
            EXPECT_EQ(out.z, z);
            EXPECT_EQ(out.dim_sizes, sample_vdr(z).dim_sizes);  // rVDRs take them from the GDR
            EXPECT_EQ(serialize_vdr(out, layout), bytes) << (z ? "zVDR" : "rVDR");
        }
        Adr a;
        ASSERT_TRUE(parse_adr(serialize_adr(adr, layout), layout, a));
        EXPECT_EQ(serialize_adr(a, layout), serialize_adr(adr, layout));
        Aedr e;
        ASSERT_TRUE(parse_aedr(serialize_aedr(aedr, layout), layout, e));
        EXPECT_EQ(serialize_aedr(e, layout), serialize_aedr(aedr, layout));
        const auto vxr_bytes = serialize_vxr(vxr, layout);
        EXPECT_EQ(vxr_bytes.size(), layout.v3 ? 28u + 16 * 3 : 20u + 12 * 3);
        Vxr x;
        ASSERT_TRUE(parse_vxr(vxr_bytes, layout, x));
        EXPECT_EQ(serialize_vxr(x, layout), vxr_bytes);
    }
}

TEST(Records, NamesFillingTheFieldHaveNoTerminator) {
    Adr adr;
    adr.name = std::string(300, 'n');
    const auto bytes = serialize_adr(adr, kV2);
    Adr out;
    ASSERT_TRUE(parse_adr(bytes, kV2, out));
    EXPECT_EQ(out.name, std::string(64, 'n'));
}

TEST(Records, MalformedRecordsAreRefused) {
    auto vdr = serialize_vdr(sample_vdr(true), kV3);
    Vdr v;
    // zNumDims of 11.
    vdr[343] = 11;
    EXPECT_FALSE(parse_vdr(vdr, kV3, 0, v));
    // Cut short before the pad value.
    auto short_vdr = serialize_vdr(sample_vdr(true), kV3);
    short_vdr.resize(short_vdr.size() - 2);
    EXPECT_FALSE(parse_vdr(short_vdr, kV3, 0, v));
    // Wrong record type.
    auto adr = serialize_adr({}, kV3);
    adr[11] = 5;
    Adr a;
    EXPECT_FALSE(parse_adr(adr, kV3, a));
    // An entry claiming more elements than its record holds.
    auto aedr = serialize_aedr(Aedr{false, 0, 0, 4, 0, 2, std::vector<std::uint8_t>(8)}, kV3);
    aedr[35] = 200;
    Aedr e;
    EXPECT_FALSE(parse_aedr(aedr, kV3, e));
    // An entry with an unknown data type.
    auto unknown = serialize_aedr(Aedr{false, 0, 0, 4, 0, 1, std::vector<std::uint8_t>(4)}, kV3);
    unknown[27] = 3;
    EXPECT_FALSE(parse_aedr(unknown, kV3, e));
    // A VXR with more used slots than slots.
    Vxr vxr;
    vxr.n_used = 1;
    vxr.first = {0};
    vxr.last = {0};
    vxr.offset = {100};
    auto vxr_bytes = serialize_vxr(vxr, kV3);
    vxr_bytes[27] = 2;
    Vxr x;
    EXPECT_FALSE(parse_vxr(vxr_bytes, kV3, x));
    // A GDR with 11 rVariable dimensions.
    auto gdr = serialize_gdr({}, kV3);
    gdr[59] = 11;
    Gdr g;
    EXPECT_FALSE(parse_gdr(gdr, kV3, g));
    // Nothing at all.
    Cdr c;
    EXPECT_FALSE(parse_cdr({}, kV3, c));
}

TEST(Records, UnusedRecordHeaders) {
    const auto linked = serialize_uir(Uir{500, 300}, 59, kV3);
    ASSERT_EQ(linked.size(), 28u);  // the bytes behind the header are left alone
    Uir u;
    std::vector<std::uint8_t> whole = linked;
    whole.resize(59, 0xEE);
    ASSERT_TRUE(parse_uir(whole, kV3, u));
    EXPECT_EQ(u.next, 500);
    EXPECT_EQ(u.prev, 300);
    EXPECT_EQ(serialize_uir({}, 13, kV3).size(), 12u);  // too small to link
}

}  // namespace
