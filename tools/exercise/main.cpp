// cdfgate-exercise FILE...: reads every file through the C interface as the fuzz
// targets do and prints what happened; exits 1 when a file showed a fault.
#include <cstdio>

#include "cdf.h"
#include "exercise.h"

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: cdfgate-exercise FILE...\n");
        return 2;
    }
    int faults = 0;
    for (int i = 1; i < argc; ++i) {
        for (const long validate : {VALIDATEFILEon, VALIDATEFILEoff}) {
            CDFsetValidate(validate);
            const auto report = cdfgate::exercise::read_everything(argv[i]);
            std::printf("%s validate %s: open %ld, %ld calls, %ld errors", argv[i],
                        validate == VALIDATEFILEon ? "on" : "off", report.open_status, report.calls,
                        report.errors);
            if (report.unnamed != 0) {
                std::printf(", %ld unnamed statuses (first %ld)", report.unnamed,
                            report.first_unnamed);
            }
            if (report.shape_faults != 0) std::printf(", %ld shape faults", report.shape_faults);
            std::printf("\n");
            if (report.faulty()) ++faults;
        }
    }
    return faults == 0 ? 0 : 1;
}
