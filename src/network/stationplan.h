#pragma once

#include "network/stationfile.h"
#include "network/tables.h"
#include "terrain/mapgrid.h"

/// A station's slot is free while it stands nowhere: at 0, 0.
bool isfree(const Unit& unit);

/// What becomes of a record.
struct PlannedStation {
    int slot = 0;          ///< that it goes to; 0: it is not taken
    Unit unit;             ///< the slot's record when it is taken
    bool cut = false;      ///< its name is longer than a station's
    bool replaced = false; ///< its name has letters that a station's has not
    bool offmap = false;   ///< the map has no height there: the file's stands, or 0
};

/// What becomes of all records of a file.
struct StationPlan {
    std::vector<PlannedStation> stations; ///< one for each record that is kept
    std::size_t taken = 0;
    std::size_t left = 0; ///< records that are not taken, also those not kept
};

/// Gives the records their slots, in the order of the file: the free ones from `first` on, or all
/// from there on. Heights come from the map, else from the file. What a file does not tell of a
/// station (colours, icon, nets) stays as the slot has it.
StationPlan planstations(const StationRecords& records, const NetworkTables& tables,
                         const MapGrid& map, int first, bool replace);

/// Writes what is taken into the tables.
void takestations(const StationPlan& plan, NetworkTables& tables);
