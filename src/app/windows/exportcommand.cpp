#include "app/windows/askfile.h"
#include "app/windows/commands.h"
#include "app/windows/frmMain.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "gis/gis.h"
#include "pictures/paint/export.h"
#include "pictures/paint/openpictures.h"
#include "terrain/mapfile.h"
#include "terrain/mapgrid.h"

#include <array>

namespace
{
const std::vector<FileFilter> exportkinds{{"Image GeoTIFF", "*.tif *.tiff", "tif"},
                                          {"Image KML, avec son PNG", "*.kml", "kml"},
                                          {"Image KMZ", "*.kmz", "kmz"}};

/// A name without the ending of a picture's file.
std::string withoutending(const std::string& path)
{
    for (const char* ending :
         {".tif", ".tiff", ".kml", ".kmz", ".png", ".bmp", ".gif", ".jpg", ".jpeg", ".map"})
        if (lowercase(path).ends_with(ending))
            return path.substr(0, path.size() - std::string(ending).size());
    return path;
}

/// The picture's own name, or that of the map it shows.
std::string offeredname(const Picture& picture)
{
    const std::string own = trimmed(picture.Filename);
    const std::string base = withoutending(own.empty() ? mapname : own);
    return (base.empty() ? "image" : base) + ".tif";
}

/// "a", or "a et b".
std::string namesof(const std::vector<std::string>& files)
{
    std::string names;
    for (const std::string& file : files)
        names += (names.empty() ? "" : " et ") + nameof(file);
    return names;
}

/// Asks before any of the files is replaced.
bool mayreplace(const std::vector<std::string>& files)
{
    std::vector<std::string> there;
    for (const std::string& file : files)
        if (findfile(file))
            there.push_back(file);
    if (there.empty())
        return true;
    const std::string text =
        namesof(there) +
        (there.size() == 1 ? " existe déjà. Le remplacer?" : " existent déjà. Les remplacer?");
    return hooks.askuser({text, Question::Buttons::yesno, Question::Icon::question}) == Answer::yes;
}

/// What keeps a picture from being exported, as the box ends; empty: the file itself.
std::string reason(const Picture& picture, ExportKind kind)
{
    if (!picture.isplaced())
        return "\nL'image n'a pas de position.";
    if (kind != ExportKind::kml && gislibrary() == nullptr)
        return "\nLe programme est installé sans la bibliothèque GDAL.";
    return {};
}
} // namespace

std::string exportname(const std::string& path, const std::string& extension)
{
    const auto own = exportkind(path);
    if (own && (extension.empty() || own == exportkind("." + extension)))
        return path;
    return withoutending(path) + "." + (extension.empty() ? "tif" : extension);
}

void exportpicture()
{
    const OpenPicture* picture = mainwindow->activepicture();
    if (!picture)
        return;
    std::string chosen;
    const std::string typed = askfilename({.title = "Exporter l'image",
                                           .filter = exportkinds[0].filter,
                                           .patterns = exportkinds[0].patterns,
                                           .offered = offeredname(picture->data),
                                           .saving = true,
                                           .extension = exportkinds[0].extension,
                                           .kinds = exportkinds,
                                           .chosen = &chosen});
    if (typed.empty())
        return;
    const std::string path = exportname(typed, chosen);
    const std::vector<std::string> files = exportedfiles(path);
    if (!mayreplace(files))
        return;
    const ExportKind kind = exportkind(path).value_or(ExportKind::geotiff);
    const QImage image = surfaceimage(picture->surface);
    const bool written = kind == ExportKind::geotiff ? writegeotiff(path, image, picture->data)
                                                     : writekml(path, image, picture->data);
    if (!written)
        telluser(path + " impossible à enregistrer" + reason(picture->data, kind));
    else
        hooks.setlabel2(namesof(files) +
                        (files.size() == 1 ? " a été enregistré" : " ont été enregistrés"));
}
