#include "gateway/outputs.h"

#include <algorithm>
#include <array>

namespace cdfgate::gateway {
namespace {

constexpr std::array<std::size_t, 2> kScalarDims{1, 1};

template <typename T>
matrix::array_ptr createScalar(T value, hvClassID classId) {
    matrix::array_ptr array = matrix::detail::do_create_uninitnumeric(kScalarDims, classId, hvREAL);
    *hvGetTypedData<T>(array.get()) = value;
    return array;
}

}  // namespace

matrix::array_ptr createUint64Scalar(std::uint64_t value) {
    return createScalar(value, hvUINT64_CLASS);
}

matrix::array_ptr createDoubleScalar(double value) {
    return createScalar(value, hvDOUBLE_CLASS);
}

matrix::array_ptr createString(std::string_view text) {
    return matrix::create(text.data(), text.size());
}

void placeOutput(int nlhs, matrix::array_ptr* plhs, int index, matrix::array_ptr array) {
    if (index < std::max(nlhs, 1)) plhs[index] = std::move(array);
}

}  // namespace cdfgate::gateway
