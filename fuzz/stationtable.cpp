// Tables of stations: every row is counted once, what is kept has a place, and the plan fills only
// slots that there are.

#include "network/stationplan.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    StationRecords records;
    readstationtable(std::as_bytes(std::span(data, size)), records);
    if (records.usable + records.faulty > size || records.kept.size() > 250)
        std::abort();
    for (const StationRecord& record : records.kept)
        if (record.fault == StationFault::none &&
            !(std::fabs(record.lon) <= 180 && std::fabs(record.lat) <= 90))
            std::abort();
    static const NetworkTables empty = defaulttables();
    NetworkTables tables = empty;
    const StationPlan plan = planstations(records, tables, MapGrid(), 1, false);
    if (plan.taken != std::min(records.usable, std::size_t{MAXUNIT}))
        std::abort();
    takestations(plan, tables);
    // What goes out comes back, as far as it has a place.
    const std::string written = stationtable(tables);
    StationRecords again;
    const std::string text = stationtable(tables);
    if (!readstationtable(std::as_bytes(std::span(text.data(), text.size())), again) ||
        again.usable != plan.taken)
        std::abort();
    return 0;
}
