#include "pictures/paint/openpictures.h"

#include "base/busy.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "pictures/paint/picturefile.h"
#include "pictures/sidecar.h"
#include "terrain/mapgrid.h"

#include <algorithm>
#include <optional>

std::vector<std::unique_ptr<OpenPicture>> openpictures;
OpenPicture* currentpic = nullptr;
int picseq = 0;
PictureHooks picturehooks;

namespace
{

std::string captionof(const std::string& name)
{
    return "..\\" + nameof(name);
}

/// The name under which a raster is found: as given, beside the network, in the program's folder.
std::optional<std::string> locate(const std::string& name)
{
    if (findfile(name))
        return name;
    const std::string file = nameof(name);
    if (file.empty())
        return std::nullopt;
    std::string beside = pathof(session.netfile) + file;
    if (findfile(beside))
        return beside;
    return findprogramfile(file);
}

OpenPicture* findopen(const std::string& name)
{
    for (const auto& picture : openpictures)
        if (!picture->data.isworld() && keptname(picture->data.Filename) == name)
            return picture.get();
    return nullptr;
}

OpenPicture& addnew()
{
    openpictures.push_back(std::make_unique<OpenPicture>());
    openpictures.back()->data.source = "Image utilisateur";
    return *openpictures.back();
}

/// The raster of a file; a null one, and a word in the status line, where it is none.
QImage rasterof(const std::string& name)
{
    const auto file = findfile(name);
    QImage raster = file ? readraster(*file) : QImage();
    if (raster.isNull())
        hooks.setlabel2(nameof(name) + " : image illisible");
    return raster;
}

/// Takes the raster of a file and what lies beside it.
void loadfiles(OpenPicture& picture, const std::string& name, const QImage& raster)
{
    resizepicture(picture, raster.width(), raster.height());
    picture.surface.kept = raster;
    if (picture.data.Pictype == pictype::fourcorners)
        picture.data.Pictype = pictype::plain;
    readcompanion(name, picture.data);
}

/// Says in the status line how the writing of a file has ended, and passes it on.
bool tellwritten(const std::string& name, bool written)
{
    hooks.setlabel2(nameof(name) + (written ? " a été enregistrée" + lostnote()
                                            : std::string(" impossible à enregistrer")));
    return written;
}

/// Saves the raster under a name that says .bmp; false when it couldn't be written.
bool saveraster(OpenPicture& picture, const std::string& name)
{
    const Busy busy;
    return tellwritten(name, writebmp(targetpath(name), surfaceimage(picture.surface)));
}

bool agreed(const std::string& text)
{
    return hooks.askuser({text, Question::Buttons::yesno, Question::Icon::question}) == Answer::yes;
}

} // namespace

OpenPicture* openpic(const std::string& given, int requested)
{
    std::string name = keptname(unquoted(given));
    const bool untitled = name.empty();
    if (!untitled) {
        const auto found = locate(name);
        if (!found && requested > -1)
            return nullptr;
        name = found ? keptname(fullpath(*found)) : name;
    }
    const Busy busy;
    if (untitled)
        name = "Image" + std::to_string(++picseq) + ".bmp";
    OpenPicture* existing = untitled ? nullptr : findopen(name);
    const bool drawn = requested <= -1 || untitled || (existing != nullptr && existing->blank);
    const QImage raster = drawn ? QImage() : rasterof(name);
    if (!drawn && raster.isNull())
        return nullptr;
    OpenPicture& picture = existing != nullptr ? *existing : addnew();
    picture.blank = picture.blank || untitled;
    picture.data.Pictype = static_cast<std::int16_t>(requested);
    picture.data.Filename = name;
    picture.caption = captionof(name);
    picture.data.lon.fill(0);
    picture.data.lat.fill(0);
    if (drawn)
        resizepicture(picture, mapgrid.width, mapgrid.height);
    else
        loadfiles(picture, name, raster);
    if (picture.data.Pictype < 0)
        picture.data.Pictype = pictype::map;
    currentpic = &picture;
    picturehooks.showpicture(picture);
    return &picture;
}

bool savepic(OpenPicture& picture, const std::string& name)
{
    constexpr std::size_t extension = 3;
    const std::string ending =
        lowercase(name.substr(name.size() - std::min(name.size(), extension)));
    if (ending == "bmp") {
        if (!saveraster(picture, name))
            return false;
    } else if (!agreed(name +
                       " n'est pas en format BMP\nSauvegarder quand même le fichier .DAT?")) {
        return false;
    }
    picture.caption = captionof(name);
    picture.data.Filename = name;
    picture.blank = false;
    picturehooks.picturechanged(picture, {});
    const std::string sidecar = companion(name, "dat");
    if (findfile(sidecar) && !agreed("Écraser " + sidecar + "?"))
        return true; // the picture is saved; its place is the one that was there
    const Busy busy;
    return tellwritten(sidecar, writefile(targetpath(sidecar), sidecartext(picture.data)));
}

bool stillopen(const OpenPicture* picture)
{
    return std::any_of(openpictures.begin(), openpictures.end(),
                       [picture](const auto& open) { return open.get() == picture; });
}

void closepicture(OpenPicture& picture)
{
    if (currentpic == &picture)
        currentpic = nullptr;
    picturehooks.closewindow(picture);
    std::erase_if(openpictures, [&picture](const auto& open) { return open.get() == &picture; });
}

void resizepicture(OpenPicture& picture, int width, int height)
{
    resizesurface(picture.surface, width, height);
    picture.data.scalewidth = picture.surface.width();
    picture.data.scaleheight = picture.surface.height();
    picture.marks = {};
    picturehooks.fitpic(picture);
}

std::vector<std::string> picturenames()
{
    std::vector<std::string> names;
    for (const auto& picture : openpictures)
        if (!picture->data.isworld())
            names.push_back(keptname(picture->data.Filename));
    return names;
}

void connectpictures()
{
    hooks.openpicture = [](const std::string& name, int requested) { openpic(name, requested); };
    hooks.openpictures = picturenames;
    hooks.placepicture = [](const std::string& name, const float* lon, const float* lat) {
        if (OpenPicture* picture = findopen(keptname(name))) {
            std::copy_n(lon, picture->data.lon.size(), picture->data.lon.begin());
            std::copy_n(lat, picture->data.lat.size(), picture->data.lat.begin());
        }
    };
}
