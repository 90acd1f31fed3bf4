#include "app/windows/askfile.h"
#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "network/tables.h"
#include "network/windows/frmImport.h"
#include "network/windows/netundo.h"
#include "radio/link.h"
#include "reports/readstations.h"
#include "reports/writestations.h"
#include "terrain/mapgrid.h"

#include <fmt/format.h>

/// What is said of a file whose stations could not be read.
static std::string refusal(StationReading reading, const std::string& why)
{
    switch (reading) {
    case StationReading::toolarge:
        return "le fichier est trop grand";
    case StationReading::nocolumns:
        return "la première ligne doit nommer les colonnes, dont lon et lat";
    case StationReading::nolibrary:
        return "ce programme est installé sans son module de cartographie ; "
               "seuls les fichiers CSV se lisent";
    default:
        return why.empty() ? "fichier illisible" : "fichier illisible (" + why + ")";
    }
}

void importstations()
{
    const std::string path =
        askfilename({.title = "Importer des stations",
                     .filter = "Stations (CSV, GPX, KML, GeoJSON...)",
                     .patterns = "*.csv *.txt *.gpx *.kml *.kmz *.geojson *.json *.shp *.gpkg *"});
    if (path.empty())
        return;
    StationRecords records;
    std::string why;
    hooks.busypointer(true);
    const StationReading reading = readstations(path, records, why);
    hooks.busypointer(false);
    if (reading != StationReading::ok) {
        telluser(nameof(path) + " : " + refusal(reading, why));
        return;
    }
    if (records.kept.empty()) {
        telluser(nameof(path) + " : aucune station dans ce fichier");
        return;
    }
    frmImport dialog(std::move(records), QString::fromStdString(nameof(path)), mainwindow);
    if (dialog.exec() != QDialog::Accepted)
        return;
    networkundohooks.changed();
    hooks.setlabel2(fmt::format("Stations importées : {}", dialog.taken()));
}

static const std::vector<FileFilter> stationkinds{
    {"Stations et liens, KML", "*.kml", "kml"},
    {"Stations et liens, GeoJSON", "*.geojson *.json", "geojson"},
    {"Stations, GPX", "*.gpx", "gpx"},
    {"Stations, CSV", "*.csv", "csv"}};

/// Asks for a name to write to, with the ending of its kind; empty when the user gives up.
static std::string asktarget()
{
    std::string chosen;
    std::string path = askfilename({.title = "Exporter les stations et les liens",
                                    .filter = stationkinds[0].filter,
                                    .patterns = stationkinds[0].patterns,
                                    .saving = true,
                                    .extension = stationkinds[0].extension,
                                    .kinds = stationkinds,
                                    .chosen = &chosen});
    if (path.empty())
        return {};
    if (!stationformat(path))
        path += "." + (chosen.empty() ? stationkinds[0].extension : chosen);
    if (!findfile(path))
        return path;
    const std::string text = nameof(path) + " existe déjà. Le remplacer?";
    const bool replace =
        hooks.askuser({text, Question::Buttons::yesno, Question::Icon::question}) == Answer::yes;
    return replace ? path : std::string();
}

void exportstations()
{
    const std::string path = asktarget();
    if (path.empty())
        return;
    const StationFormat format = stationformat(path).value_or(StationFormat::kml);
    hooks.busypointer(true);
    std::vector<StationLink> links;
    if (takeslinks(format))
        links = stationlinks(network, mapgrid, selection.linestyle, interf);
    std::string why;
    const auto bytes = stationbytes(format, network, links, why);
    const bool written = bytes && writefile(targetpath(path), *bytes, &why);
    hooks.busypointer(false);
    if (written)
        hooks.setlabel2(nameof(path) + " a été enregistré");
    else
        telluser(nameof(path) + " impossible à enregistrer (" + why + ")");
}
