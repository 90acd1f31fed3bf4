#pragma once

#include "network/tables.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// How the reading of a .net file ended.
enum class NetStatus {
    ok,
    unreadable, ///< the file is missing, cannot be opened, or has another extension
    truncated,  ///< it ends early; what was read stands
    mapfile,    ///< a map under the wrong name; nothing was read
    toolarge,   ///< no network is so large; nothing was read
    foreign     ///< neither a network nor a map by its first bytes; nothing was read
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

/// Bytes of the largest file that is taken for a network: far more than the tables and any list of
/// pictures take.
inline constexpr std::uint64_t mostnetbytes = std::uint64_t{1} << 24;

/// Looks at a network file's size and first bytes, without reading it: `ok` where its reading may
/// begin, else `unreadable`, `toolarge` or `foreign`.
NetStatus probenet(const std::string& path);

/// True for first bytes that a network of either format, or a map, may begin with. An older one
/// begins with the length and the characters of its map's name.
bool netbeginning(std::span<const std::byte> bytes);

/// Clears everything to the defaults: tables, selection, geodetic system, map.
///   withname: also makes a new file name, "net1.net" and so on, and enters it in `recent`
void newnet(bool withname);

/// The file that a name in the run's network file means: a bare or relative one is looked for
/// beside the network first, then from the current folder. A name that is found comes back as a
/// full path, any other one as it is.
std::string besidenetwork(const std::string& name);

/// Reads a network file and everything it names: pictures, map, evaluation. No message on failure;
/// `lastnetstatus` tells. A file that ends early leaves the tables that it held, and nothing more
/// happens; a map under a network's name leaves all tables, and the rest happens. What `probenet`
/// refuses changes nothing at all; the status line says why.
void loadnet(const std::string& path);
/// The same with bytes that a file should hold, as if they stood in the file of this path. The
/// network counts as changed.
void recovernet(const std::string& path, const std::string& content);
/// How the last `loadnet` ended.
NetStatus lastnetstatus();

/// Writes the network to a .net file, as a whole or not at all. A longer file keeps its bytes
/// behind the new ones; the previous one stays beside it with a tilde behind its name. A name with
/// another extension writes nothing and counts as done. On failure a message is shown, the network
/// stays unsaved, and `why` receives the system's reason. True when it counts as done.
bool savenet(const std::string& path, std::string* why = nullptr);
