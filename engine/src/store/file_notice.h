// Fixed texts and stamps written into new files.
#pragma once

#include <cstdint>

namespace cdfgate::engine::store {

// The notice that CDF 3.6 writers store in the CDR; kept for byte-identical files.
inline constexpr const char* kFileNotice =
    "\nCommon Data Format (CDF)\n(C) Copyright 1990-2017 NASA/GSFC\nSpace Physics Data "
    "Facility\nNASA/Goddard Space Flight Center\nGreenbelt, Maryland 20771 USA\n(Internet -- "
    "GSFC-CDF-SUPPORT@LISTS.NASA.GOV)\n";

}  // namespace cdfgate::engine::store
