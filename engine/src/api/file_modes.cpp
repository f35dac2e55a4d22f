// The process-wide backward-file and validation modes.
#include "api/library_state.h"
#include "cdf.h"

extern "C" int CDFgetFileBackward(void) {
    return cdfgate::engine::api::library_state().backward_file ? 1 : 0;
}

extern "C" void CDFsetFileBackward(int flag) {
    cdfgate::engine::api::library_state().backward_file = flag != 0;
}

extern "C" int CDFgetValidate(void) {
    return cdfgate::engine::api::library_state().validate ? 1 : 0;
}

// Only VALIDATEFILEon turns validation on; any other value turns it off.
extern "C" void CDFsetValidate(long mode) {
    cdfgate::engine::api::library_state().validate = mode == VALIDATEFILEon;
}
