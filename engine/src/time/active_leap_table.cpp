// The leap-second table in use: the built-in one unless CDF_LEAPSECONDSTABLE names a
// readable, well-formed table. Chosen once, on first use; later changes of the
// variable have no effect.
#include <cstdlib>

#include "time/leap_second_file.h"
#include "time/leap_second_table.h"

namespace cdfgate::engine::time {

namespace {

struct ActiveTable {
    std::optional<LeapSecondTable> external;
    LeapTableSource source = LeapTableSource::builtIn;
};

const ActiveTable& activeTable() {
    static const ActiveTable active = [] {
        ActiveTable a;
        const char* path = std::getenv("CDF_LEAPSECONDSTABLE");
        if (path == nullptr || *path == '\0') return a;
        a.external = readLeapSecondFile(path);
        a.source = a.external ? LeapTableSource::external : LeapTableSource::rejected;
        return a;
    }();
    return active;
}

}  // namespace

const LeapSecondTable& leapSecondTable() {
    const ActiveTable& a = activeTable();
    return a.external ? *a.external : LeapSecondTable::builtIn();
}

LeapTableSource leapSecondTableSource() {
    return activeTable().source;
}

std::int32_t leapSecondLastUpdated() {
    return leapSecondTable().lastUpdated();
}

}  // namespace cdfgate::engine::time
