#include "base/busy.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "coordinates/geosys.h"
#include "network/netfile.h"
#include "network/unsaved.h"
#include "terrain/mapfile.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace fs = std::filesystem;

static NetStatus laststatus = NetStatus::ok;

NetStatus lastnetstatus()
{
    return laststatus;
}

static void gotofolder(const std::string& folder)
{
    std::error_code error; // a folder that has gone leaves the current one
    if (!folder.empty())
        fs::current_path(folder, error);
}

/// The screen's size in pixels, which an unloaded map takes, within reason.
static std::pair<int, int> screenpixels()
{
    constexpr int most = 8192;
    const auto [width, height] = hooks.screensize();
    return {std::clamp(width, 1, most), std::clamp(height, 1, most)};
}

static void allocatescreenmap()
{
    const auto [width, height] = screenpixels();
    allocatemap(mapgrid, width, height);
}

/// Folder in which the run began: new networks are named there.
static const std::string& netfolder()
{
    static const std::string folder = [] {
        std::error_code error;
        return fs::current_path(error).string();
    }();
    return folder;
}

static void makenetname()
{
    static int counter = 0;
    ++counter;
    session.netfile = netfolder() + "/net" + std::to_string(counter) + ".net";
    gotofolder(netfolder());
    addrecent(session.netfile);
}

void newnet(bool withname)
{
    netfolder(); // the first call notes it
    network = defaulttables();
    hooks.netreplaced();
    allocatescreenmap();
    if (withname)
        makenetname();
    setgeosys("geosys.dat");
    mapgrid.record = MapRecord();
    mapframe(mapgrid);
    mapname = "default.map";
    selection = Selection();
    marksaved();
}

/// Centres the map on the placed stations, with a size that shows them all on this screen. Without
/// any the centre is 0, 0, and the frame takes its least size.
static void framestations(const NetworkTables& tables, MapRecord& record)
{
    float lonmax = -180;
    float lonmin = 180;
    float latmax = -90;
    float latmin = 90;
    for (std::size_t slot = 1; slot <= MAXUNIT; ++slot) {
        const Unit& unit = tables.units[slot];
        if (!unit.placed())
            continue;
        lonmax = std::max(lonmax, unit.lon);
        lonmin = std::min(lonmin, unit.lon);
        latmax = std::max(latmax, unit.lat);
        latmin = std::min(latmin, unit.lat);
    }
    constexpr double kmperdegree = 120; // a degree of latitude and some margin
    const auto [width, height] = screenpixels();
    const auto wide = [](float value) { return static_cast<double>(value); };
    record.maplon0 = static_cast<float>((wide(lonmin) + wide(lonmax)) / 2);
    record.maplat0 = static_cast<float>((wide(latmin) + wide(latmax)) / 2);
    const double lonspan =
        (wide(lonmax) - wide(lonmin)) * std::cos(wide(record.maplat0) * degree) * height / width;
    record.mapsize = static_cast<float>(kmperdegree * smax(wide(latmax) - wide(latmin), lonspan));
}

std::string besidenetwork(const std::string& name)
{
    const std::string bare = trimmed(name);
    if (bare.empty() || isfullpath(bare))
        return name;
    if (const auto beside = findfile(pathof(session.netfile) + bare))
        return fullpath(*beside);
    const auto here = findfile(bare);
    return here ? fullpath(*here) : name;
}

NetStatus probenet(const std::string& path)
{
    constexpr std::size_t beginning = 2048; // bytes; a map's name and more
    const auto found = findfile(path);
    const auto first = found ? readfile(*found, beginning) : std::nullopt;
    if (!first)
        return NetStatus::unreadable;
    std::error_code error;
    if (fs::file_size(*found, error) > mostnetbytes)
        return NetStatus::toolarge;
    return netbeginning(asbytes(*first)) ? NetStatus::ok : NetStatus::foreign;
}

