#pragma once

#include "network/tables.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// How the reading of a .net file ended.
enum class NetStatus {
    ok,
    unreadable, ///< the file is missing, cannot be opened, or has another extension
    truncated,  ///< it ends early; what was read stands
    mapfile     ///< a map under the wrong name; nothing was read
};

/// A network file's content beside the tables. The map's name stays where it cannot be read.
struct NetFile {
    bool older = false;                ///< from before version 2000
    std::string mapname;               ///< UTF-8
    std::vector<std::string> pictures; ///< UTF-8 file names
};

/// Reads the bytes of a .net file into the tables, in either format. Each table is filled as a
/// whole or stays as it was.
NetStatus parsenet(std::span<const std::byte> bytes, NetworkTables& tables, NetFile& file);

/// The bytes of a .net file of version 2000.
std::string netbytes(const NetworkTables& tables, const std::string& map,
                     const std::vector<std::string>& pictures);

/// Clears everything to the defaults: tables, selection, geodetic system, map.
///   withname: also makes a new file name, "net1.net" and so on, and enters it in `recent`
void newnet(bool withname);

/// Reads a network file and everything it names: pictures, map, evaluation. No message on failure;
/// `lastnetstatus` tells. A file that ends early leaves the tables that it held, and nothing more
/// happens; a map under a network's name leaves all tables, and the rest happens.
void loadnet(const std::string& path);
/// How the last `loadnet` ended.
NetStatus lastnetstatus();

/// Writes the network to a .net file, as a whole or not at all. A longer file keeps its bytes
/// behind the new ones. A name with another extension writes nothing and counts as done. On failure
/// a message is shown, the network stays unsaved, and `why` receives the system's reason. True when
/// it counts as done.
bool savenet(const std::string& path, std::string* why = nullptr);
