#include "variables/index_vectors.h"

#include "errors/errors.h"
#include "gateway/arguments.h"

namespace cdfgate::gateway {

std::vector<long> getIndexVector(const hvArray* array, const std::string& argumentName) {
    if (hvGetNumberOfElements(array) == 0) return {};
    if (hvGetClassID(array) != hvDOUBLE_CLASS) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentNotDoublePrecision(argumentName));
    }
    return getInt64Vector(array, argumentName);
}

}  // namespace cdfgate::gateway
