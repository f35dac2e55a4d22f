// heap_in_use(): the bytes of the C heap now in use, for the suite's leak checks.
// Unlike the resident size it does not move with the allocator's retained arenas.
#include <malloc.h>
#include <mex.h>

extern "C" void mexFunction(int, mxArray* plhs[], int, const mxArray*[]) {
    const struct mallinfo2 info = mallinfo2();
    plhs[0] = mxCreateDoubleScalar(static_cast<double>(info.uordblks));
}
