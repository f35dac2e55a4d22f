// The reference samples of one INT4 variable with dimensions [2,3], written once in
// each majority: the same value at library indices (i, j) must appear at host indices
// (j, i) of the row-major file and (i, j) of the column-major one. Record r holds
// 100r + 10i + j.
#include "scratch_cdf.h"

namespace cdfgate::testing {
namespace {

std::vector<std::int32_t> recordValues(std::int32_t record, bool rowMajor) {
    std::vector<std::int32_t> values;
    // Host column order: the first host dimension varies fastest.
    for (std::int32_t outer = 0; outer < (rowMajor ? 2 : 3); ++outer) {
        for (std::int32_t inner = 0; inner < (rowMajor ? 3 : 2); ++inner) {
            const std::int32_t i = rowMajor ? outer : inner;
            const std::int32_t j = rowMajor ? inner : outer;
            values.push_back(100 * record + 10 * i + j);
        }
    }
    return values;
}

TEST(GoldenFiles, RecordsArriveTransposedFromARowMajorFile) {
    ScratchCdf row("format/zvar_int4_row.cdf");
    EXPECT_EQ(callOne("getVarRecordData", {row.id(), Array::scalar(0), Array::scalar(1)}),
              Array::of<std::int32_t>(recordValues(1, true), {3, 2}));
    ScratchCdf column("format/zvar_int4_col.cdf");
    EXPECT_EQ(callOne("getVarRecordData", {column.id(), Array::scalar(0), Array::scalar(1)}),
              Array::of<std::int32_t>(recordValues(1, false), {2, 3}));
}

TEST(GoldenFiles, IndicesAreGivenInTheHostsOrder) {
    ScratchCdf row("format/zvar_int4_row.cdf");
    ScratchCdf column("format/zvar_int4_col.cdf");
    for (std::int32_t i = 0; i < 2; ++i) {
        for (std::int32_t j = 0; j < 3; ++j) {
            const Array expected = Array::of<std::int32_t>({200 + 10 * i + j});
            EXPECT_EQ(callOne("getVarData", {row.id(), Array::scalar(0), Array::scalar(2),
                                             Array::of<double>({double(j), double(i)})}),
                      expected);
            EXPECT_EQ(callOne("getVarData", {column.id(), Array::scalar(0), Array::scalar(2),
                                             Array::of<double>({double(i), double(j)})}),
                      expected);
        }
    }
}

TEST(GoldenFiles, HyperslabsKeepTheRecordCountLast) {
    ScratchCdf row("format/zvar_int4_row.cdf");
    const Array slab =
        callOne("hyperGetVarData",
                {row.id(), Array::scalar(0), Array::scalar(0), Array::scalar(3), Array::scalar(1),
                 Array::of<double>({0, 0}), Array::of<double>({3, 2}), Array::of<double>({1, 1})});
    std::vector<std::int32_t> expected;
    for (std::int32_t r = 0; r < 3; ++r) {
        const auto values = recordValues(r, true);
        expected.insert(expected.end(), values.begin(), values.end());
    }
    EXPECT_EQ(slab, Array::of<std::int32_t>(expected, {3, 2, 3}));
    // Column j = 2 of i = 1 in records 0 and 2: host DIMSTART [2 1].
    EXPECT_EQ(
        callOne("hyperGetVarData",
                {row.id(), Array::scalar(0), Array::scalar(0), Array::scalar(2), Array::scalar(2),
                 Array::of<double>({2, 1}), Array::of<double>({1, 1}), Array::of<double>({1, 1})}),
        Array::of<std::int32_t>({12, 212}, {1, 1, 2}));
}

}  // namespace
}  // namespace cdfgate::testing
