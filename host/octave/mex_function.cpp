// The MEX boundary. Everything the gateway does runs inside runCommand, which
// catches every exception and leaves only plain character buffers behind; Octave's
// error raise happens after that frame is gone, so no C++ object of the call is
// alive while Octave unwinds.
#include <octave/quit.h>

#include <algorithm>
#include <array>
#include <exception>
#include <string_view>
#include <type_traits>
#include <vector>

#include "host_error.h"
#include "hv/catalog.h"
#include "hv/entry.h"
#include "hv/except.h"
#include "mx_cast.h"

namespace {

using cdfgate::host::octave::HostError;
using cdfgate::host::octave::toMx;

// Handlers may fill more slots than Octave asked for (e.g. the three version numbers);
// the extra ones are released at the end of the call.
constexpr int kMinSlots = 8;

// What is left of a failed call once its frames are gone.
struct Failure {
    std::array<char, 256> identifier{};
    std::array<char, 8192> text{};
};
static_assert(std::is_trivially_destructible_v<Failure>);

template <std::size_t N>
void copyTruncated(std::string_view from, std::array<char, N>& to) {
    const std::size_t length = std::min(from.size(), N - 1);
    std::copy_n(from.data(), length, to.data());
    to[length] = '\0';
}

void recordFailure(std::string_view identifier, std::string_view text, Failure& failure) {
    copyTruncated(identifier, failure.identifier);
    copyTruncated(text, failure.text);
}

// Runs one command. Returns true when the outputs are in plhs; otherwise either
// failure is filled or octaveException holds an exception of Octave's own (an
// interrupt, an error from the array library, a warning the user made an error) to
// be rethrown unchanged.
bool runCommand(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[], Failure& failure,
                std::exception_ptr& octaveException) noexcept {
    try {
        std::vector<matrix::array_ptr> slots(std::max(nlhs, kMinSlots));
        cdflib(nlhs, slots.data(), nrhs, reinterpret_cast<const hvArray* const*>(prhs));
        const int returned = std::max(nlhs, 1);
        for (int i = 0; i < returned; ++i) plhs[i] = toMx(slots[i].release());
        return true;
    } catch (const HostError& error) {
        recordFailure(error.identifier(), error.text(), failure);
    } catch (const foundation::core::except::IMsgIdException& error) {
        const std::string& identifier = error.messageId().str();
        recordFailure(identifier, cdfgate::host::formatMessage(identifier, error.arguments()),
                      failure);
    } catch (const octave::execution_exception&) {
        octaveException = std::current_exception();
    } catch (const octave::interrupt_exception&) {
        octaveException = std::current_exception();
    } catch (const octave::exit_exception&) {
        octaveException = std::current_exception();
    } catch (const std::exception& error) {
        recordFailure("", error.what(), failure);
    } catch (...) {
        recordFailure("", "cdflib: unexpected exception", failure);
    }
    return false;
}

// Shutdown hook: Octave calls it when the function is cleared or Octave exits. A
// failure here has nowhere to go, so it is dropped.
void closeOpenFiles() {
    try {
        QNTerminate();
    } catch (...) {
    }
}

}  // namespace

extern "C" void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    mexAtExit(closeOpenFiles);
    Failure failure;
    std::exception_ptr octaveException;
    if (runCommand(nlhs, plhs, nrhs, prhs, failure, octaveException)) return;
    if (octaveException) std::rethrow_exception(octaveException);
    mexErrMsgIdAndTxt(failure.identifier.data(), "%s", failure.text.data());
}
