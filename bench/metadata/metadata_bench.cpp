// Opening a CDF and reading all of its metadata; writing a CDF with many
// attributes and entries and closing it.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "cdf.h"

namespace {

// Opens the file, reads every variable description and attribute entry, closes.
void inquire_all(const std::string& path, benchmark::State& state) {
    CDFid id = nullptr;
    if (CDFlib(OPEN_, CDF_, path.c_str(), &id, NULL_) != CDF_OK) {
        state.SkipWithError("cannot open the sample");
        return;
    }
    CDFlib(SELECT_, CDF_zMODE_, zMODEon2, NULL_);
    long vars = 0, attrs = 0;
    CDFlib(GET_, CDF_NUMzVARS_, &vars, CDF_NUMATTRS_, &attrs, NULL_);
    for (long v = 0; v < vars; ++v) {
        char name[CDF_VAR_NAME_LEN256 + 1];
        long type = 0, elems = 0, dims = 0, sizes[CDF_MAX_DIMS], recs = 0;
        CDFlib(SELECT_, zVAR_, v, GET_, zVAR_NAME_, name, zVAR_DATATYPE_, &type, zVAR_NUMELEMS_,
               &elems, zVAR_NUMDIMS_, &dims, zVAR_DIMSIZES_, sizes, zVAR_NUMRECS_, &recs, NULL_);
        benchmark::DoNotOptimize(recs);
    }
    for (long a = 0; a < attrs; ++a) {
        long scope = 0, max = -1;
        CDFlib(SELECT_, ATTR_, a, GET_, ATTR_SCOPE_, &scope, NULL_);
        const bool g = scope == GLOBAL_SCOPE;
        CDFlib(GET_, g ? ATTR_MAXgENTRY_ : ATTR_MAXzENTRY_, &max, NULL_);
        for (long e = 0; e <= max; ++e) {
            long type = 0, elems = 0;
            CDFlib(SELECT_, g ? gENTRY_ : zENTRY_, e, GET_, g ? gENTRY_DATATYPE_ : zENTRY_DATATYPE_,
                   &type, g ? gENTRY_NUMELEMS_ : zENTRY_NUMELEMS_, &elems, NULL_);
            benchmark::DoNotOptimize(elems);
        }
    }
    CDFlib(CLOSE_, CDF_, NULL_);
}

void BM_OpenAndInquire(benchmark::State& state, const char* sample) {
    const std::string path = std::string(CDFGATE_SHARED_DATA) + "/samples/" + sample;
    for (auto _ : state) inquire_all(path, state);
}
BENCHMARK_CAPTURE(BM_OpenAndInquire, solo_90_attributes,
                  "solo_l2_rpw-lfr-surv-swf-e_00000000_v01.cdf")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenAndInquire, psp_1_8_MB, "psp_isois-epilo_l2-ic_20190401_v0.0.0.cdf")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OpenAndInquire, whole_file_gzip,
                  "uy_proton-distributions_swoops_00000000_v01.cdf")
    ->Unit(benchmark::kMicrosecond);

void BM_WriteAttributes(benchmark::State& state) {
    const auto entries = state.range(0);
    const std::string base =
        (std::filesystem::temp_directory_path() / "cdfgate-bench-attributes").string();
    for (auto _ : state) {
        std::remove((base + ".cdf").c_str());
        CDFid id = nullptr;
        CDFcreateCDF(const_cast<char*>(base.c_str()), &id);
        for (long a = 0; a < 50; ++a) {
            long num = 0;
            const std::string name = "attribute" + std::to_string(a);
            CDFlib(CREATE_, ATTR_, name.c_str(), GLOBAL_SCOPE, &num, NULL_);
            for (long e = 0; e < entries; ++e) {
                double values[4] = {1.0 * e, 2.0, 3.0, 4.0};
                CDFputAttrEntry(id, 1, num, e, CDF_DOUBLE, 4, values);
            }
        }
        CDFlib(CLOSE_, CDF_, NULL_);
    }
    std::remove((base + ".cdf").c_str());
    state.SetItemsProcessed(state.iterations() * 50 * entries);
}
BENCHMARK(BM_WriteAttributes)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
