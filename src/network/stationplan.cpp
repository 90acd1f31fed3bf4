#include "network/stationplan.h"

#include "base/textcodec.h"

#include <algorithm>

namespace
{
/// A map was read: what stands in for a missing one is level and lies at 0.
bool hasground(const MapGrid& map)
{
    return std::ranges::any_of(map.samples, [](std::int16_t height) { return height != 0; });
}

/// The first slot from one on that may be taken; 0: none.
int nextslot(const NetworkTables& tables, int slot, bool replace)
{
    for (; slot <= MAXUNIT; ++slot)
        if (replace || isfree(tables.unit(slot)))
            return slot;
    return 0;
}

void plan(const StationRecord& record, const MapGrid& map, bool ground, PlannedStation& planned)
{
    Unit& unit = planned.unit;
    const std::string name = toansi(record.name);
    unit.name.assign(record.name);
    planned.cut = name.size() > unit.name.bytes.size();
    planned.replaced = fromansi(name) != record.name;
    unit.lon = static_cast<float>(record.lon);
    unit.lat = static_cast<float>(record.lat);
    unit.enabled = record.enabled ? -1 : 0;
    float x = 0;
    float y = 0;
    planned.offmap = !ground || !maplookup(map, unit.lon, unit.lat, x, y, unit.elevation);
    if (planned.offmap)
        unit.elevation = static_cast<float>(record.elevation.value_or(0));
}
} // namespace

bool isfree(const Unit& unit)
{
    return unit.lon == 0 && unit.lat == 0;
}

StationPlan planstations(const StationRecords& records, const NetworkTables& tables,
                         const MapGrid& map, int first, bool replace)
{
    StationPlan result;
    const bool ground = hasground(map);
    int slot = nextslot(tables, first, replace);
    for (const StationRecord& record : records.kept) {
        PlannedStation& planned = result.stations.emplace_back();
        if (record.fault != StationFault::none || slot == 0)
            continue;
        planned.slot = slot;
        planned.unit = tables.unit(slot);
        plan(record, map, ground, planned);
        ++result.taken;
        slot = nextslot(tables, slot + 1, replace);
    }
    result.left = records.usable + records.faulty - result.taken;
    return result;
}

void takestations(const StationPlan& plan, NetworkTables& tables)
{
    for (const PlannedStation& planned : plan.stations)
        if (planned.slot != 0)
            tables.unit(planned.slot) = planned.unit;
}
