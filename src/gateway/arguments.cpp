#include "gateway/arguments.h"

#include <boost/numeric/conversion/bounds.hpp>
#include <boost/numeric/conversion/cast.hpp>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>

#include "errors/errors.h"
#include "gateway/open_file_registry.h"
#include "hv/i18n.h"

namespace cdfgate::gateway {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;
constexpr double kTwoTo52 = 4503599627370496.0;

bool isScalarOfClass(const hvArray* array, hvClassID classId) {
    return hvGetClassID(array) == classId && hvGetNumberOfElements(array) == 1;
}

struct HostStringDeleter {
    void operator()(char* text) const noexcept { hvFree(text); }
};

}  // namespace

long toInt64(double value) {
    // -2^63 itself is refused although representable: the range rule is kept as is.
    if (value <= -kTwoTo63) throw boost::numeric::negative_overflow();
    if (value >= kTwoTo63) throw boost::numeric::positive_overflow();
    // NaN passes both tests above; the processor's truncating conversion would give
    // the integer-indefinite value, which is the required result.
    if (std::isnan(value)) return std::numeric_limits<long>::min();
    if (std::fabs(value) < kTwoTo52) value = std::trunc(value);
    return static_cast<long>(value);
}

CDFid getCdfId(const hvArray* array) {
    if (!isScalarOfClass(array, hvUINT64_CLASS)) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentNotUint64Scalar("CDFID"));
    }
    const std::uint64_t handle = *hvGetTypedData<std::uint64_t>(array);
    if (openFileRegistry().isFileIdUnknown(handle)) {
        hvErrMsgId(QUORIN::imagesci::cdflib::invalidFileId());
    }
    return reinterpret_cast<CDFid>(static_cast<std::uintptr_t>(handle));
}

long getInt64Scalar(const hvArray* array, const std::string& argumentName) {
    if (!isScalarOfClass(array, hvDOUBLE_CLASS)) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentNotDoubleScalar(argumentName));
    }
    return toInt64(*hvGetTypedData<double>(array));
}

std::vector<long> getInt64Vector(const hvArray* array, const std::string& /*argumentName*/) {
    const std::size_t count = hvGetNumberOfElements(array);
    std::vector<long> values(count);
    const double* elements = count ? hvGetTypedData<double>(array) : nullptr;
    for (std::size_t i = 0; i < count; ++i) values[i] = toInt64(elements[i]);
    return values;
}

std::vector<double> getDoubleVector(const hvArray* array, const std::string& /*argumentName*/) {
    const std::size_t count = hvGetNumberOfElements(array);
    if (count == 0) return {};
    const double* elements = hvGetTypedData<double>(array);
    return std::vector<double>(elements, elements + count);
}

std::string getStringArg(const hvArray* array) {
    const std::unique_ptr<char, HostStringDeleter> text(hvArrayToString(array));
    // A null text (not a character array) makes std::string raise its logic error,
    // which reaches the host unchanged.
    const char* raw = text.get();
    if (raw == nullptr) throw std::logic_error("basic_string: construction from null is not valid");
    return std::string(raw);
}

std::string getAsciiString(const hvArray* array) {
    const std::u16string units = matrix::get_ustring(array);
    if (units.empty()) return {};
    try {
        return fl::i18n::codecvt_ustring_to_ascii{}(units);
    } catch (const fl::i18n::conversion_error&) {
        hvErrMsgId(QUORIN::imagesci::cdflib::invalidCharError());
    }
}

}  // namespace cdfgate::gateway
