// Every datatype through the single-value, record and hyperslab commands on files of
// both majorities. The variable has host dimensions 3-by-2, so the host indexes
// values (i, j) in its own order whatever the file's majority.
#include <cstring>

#include "datatype_samples.h"
#include "scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using Dims = std::vector<std::size_t>;

constexpr std::size_t kRows = 3;
constexpr std::size_t kColumns = 2;
constexpr std::size_t kPerRecord = kRows * kColumns;

// Host dimensions of `records` records of the 3-by-2 variable, as the readers give them.
Dims readerDims(const DatatypeSample& sample, std::size_t records, bool oneRecord) {
    Dims dims;
    if (sample.datatype == CDF_EPOCH16) dims.push_back(2);
    const bool text = sample.datatype == CDF_CHAR || sample.datatype == CDF_UCHAR;
    if (text && (sample.numElements > 1 || !oneRecord)) {
        dims.push_back(static_cast<std::size_t>(sample.numElements));
    }
    dims.push_back(kRows);
    dims.push_back(kColumns);
    if (!oneRecord) dims.push_back(records);
    return dims;
}

// The value columns of `values` at the given column indices, in a new array.
Array pickColumns(const Array& values, std::size_t columnCount,
                  const std::vector<std::size_t>& columns, Dims dims) {
    const std::size_t width = values.numel() / columnCount * hvGetElementSize(values.get());
    Array picked = Array::zeros(values.classId(), std::move(dims));
    auto* to = static_cast<char*>(hvGetData(picked.get()));
    const auto* from = static_cast<const char*>(hvGetData(values.get()));
    for (std::size_t k = 0; k < columns.size(); ++k) {
        std::memcpy(to + k * width, from + columns[k] * width, width);
    }
    return picked;
}

Array indices(std::size_t i, std::size_t j) {
    return Array::of<double>({static_cast<double>(i), static_cast<double>(j)});
}

class RoundTrip : public ::testing::TestWithParam<long> {};

// Record 1 is written whole, record 2 value by value, records 3 and 4 as one hyperslab.
TEST_P(RoundTrip, EveryDatatypeComesBackInTheHostsOrder) {
    ScratchCdf cdf(GetParam());
    for (const DatatypeSample& sample : datatypeSamples()) {
        SCOPED_TRACE(sample.name);
        const Array var = Array::scalar(
            cdf.createVar(sample.name, sample.datatype, sample.numElements, {kRows, kColumns}));
        const auto readRecord = [&](double record) {
            return callOne("getVarRecordData", {cdf.id(), var, Array::scalar(record)});
        };
        const Array values = sample.values(kPerRecord);
        const std::size_t width = values.numel() / kPerRecord;
        embedded::call("putVarRecordData", {cdf.id(), var, Array::scalar(1), values}, 0);
        EXPECT_EQ(readRecord(1), reshaped(values, readerDims(sample, 1, true)));

        // Each single value sits at its host indices, read from record 1 and written to 2.
        for (std::size_t j = 0; j < kColumns; ++j) {
            for (std::size_t i = 0; i < kRows; ++i) {
                const std::size_t k = i + kRows * j;
                EXPECT_EQ(callOne("getVarData", {cdf.id(), var, Array::scalar(1), indices(i, j)}),
                          pickColumns(values, kPerRecord, {k}, {width, 1}))
                    << "at " << i << "," << j;
                embedded::call("putVarData",
                               {cdf.id(), var, Array::scalar(2), indices(i, j),
                                pickColumns(values, kPerRecord, {k}, {1, width})},
                               0);
            }
        }
        EXPECT_EQ(readRecord(2), reshaped(values, readerDims(sample, 1, true)));

        const Array two = sample.values(2 * kPerRecord);
        const auto box = [&](double recStart, double recCount, std::vector<double> start,
                             std::vector<double> count, std::vector<double> stride) {
            return std::vector<Array>{cdf.id(),
                                      var,
                                      Array::scalar(recStart),
                                      Array::scalar(recCount),
                                      Array::scalar(1),
                                      Array::of<double>(start),
                                      Array::of<double>(count),
                                      Array::of<double>(stride)};
        };
        std::vector<Array> put = box(3, 2, {0, 0}, {kRows, kColumns}, {1, 1});
        put.push_back(two);
        embedded::call("hyperPutVarData", put, 0);
        EXPECT_EQ(callOne("hyperGetVarData", box(3, 2, {0, 0}, {kRows, kColumns}, {1, 1})),
                  reshaped(two, readerDims(sample, 2, false)));
        // Rows 1..2 of column 0 in both records.
        Dims subDims = readerDims(sample, 2, false);
        subDims[subDims.size() - 3] = 2;
        subDims[subDims.size() - 2] = 1;
        EXPECT_EQ(callOne("hyperGetVarData", box(3, 2, {1, 0}, {2, 1}, {1, 1})),
                  pickColumns(two, 2 * kPerRecord, {1, 2, 7, 8}, subDims));
        // Rows 0 and 2 of both columns, second record only.
        Dims strided = readerDims(sample, 1, false);
        strided[strided.size() - 3] = 2;
        EXPECT_EQ(callOne("hyperGetVarData", box(4, 1, {0, 0}, {2, 2}, {2, 1})),
                  pickColumns(two, 2 * kPerRecord, {6, 8, 9, 11}, strided));
    }
}

INSTANTIATE_TEST_SUITE_P(BothMajorities, RoundTrip, ::testing::Values(ROW_MAJOR, COLUMN_MAJOR),
                         [](const auto& info) {
                             return std::string(info.param == ROW_MAJOR ? "RowMajor"
                                                                        : "ColumnMajor");
                         });

}  // namespace
}  // namespace cdfgate::testing
