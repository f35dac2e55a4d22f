// The exported entry point: name the command, find its row, run its handler.
#include <boost/numeric/conversion/cast.hpp>
#include <memory>
#include <string>

#include "errors/errors.h"
#include "gateway/arguments.h"
#include "gateway/command_table.h"
#include "hv/entry.h"

void cdflib(int nlhs, std::unique_ptr<hvArray, matrix::detail::hvDestroy_deleter>* plhs, int nrhs,
            const hvArray* const* prhs) {
    using namespace cdfgate::gateway;
    // The host never calls without a command name; refuse it rather than read past prhs.
    if (nrhs < 1 || prhs == nullptr) {
        hvErrMsgId(QUORIN::imagesci::validate::wrongNumberOfInputs());
    }
    const std::string name = getStringArg(prhs[0]);
    const CommandEntry& entry = lookupCommand(name, nrhs - 1);
    try {
        entry.handler(nlhs, plhs, nrhs - 1, prhs + 1, &entry);
    } catch (const boost::numeric::bad_numeric_cast&) {
        hvErrMsgId(QUORIN::imagesci::validate::argumentOutOfBounds());
    }
}
