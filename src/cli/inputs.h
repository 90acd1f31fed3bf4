#pragma once

#include "cli/options.h"
#include "network/netfile.h"

#include <string>

/// What a file is taken for, by its extension.
enum class FileKind { netfile, mapfile, other };
FileKind filekind(const std::string& path);

// "-" is standard input wherever a file is read here.

/// All of standard input; a Failure beyond a limit of bytes.
std::string readstandardinput(std::size_t limit);

/// Reads a .map file into the process's map, or throws Failure.
void openmap(const std::string& path);

/// Reads a .net file into the process's tables, with its map or the one that the options name in
/// its place, or throws Failure. There must be a map: no link can be evaluated without.
void opennetwork(const std::string& path, const NetworkOptions& options);

/// Reads a .net file without what it names.
NetFile readnetwork(const std::string& path, NetworkTables& tables);

/// Slots given by number or name, or a Failure.
int stationslot(const std::string& text);
/// 0 is no net.
int netslot(const std::string& text);

/// A coordinate in degrees, as a single; what is no number is a wrong command line.
///   name: the argument's name
float coordinate(const std::string& name, const std::string& text);
/// A latitude on the globe, and a longitude of at most two turns either way.
float latitude(const std::string& name, const std::string& text);
float longitude(const std::string& name, const std::string& text);
