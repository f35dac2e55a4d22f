// "inquireVar": a zVariable's definition with dimensions in the host's order.
#include <array>

#include "gateway/arguments.h"
#include "gateway/outputs.h"
#include "variables/datatypes.h"
#include "variables/majority.h"
#include "variables/variable_commands.h"
#include "variables/variable_inquiry.h"
#include "variables/variances.h"

namespace cdfgate::gateway {
namespace {

matrix::array_ptr dimensionSizesRow(std::span<const long> sizes) {
    const std::array<std::size_t, 2> dims = sizes.empty()
                                                ? std::array<std::size_t, 2>{0, 0}
                                                : std::array<std::size_t, 2>{1, sizes.size()};
    matrix::array_ptr row = matrix::detail::do_create_uninitnumeric(dims, hvDOUBLE_CLASS, hvREAL);
    double* values = hvGetTypedData<double>(row.get());
    for (std::size_t i = 0; i < sizes.size(); ++i) values[i] = static_cast<double>(sizes[i]);
    return row;
}

}  // namespace

void inquireVar(int nlhs, OutputSlot* plhs, int, const hvArray* const* prhs, const CommandEntry*) {
    const CDFid id = getCdfId(prhs[0]);
    const long varNum = getInt64Scalar(prhs[1], "VARNUM");
    VariableInfo info = inquireVariable(id, varNum);
    const long majority = readMajority(id);
    reverseForMajority(info.dimSizes, majority);
    reverseForMajority(info.dimVariances, majority);

    matrix::array_ptr name = createString(info.name);
    matrix::array_ptr datatype = datatypeNameLower(info.datatype);
    matrix::array_ptr numElements = createDoubleScalar(static_cast<double>(info.numElements));
    matrix::array_ptr dimSizes = dimensionSizesRow(info.dimSizes);
    matrix::array_ptr recordVariance = variancesToLogical(std::array<long, 1>{info.recordVariance});
    matrix::array_ptr dimVariances = variancesToLogical(info.dimVariances);
    placeOutput(nlhs, plhs, 0, std::move(name));
    placeOutput(nlhs, plhs, 1, std::move(datatype));
    placeOutput(nlhs, plhs, 2, std::move(numElements));
    placeOutput(nlhs, plhs, 3, std::move(dimSizes));
    placeOutput(nlhs, plhs, 4, std::move(recordVariance));
    placeOutput(nlhs, plhs, 5, std::move(dimVariances));
}

}  // namespace cdfgate::gateway
