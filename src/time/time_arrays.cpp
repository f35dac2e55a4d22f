#include "time/time_arrays.h"

#include "errors/errors.h"

namespace cdfgate::gateway::time_arrays {

matrix::array_ptr createDoubleMatrix(std::vector<std::size_t> dims) {
    return matrix::detail::do_create_uninitnumeric(dims, hvDOUBLE_CLASS, hvREAL);
}

matrix::array_ptr createInt64Matrix(std::vector<std::size_t> dims) {
    return matrix::detail::do_create_uninitnumeric(dims, hvINT64_CLASS, hvREAL);
}

void checkComponentArray(const hvArray* array, long groupSize) {
    const auto size = static_cast<std::size_t>(groupSize);
    if (hvGetNumberOfElements(array) % size != 0) {
        hvErrMsgId(QUORIN::imagesci::cdflib::badTimeVector(groupSize));
    }
    if (hvGetClassID(array) != hvDOUBLE_CLASS) {
        hvErrMsgId(QUORIN::imagesci::cdflib::badTimeVector(groupSize));
    }
}

}  // namespace cdfgate::gateway::time_arrays
