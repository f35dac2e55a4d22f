// The library's version and notice, reported by LIB_* items and stamped into new files.
#pragma once

namespace cdfgate::engine::api {

inline constexpr long kLibraryVersion = 3;
inline constexpr long kLibraryRelease = 6;
inline constexpr long kLibraryIncrement = 4;
inline constexpr char kLibrarySubIncrement = '0';

// Seven lines starting and ending with a newline, like the notice stored in files.
inline constexpr const char* kLibraryCopyright =
    "\nCommon Data Format (CDF)\n"
    "cdfgate built-in CDF engine\n"
    "Reads CDF 2.6, 2.7 and 3.x files\n"
    "Writes CDF 3.x and 2.7 files\n"
    "Independent implementation of the format\n"
    "Distributed with the cdfgate library\n";

}  // namespace cdfgate::engine::api
