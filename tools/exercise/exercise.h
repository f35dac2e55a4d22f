// Reads everything a CDF holds through the C interface, as a hostile-input check:
// every inquiry, every attribute entry and (within limits) every record of every
// variable. Used by the fuzz targets, the damaged-file suites and cdfgate-exercise.
#pragma once

#include <cstddef>
#include <string>

namespace cdfgate::exercise {

// Bounds that keep one pass short on files that claim huge shapes or counts.
struct Limits {
    std::size_t max_buffer_bytes = std::size_t{1} << 22;  // largest buffer one read gets
    long max_records = 256;   // records read one by one per variable (plus the last)
    long max_entries = 1024;  // entry numbers tried per attribute and kind
    // Hyperslab reads stop once a pass has asked for this many bytes: a small damaged
    // file may describe huge values, and reading all of them proves nothing more.
    std::size_t max_hyper_bytes = std::size_t{1} << 24;
};

struct Report {
    long open_status = 0;    // status of OPEN_
    long calls = 0;          // C interface calls made after the open
    long errors = 0;         // of those, how many returned an error status
    long unnamed = 0;        // statuses the library has no name for (a fault)
    long first_unnamed = 0;  // the first such status
    long shape_faults = 0;   // successful inquiries answering an impossible shape (a fault)

    bool opened() const;
    bool faulty() const { return unnamed != 0 || shape_faults != 0; }
};

// Opens path, reads it and closes it. Never throws; every outcome is in the report.
Report read_everything(const std::string& path, const Limits& limits = {});

// Bytes of one element of a CDF data type, 0 for a code that names no type.
std::size_t element_bytes(long data_type);

}  // namespace cdfgate::exercise
