// Library-wide modes (backward-file, validation) and the library's own version and
// copyright: no file is selected.
#include "constants/constant_table.h"
#include "errors/check_status.h"
#include "errors/errors.h"
#include "file/file_commands.h"
#include "file/text_buffer.h"
#include "gateway/arguments.h"
#include "gateway/outputs.h"

namespace cdfgate::gateway {

void getFileBackward(int, OutputSlot* plhs, int, const hvArray* const*, const CommandEntry*) {
    plhs[0] = createString(constants::lookupModeName(constants::backwardFileModeNames(),
                                                     CDFgetFileBackward(), "BACKWARDS FILE MODE"));
}

void setFileBackward(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const long mode = getInt64Scalar(prhs[0], "MODE");
    // Unsigned comparison: negative modes are out of range too.
    if (static_cast<unsigned long>(mode) >= 2) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(mode, "BACKWARD MODE"));
    }
    CDFsetFileBackward(static_cast<int>(mode));
}

void getValidate(int, OutputSlot* plhs, int, const hvArray* const*, const CommandEntry*) {
    // The map names 1 "on"; a library that reports -1 for on is refused by the lookup.
    plhs[0] = createString(constants::lookupModeName(constants::validationModeNames(),
                                                     CDFgetValidate(), "VALIDATION MODE"));
}

void setValidate(int, OutputSlot*, int, const hvArray* const* prhs, const CommandEntry*) {
    const long mode = getInt64Scalar(prhs[0], "MODE");
    if (mode != VALIDATEFILEoff && mode != VALIDATEFILEon) {
        hvErrMsgId(QUORIN::imagesci::cdflib::unrecognizedValue(mode, "file validation mode"));
    }
    CDFsetValidate(mode);
}

void getLibraryVersion(int nlhs, OutputSlot* plhs, int, const hvArray* const*,
                       const CommandEntry*) {
    long version = 0;
    long release = 0;
    long increment = 0;
    char subIncrement = '\0';  // fetched and not returned
    errors::checkStatus(CDFlib(GET_, LIB_VERSION_, &version, LIB_RELEASE_, &release, LIB_INCREMENT_,
                               &increment, LIB_subINCREMENT_, &subIncrement, NULL_),
                        "CDFgetLibraryVersion");
    placeOutput(nlhs, plhs, 0, createDoubleScalar(static_cast<double>(version)));
    placeOutput(nlhs, plhs, 1, createDoubleScalar(static_cast<double>(release)));
    placeOutput(nlhs, plhs, 2, createDoubleScalar(static_cast<double>(increment)));
}

void getLibraryCopyright(int, OutputSlot* plhs, int, const hvArray* const*, const CommandEntry*) {
    TextBuffer<CDF_COPYRIGHT_LEN> text{};
    errors::checkStatus(CDFlib(GET_, LIB_COPYRIGHT_, text.data(), NULL_), "CDFgetLibraryCopyright");
    plhs[0] = createString(textOf(text));
}

}  // namespace cdfgate::gateway
