#include "relief/picturesettings.h"

#include "base/numbers.h"
#include "base/paths.h"

#include <cmath>
#include <cstdlib>

PictureSettings settingsof(const MapGrid& map, const Picture* picture)
{
    PictureSettings settings{map.record, map.maplon, map.maplat, map.cities};
    if (!picture || picture->hmax == picture->hmin)
        return settings;
    MapRecord& record = settings.record;
    record.Mapmode = picture->Mapmode;
    record.minx = picture->minx;
    record.maxx = picture->maxx;
    record.light = picture->light;
    record.con = picture->con;
    record.bri = picture->bri;
    record.c1 = picture->c1;
    record.c2 = picture->c2;
    record.hmin = picture->hmin;
    record.hmax = picture->hmax;
    record.hmoy = picture->hmoy;
    settings.cities = picture->city != 0 ? -1 : 0;
    return settings;
}

void applysettings(const PictureSettings& settings, MapGrid& map)
{
    map.record = settings.record;
    map.maplon = settings.maplon;
    map.maplat = settings.maplat;
    map.cities = settings.cities;
}

bool corresponds(const Picture& picture, const MapGrid& map)
{
    const auto near = [](float a, float b) {
        constexpr float closeness = 0.0001F; // degrees
        return std::abs(a - b) < closeness;
    };
    return picture.Pictype == pictype::map && near(picture.lon[0], map.maplon[0]) &&
           near(picture.lon[2], map.maplon[2]) && near(picture.lat[0], map.maplat[0]) &&
           near(picture.lat[2], map.maplat[2]) && !picture.isstereo() &&
           picture.source != worldtitle && std::abs(picture.scalewidth - map.upperx()) < 2 &&
           std::abs(picture.scaleheight - map.uppery()) < 2;
}

std::string settingstitle(const Picture* picture)
{
    return "Propriétés de " + (picture ? "..\\" + nameof(picture->Filename) : "la nouvelle image");
}

std::string settingsinfo(const PictureSettings& settings, const Picture* picture,
                         const MapGrid& map)
{
    const auto metres = [](float height) {
        return formatnumber("0.0 m", static_cast<double>(height));
    };
    const MapRecord& record = settings.record;
    // A new picture is drawn from the map in memory, so it shows what that map holds.
    const bool same = !picture || corresponds(*picture, map);
    return "Source des données d'altitude: " + (picture ? picture->source : mapname) +
           "\nStatistiques: \nMinimum " + metres(record.hmin) + " - Maximum " +
           metres(record.hmax) + " - Moyenne " + metres(record.hmoy) + "\n" +
           (same ? "Corresponds" : "Ne corresponds pas") + " aux données d'altitude en mémoire" +
           "\nRépertoire: " + (picture ? pathof(picture->Filename) : "");
}
