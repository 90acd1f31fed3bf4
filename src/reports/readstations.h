#pragma once

#include "network/stationfile.h"

#include <string>

/// How the reading of a file of stations ended.
enum class StationReading {
    ok,
    unreadable, ///< the file is missing or cannot be opened
    toolarge,   ///< it has more bytes than are read
    nocolumns,  ///< a table whose header names no longitude and latitude
    nolibrary,  ///< it needs the module of vector files, which the program was built without
    refused     ///< that module cannot make anything of it; `why` tells
};

/// Reads the stations of another program's file: a CSV (.csv, .txt, .tsv), or any file of points
/// that the module of vector files knows. Features are counted over all its layers; of several
/// points in one each is a record.
///   why  what the system or the module says of a failure; else as it was
StationReading readstations(const std::string& path, StationRecords& records, std::string& why);
