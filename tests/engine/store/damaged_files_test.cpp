// Damaged copies of real files: truncated at every record boundary, or with a
// record header byte flipped. Opening gives a status; a file that still opens
// answers every metadata inquiry without crashing, hanging or over-allocating.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cdf.h"
#include "test_files.h"

namespace {

using cdfgate::test::file_bytes;
using cdfgate::test::shared_data;
using cdfgate::test::write_bytes;

std::uint64_t load_be(const std::vector<std::uint8_t>& b, std::size_t at, std::size_t width) {
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < width && at + i < b.size(); ++i) v = (v << 8) | b[at + i];
    return v;
}

// Offsets of the records that tile the file from offset 8 up to the GDR's eof.
std::vector<std::size_t> record_offsets(const std::vector<std::uint8_t>& b) {
    const bool v3 = load_be(b, 0, 4) == 0xCDF30001;
    const std::size_t w = v3 ? 8 : 4;
    const std::size_t gdr = load_be(b, 8 + w + 4, w);
    const std::size_t eof = load_be(b, gdr + w + 4 + 3 * w, w);
    std::vector<std::size_t> offsets;
    for (std::size_t at = 8; at < eof && at < b.size();) {
        offsets.push_back(at);
        const std::size_t size = load_be(b, at, w);
        if (size == 0) break;
        at += size;
    }
    return offsets;
}

// Opens the file and walks all of its metadata; returns the open status.
long exercise(const std::string& path) {
    CDFid id = nullptr;
    const long status = CDFlib(OPEN_, CDF_, path.c_str(), &id, NULL_);
    if (status < CDF_WARN) return status;
    CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_);
    long vars = 0, attrs = 0;
    CDFlib(GET_, CDF_NUMzVARS_, &vars, CDF_NUMATTRS_, &attrs, NULL_);
    for (long v = 0; v < vars; ++v) {
        char name[CDF_VAR_NAME_LEN256 + 1];
        long type = 0, elems = 0, dims = 0, recs = 0, alloc = 0, max = 0;
        long sizes[CDF_MAX_DIMS], ctype = 0, parms[CDF_MAX_PARMS], pct = 0;
        unsigned char pad[1024];
        CDFlib(SELECT_, zVAR_, v, GET_, zVAR_NAME_, name, zVAR_DATATYPE_, &type, zVAR_NUMELEMS_,
               &elems, zVAR_NUMDIMS_, &dims, zVAR_DIMSIZES_, sizes, NULL_);
        CDFlib(GET_, zVAR_NUMRECS_, &recs, NULL_);
        CDFlib(GET_, zVAR_NUMallocRECS_, &alloc, NULL_);
        CDFlib(GET_, zVAR_MAXREC_, &max, NULL_);
        CDFlib(GET_, zVAR_COMPRESSION_, &ctype, parms, &pct, NULL_);
        if (elems > 0 && elems <= 64) CDFlib(GET_, zVAR_PADVALUE_, pad, NULL_);
    }
    for (long a = 0; a < attrs; ++a) {
        long scope = 0, max_g = -1, max_z = -1;
        CDFlib(SELECT_, ATTR_, a, GET_, ATTR_SCOPE_, &scope, NULL_);
        CDFlib(GET_, ATTR_MAXgENTRY_, &max_g, NULL_);
        CDFlib(GET_, ATTR_MAXzENTRY_, &max_z, NULL_);
        for (long e = 0; e <= std::max(max_g, max_z) && e < 64; ++e) {
            long type = 0, elems = 0;
            const long kind_item = scope == GLOBAL_SCOPE ? gENTRY_ : zENTRY_;
            const long type_item = scope == GLOBAL_SCOPE ? gENTRY_DATATYPE_ : zENTRY_DATATYPE_;
            const long elems_item = scope == GLOBAL_SCOPE ? gENTRY_NUMELEMS_ : zENTRY_NUMELEMS_;
            CDFlib(SELECT_, kind_item, e, GET_, type_item, &type, elems_item, &elems, NULL_);
        }
    }
    CDFlib(SELECT_, CDF_, id, CLOSE_, CDF_, NULL_);
    return status;
}

class DamagedFiles : public cdfgate::test::ScratchDir,
                     public ::testing::WithParamInterface<std::string> {};

TEST_P(DamagedFiles, TruncationsAtRecordBoundariesGiveStatuses) {
    const auto original = file_bytes(shared_data(GetParam()));
    ASSERT_GT(original.size(), 8u) << GetParam();
    const auto offsets = record_offsets(original);
    ASSERT_GE(offsets.size(), 2u);
    for (const std::size_t cut : offsets) {
        for (const std::size_t at : {cut, cut + 5}) {
            write_bytes(path("t.cdf"),
                        std::vector<std::uint8_t>(
                            original.begin(), original.begin() + static_cast<std::ptrdiff_t>(at)));
            EXPECT_LT(exercise(path("t.cdf")), CDF_WARN) << GetParam() << " cut at " << at;
        }
    }
}

TEST_P(DamagedFiles, FlippedRecordSizesGiveStatuses) {
    const auto original = file_bytes(shared_data(GetParam()));
    const auto offsets = record_offsets(original);
    ASSERT_GE(offsets.size(), 2u);
    const bool v3 = load_be(original, 0, 4) == 0xCDF30001;
    const std::size_t width = v3 ? 8 : 4;
    for (const std::size_t at : offsets) {
        if (at + width > original.size()) continue;
        // A record whose size is wrong breaks the tiling that validation walks.
        // (Flips of the other header bytes, which may or may not matter: the corpus suite.)
        auto bytes = original;
        bytes[at + width - 4] ^= 0x40;
        write_bytes(path("f.cdf"), bytes);
        EXPECT_LT(exercise(path("f.cdf")), CDF_WARN) << GetParam() << " size of record at " << at;
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedFiles,
                         ::testing::Values("format/gattr.cdf", "format/vattr_v27.cdf",
                                           "format/zvar_int4_row.cdf", "format/vxr_tree.cdf",
                                           "format/sparse_records.cdf", "format/rvars_network.cdf",
                                           "format/uir_attr_deleted.cdf",
                                           "format/compressed_vars.cdf", "samples/example1.cdf"),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                             std::string name = info.param;
                             for (char& c : name) {
                                 if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                             }
                             return name;
                         });

}  // namespace
