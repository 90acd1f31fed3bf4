#include "base/busy.h"
#include "base/bytes.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "terrain/jobs.h"
#include "terrain/mapfile.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

/// Samples of any map that is read.
static constexpr std::uint64_t mostsamples = std::uint64_t{1} << 30;

static MapStatus laststatus = MapStatus::ok;

MapStatus lastmapstatus()
{
    return laststatus;
}

/// A map moves with its network: the path as stored, else its name beside the network, else in the
/// program's folder.
static std::optional<std::string> searchmap(const std::string& path)
{
    if (auto found = findfile(path))
        return found;
    const std::string name = nameof(path);
    if (auto found = findfile(pathof(session.netfile) + name))
        return found;
    return findprogramfile(name);
}

static MapStatus readoldermap(std::span<const std::byte> bytes)
{
    beginop(openmapjob());
    const MapStatus status = parsemap(bytes, mapgrid, [](int column) {
        if (column == 0)
            hooks.setlabel2("Conversion au nouveau format de carte...");
        return opstep(column) != 0;
    });
    if (status == MapStatus::badformat)
        telluser("Mauvais format de carte");
    if (status == MapStatus::ok) {
        const std::string picture = mapname.substr(0, mapname.size() - 3) + "bmp";
        hooks.openpicture(picture, 1);
        hooks.placepicture(picture, mapgrid.maplon.data(), mapgrid.maplat.data());
    }
    return status;
}

static MapStatus readmap(const std::string& path)
{
    const std::optional<std::string> found = searchmap(path);
    if (!found)
        return MapStatus::unreadable;
    const std::optional<std::string> header = readfile(*found, mapheadersize);
    const std::uint64_t needed = header ? mapbytes(asbytes(*header)) : 0;
    std::error_code error;
    const std::uint64_t size = std::filesystem::file_size(*found, error);
    if (smin(needed, size) > mapheadersize + mostsamples * sizeof(std::int16_t))
        return MapStatus::toolarge;
    const std::string before = std::exchange(mapname, keptname(fullpath(*found)));
    const std::optional<std::string> content =
        readfile(*found, smax(needed, std::uint64_t{mapheadersize}));
    if (!content)
        return MapStatus::unreadable;
    const std::span<const std::byte> bytes = asbytes(*content);
    const MapStatus status = isoldermap(bytes) ? readoldermap(bytes) : parsemap(bytes, mapgrid);
    if (status == MapStatus::badformat || status == MapStatus::truncated)
        mapname = before; // the map is still that one's
    return status;
}

/// Says in the status line what has become of a map that is there, but no whole one.
static void tellmap(const std::string& path)
{
    if (laststatus == MapStatus::incomplete)
        hooks.setlabel2(nameof(mapname) + " : carte incomplète");
    if (laststatus == MapStatus::toolarge)
        hooks.setlabel2(nameof(path) + " : carte trop grande");
    if (laststatus == MapStatus::badformat || laststatus == MapStatus::truncated)
        hooks.setlabel2(nameof(path) + " : ce n'est pas une carte");
}

bool loadmap(const std::string& path)
{
    const std::string wanted = keptname(unquoted(path));
    laststatus = MapStatus::unreadable;
    if (!lowercase(wanted).ends_with("map"))
        return false;
    laststatus = readmap(wanted);
    const bool success = laststatus == MapStatus::ok;
    hooks.mapchanged();
    endop(); // also where no operation began: the status line then tells of a stop
    mapincomplete = laststatus == MapStatus::incomplete || (mapincomplete && !success);
    const bool refused = laststatus == MapStatus::toolarge || laststatus == MapStatus::badformat ||
                         laststatus == MapStatus::truncated;
    if (!refused) // the map is as it was; and an incomplete one is no work of the user's
        mapdirty = !success && !mapincomplete;
    tellmap(wanted);
    return success;
}

/// Asks before an incomplete map goes over the file that may still be whole elsewhere.
static bool mayoverwrite(const std::string& path)
{
    if (!mapincomplete || targetpath(path) != targetpath(mapname))
        return true;
    return hooks.askuser(
               {"La carte " + nameof(path) + " est incomplète.\nL'enregistrer quand même?",
                Question::Buttons::yesno, Question::Icon::question}) == Answer::yes;
}

static bool writemap(const std::string& path, std::string* why)
{
    const Busy busy;
    const std::string header = mapheader(mapgrid);
    const auto samples = std::as_bytes(std::span(mapgrid.samples));
    const std::string_view parts[] = {
        header, {reinterpret_cast<const char*>(samples.data()), samples.size()}};
    return writefile(targetpath(path), parts, why);
}

bool savemap(const std::string& path, std::string* why)
{
    if (!mayoverwrite(path))
        return false;
    if (!writemap(path, why)) {
        hooks.setlabel2(nameof(path) + " impossible à enregistrer");
        return false;
    }
    mapname = path;
    mapdirty = mapincomplete = false;
    hooks.setlabel2(nameof(path) + " a été enregistrée" + lostnote());
    return true;
}
