// Kept apart from the rest of the host so that programs which never call cdflib do
// not need the gateway at link time.
#include <algorithm>
#include <climits>

#include "cdfgate/embedded.h"
#include "hv/entry.h"

namespace cdfgate::embedded {

std::vector<Array> callWithInputs(std::span<const Array> inputs, int nlhs) {
    if (inputs.size() > INT_MAX || nlhs < 0) throw std::invalid_argument("bad call shape");
    std::vector<const hvArray*> prhs;
    prhs.reserve(inputs.size());
    for (const Array& input : inputs) {
        if (!input.hasArray()) throw std::invalid_argument("an input holds no array");
        prhs.push_back(input.get());
    }
    // A host always offers at least one slot, even when no result was asked for.
    std::vector<matrix::array_ptr> plhs(static_cast<std::size_t>(std::max(nlhs, 1)));
    cdflib(nlhs, plhs.data(), static_cast<int>(prhs.size()), prhs.data());
    std::vector<Array> results;
    for (matrix::array_ptr& slot : plhs) {
        if (!slot) break;
        results.emplace_back(std::move(slot));
    }
    return results;
}

std::vector<Array> call(std::string_view command, std::vector<Array> arguments, int nlhs) {
    std::vector<Array> inputs;
    inputs.reserve(arguments.size() + 1);
    inputs.push_back(Array::text(command));
    for (Array& argument : arguments) inputs.push_back(std::move(argument));
    return callWithInputs(inputs, nlhs);
}

}  // namespace cdfgate::embedded
