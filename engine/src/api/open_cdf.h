// One CDF opened through the C interface: the stored file and the per-CDF
// selection state of CDFlib.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cdf.h"
#include "store/cdf_file.h"

namespace cdfgate::engine::api {

// Record and dimension selections of one variable.
struct VarSelection {
    long rec_number = 0;
    long rec_count = 1;
    long rec_interval = 1;
    std::array<long, CDF_MAX_DIMS> indices{};
    std::array<long, CDF_MAX_DIMS> counts{};
    std::array<long, CDF_MAX_DIMS> intervals{};
    long cache_size = 1;  // multi-file CDFs only
};

struct OpenCdf {
    std::string name;  // path as given, without the ".cdf" extension
    std::unique_ptr<store::CdfFile> file;

    long zmode = zMODEoff;
    bool read_only = false;
    long decoding = HOST_DECODING;
    long neg_to_pos_fp0 = NEGtoPOSfp0off;
    long cache_size = 0;  // 0: the default is in force
    long stage_cache_size = 0;
    long compress_cache_size = 0;

    std::optional<long> cur_zvar;  // number in the current zMode's numbering
    std::optional<long> cur_rvar;
    std::optional<long> cur_attr;
    std::optional<long> cur_gentry;
    std::optional<long> cur_rentry;
    std::optional<long> cur_zentry;

    // Parallel to the file's rVariables and zVariables.
    std::vector<VarSelection> r_selections;
    std::vector<VarSelection> z_selections;

    std::vector<VarSelection>& selections(bool z) { return z ? z_selections : r_selections; }
};

}  // namespace cdfgate::engine::api