/// True when a network's file is not even tried; the status line says why.
static bool refused(const std::string& path)
{
    laststatus = lowercase(path).ends_with("net") ? probenet(path) : NetStatus::unreadable;
    if (laststatus == NetStatus::toolarge)
        hooks.setlabel2(nameof(path) + " : fichier trop grand");
    if (laststatus == NetStatus::foreign)
        hooks.setlabel2(nameof(path) + " : ce n'est pas un fichier de réseaux");
    return laststatus == NetStatus::toolarge || laststatus == NetStatus::foreign;
}

/// Reads the tables from a file's content and opens its pictures.
static NetStatus readtables(const std::string& content)
{
    NetFile file;
    file.mapname = mapname;
    const NetStatus status = parsenet(asbytes(content), network, file);
    hooks.netreplaced();
    mapname = status == NetStatus::mapfile ? mapname : besidenetwork(file.mapname);
    for (const std::string& picture : file.pictures)
        hooks.openpicture(besidenetwork(picture), 2);
    return status;
}

/// Takes a file's content and everything it names, the folder of the file included.
static NetStatus readcontent(const std::string& path, const std::string& content)
{
    const NetStatus status = readtables(content);
    if (status != NetStatus::ok && status != NetStatus::mapfile)
        return status;
    framestations(network, mapgrid.record);
    allocatescreenmap();
    mapframe(mapgrid);
    loadmap(mapname);
    hooks.netsloaded();
    gotofolder(pathof(path));
    if (mapincomplete)
        hooks.setlabel2(nameof(mapname) + " : carte incomplète");
    return status;
}

static NetStatus readproject(const std::string& path)
{
    const std::optional<std::string> found =
        lowercase(path).ends_with("net") ? findfile(path) : std::nullopt;
    const std::optional<std::string> content = found ? readfile(*found) : std::nullopt;
    return content ? readcontent(*found, *content) : NetStatus::unreadable;
}

/// The network's file is this one from now on.
static void takename(const std::string& path)
{
    session.netfile = path;
    writesetting("LastProject", session.netfile);
    addrecent(session.netfile);
}

void loadnet(const std::string& path)
{
    if (refused(unquoted(path)))
        return;
    const Busy busy;
    hooks.pumpevents();
    takename(keptname(unquoted(path)));
    laststatus = readproject(session.netfile);
    marksaved();
}

void recovernet(const std::string& path, const std::string& content)
{
    const Busy busy;
    takename(path);
    laststatus = readcontent(path, content);
    markedited();
}

/// Keeps a file that is about to be written over as its name with a tilde. Where that fails, the
/// new one is written all the same.
static void keepprevious(const std::string& target, const std::string& content)
{
    writefile(target + "~", content);
}

/// The network's bytes over the file that is there: what a longer file has behind them stays.
static bool writenet(const std::string& path, std::string* why)
{
    const std::string target = targetpath(path);
    const std::string bytes = netbytes(network, mapname, hooks.openpictures());
    const std::optional<std::string> previous = readfile(target);
    if (previous)
        keepprevious(target, *previous);
    const std::string_view old = previous ? *previous : std::string_view();
    const std::string_view parts[] = {bytes, old.substr(std::min(bytes.size(), old.size()))};
    return writefile(target, parts, why);
}

/// The same under the busy pointer, which is gone before the user is told of a failure.
static bool writebusily(const std::string& path, std::string* why)
{
    const Busy busy;
    hooks.pumpevents();
    return writenet(path, why);
}

bool savenet(const std::string& path, std::string* why)
{
    const bool isnet = lowercase(path).ends_with("net");
    if (isnet && !writebusily(path, why)) {
        telluser(path + " impossible à enregistrer");
        return false;
    }
    const std::string note = isnet ? lostnote() : std::string();
    if (isnet) {
        session.netfile = path;
        writesetting("LastProject", session.netfile);
    }
    marksaved();
    addrecent(session.netfile);
    hooks.setlabel2(nameof(path) + " a été enregistré" + note);
    return true;
}
