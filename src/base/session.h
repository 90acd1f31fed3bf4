#pragma once

#include <array>
#include <cstdint>
#include <string>

/// The program's title, as it stands in captions and boxes.
inline constexpr const char* apptitle = "Velmora";

/// Version as major.minor.revision.
std::string appversion();

/// What the layer of live positions starts with.
struct LiveSettings {
    std::int32_t gpsstatus = 0;   ///< bit field
    std::int16_t gpsserial = 1;   ///< number of the serial port
    std::int16_t gpsspeed = 4800; ///< bits per second
    std::int16_t gpsunit = 1;     ///< station that the receiver drives
    std::string gpslog = "GPS.TXT";
    std::string gpsudp = "231.31.31.31"; ///< multicast group
    std::int32_t gpsport = 3500;
    std::int16_t gpsttl = 2;
    float gpstx = 10;   ///< between transmissions, s
    float gpsdraw = 10; ///< between redraws, s
    float gpsplay = 2;  ///< between replayed fixes, s
};
/// Bit of `gpsstatus`: a log is being replayed.
inline constexpr std::int32_t gpsreplaybit = 2;

/// What a run of the program remembers beside the network and the map. One instance.
struct Session {
    std::string netfile;               ///< full path of the current network file, lower case
    std::array<std::string, 4> recent; ///< recently used networks, newest first; empty: no entry
    std::string tempfolder;            ///< with its trailing separator
    std::array<std::string, 3> drvpath{"C", "C", "C"}; ///< elevation roots: DTED, GTOPO30, TERRAIN
    std::string adrgdrive = "C";                       ///< folder of scanned charts
    std::string objectdrive = "C";                     ///< folder of overlay objects
    std::string drawfontname = "MS Sans Serif";
    std::int16_t drawfontsize = 8; ///< points
    bool drawfontbold = true;
    bool drawfontitalic = false;
    bool drawtransparent = true;   ///< text on pictures without an opaque background
    bool drawobject = true;        ///< overlay objects on new pictures
    float defh1 = 2;               ///< default antenna height of a link's left end, m
    float defh2 = 2;               ///< and of its right end, m
    bool mousecoordinates = false; ///< the status line tells where the mouse is
    std::string profilefile; ///< that the last profile was written to; empty: none in this run
    LiveSettings live;
};
extern Session session;

/// Enters a network file in `recent` under the name by which it is kept (see `keptname`; the
/// caller's path too), newest first.
/// Two networks of one file name share an entry. The menu and the caption follow by a hook.
void addrecent(std::string& path);

/// Text of recent entry i (0 to 3) for the File menu, as "&1 name.net"; empty when it is hidden.
std::string recentcaption(int i);

/// The main window's caption: title, " - ", "..\" and the network's file name.
std::string maincaption();
