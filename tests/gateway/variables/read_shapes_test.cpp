// Output shapes of the three readers, one case per row of the shape summary, on files
// of both majorities.
#include "scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using Dims = std::vector<std::size_t>;

struct ShapeCase {
    const char* name;
    long datatype;
    long numElements;
    std::vector<double> dims;  // host order
    hvClassID classId;
    Dims getVarData;
    Dims getVarRecordData;
    Dims hyperGetVarData;  // DIMCOUNT all but the last extent shortened by one, RECCOUNT 3
};

std::vector<double> ones(std::size_t n) {
    return std::vector<double>(n, 1.0);
}

Array row(const std::vector<double>& values) {
    return values.empty() ? Array::empty() : Array::of<double>(values);
}

TEST(ReadShapes, EveryRowOfTheSummaryOnBothMajorities) {
    // clang-format off
    const ShapeCase cases[] = {
        {"numeric with dimensions", CDF_INT4, 1, {3, 4}, hvINT32_CLASS, {1, 1}, {3, 4}, {2, 4, 3}},
        {"numeric without dimensions", CDF_REAL4, 1, {}, hvSINGLE_CLASS, {1, 1}, {1, 1}, {3, 1}},
        {"numeric one dimension", CDF_UINT2, 1, {5}, hvUINT16_CLASS, {1, 1}, {5, 1}, {5, 3}},
        {"epoch16 with dimensions", CDF_EPOCH16, 1, {3, 4}, hvDOUBLE_CLASS, {2, 1}, {2, 3, 4}, {2, 2, 4, 3}},
        {"epoch16 without dimensions", CDF_EPOCH16, 1, {}, hvDOUBLE_CLASS, {2, 1}, {2, 1}, {2, 3}},
        {"text with dimensions", CDF_CHAR, 10, {3, 4}, hvCHAR_CLASS, {10, 1}, {10, 3, 4}, {10, 2, 4, 3}},
        {"one character with dimensions", CDF_UCHAR, 1, {3, 4}, hvCHAR_CLASS, {1, 1}, {3, 4}, {1, 2, 4, 3}},
        {"one character with one dimension", CDF_CHAR, 1, {4}, hvCHAR_CLASS, {1, 1}, {4, 1}, {1, 4, 3}},
        {"text without dimensions", CDF_CHAR, 10, {}, hvCHAR_CLASS, {10, 1}, {10, 1}, {10, 3}},
    };
    // clang-format on
    for (const long majority : {ROW_MAJOR, COLUMN_MAJOR}) {
        ScratchCdf cdf(majority);
        for (const ShapeCase& c : cases) {
            SCOPED_TRACE(std::string(c.name) + (majority == ROW_MAJOR ? " (row)" : " (column)"));
            const double varNum = cdf.createVar(c.name, c.datatype, c.numElements, c.dims);
            const Array var = Array::scalar(varNum);
            std::vector<Array> valueArgs{cdf.id(), var, Array::scalar(0)};
            if (!c.dims.empty()) {
                valueArgs.push_back(Array::of<double>(std::vector<double>(c.dims.size(), 0.0)));
            }
            const auto expectShape = [&c](const Array& result, const Dims& dims) {
                EXPECT_EQ(result.classId(), c.classId);
                EXPECT_EQ(result.dims(), dims);
            };
            expectShape(callOne("getVarData", valueArgs), c.getVarData);
            expectShape(callOne("getVarRecordData", {cdf.id(), var, Array::scalar(0)}),
                        c.getVarRecordData);

            std::vector<double> counts = c.dims;
            for (std::size_t d = 0; d + 1 < counts.size(); ++d) counts[d] -= 1;
            const Array slab = callOne(
                "hyperGetVarData", {cdf.id(), var, Array::scalar(0), Array::scalar(3),
                                    Array::scalar(1), row(std::vector<double>(c.dims.size(), 0.0)),
                                    row(counts), row(ones(c.dims.size()))});
            expectShape(slab, c.hyperGetVarData);
        }
    }
}

}  // namespace
}  // namespace cdfgate::testing
