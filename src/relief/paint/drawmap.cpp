#include "relief/paint/drawmap.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/parallel.h"
#include "base/paths.h"
#include "engine/draw/fastdraw.h"
#include "relief/colours.h"
#include "relief/paint/cities.h"
#include "relief/paint/legend.h"
#include "relief/picturesettings.h"
#include "terrain/mapgrid.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <memory>

namespace
{

constexpr int tileside = 256;
constexpr std::size_t bandrows = 64; // least number of rows worth a thread

/// What all tiles of a drawing share.
struct Drawing {
    DrawValues values;
    ColourScale scale;
    std::shared_ptr<QImage> sheet; ///< the finished tiles
    std::uint32_t* pixels;         ///< of the sheet
    int stride;                    ///< pixels from row to row
};

/// Last index of a tile that begins at `first`; the last tile takes the map's last row or column
/// with it.
int tileend(int first, int upper)
{
    return first + tileside >= upper ? upper : first + tileside - 1;
}

void painttile(const Drawing& drawing, const QRect& tile)
{
    const GridView grid{mapgrid.samples.data(), mapgrid.width, mapgrid.height};
    const auto rows = static_cast<std::size_t>(tile.height());
    parallelblocks(rows, bandrows, [&](std::size_t first, std::size_t last) {
        const int y0 = tile.top() + static_cast<int>(first);
        const int y1 = tile.top() + static_cast<int>(last) - 1;
        std::uint32_t* corner =
            drawing.pixels + static_cast<std::ptrdiff_t>(y0) * drawing.stride + tile.left();
        fastdraw(grid, drawing.values, drawing.scale,
                 {corner, drawing.stride, tile.left(), y0, tile.right(), y1});
    });
}

/// Draws all tiles, row of tiles by row of tiles, until the user stops.
void drawtiles(OpenPicture& picture, const Drawing& drawing)
{
    const int upperx = mapgrid.upperx();
    const int uppery = mapgrid.uppery();
    for (int y = 0; (y == 0 || y < uppery) && opbusy != 0; y += tileside)
        for (int x = 0; (x == 0 || x < upperx) && opbusy != 0; x += tileside) {
            const QRect tile(QPoint(x, y), QPoint(tileend(x, upperx), tileend(y, uppery)));
            painttile(drawing, tile);
            picture.surface.over.emplace_back([tile, sheet = drawing.sheet](QPainter& painter) {
                painter.drawImage(tile.topLeft(), *sheet, tile);
            });
            picturehooks.picturechanged(picture, tile);
            ++optiles;
            opstep(0);
        }
}

void takevalues(const PictureSettings& settings, Picture& data)
{
    const MapRecord& record = settings.record;
    data.lon = settings.maplon;
    data.lat = settings.maplat;
    data.Pictype = pictype::map;
    data.source = mapname;
    data.Mapmode = record.Mapmode;
    data.minx = record.minx;
    data.maxx = record.maxx;
    data.light = record.light;
    data.con = record.con;
    data.bri = record.bri;
    data.c1 = record.c1;
    data.c2 = record.c2;
    data.city = settings.cities != 0 ? 255 : 0;
    data.hmin = record.hmin;
    data.hmax = record.hmax;
    data.hmoy = record.hmoy;
}

Drawing makedrawing(const MapRecord& record)
{
    Drawing drawing;
    drawing.values = drawvalues(mapgrid, record);
    drawing.scale = drawscale(colours, drawing.values);
    drawing.sheet = std::make_shared<QImage>(mapgrid.width, mapgrid.height, QImage::Format_RGB32);
    drawing.pixels = reinterpret_cast<std::uint32_t*>(drawing.sheet->bits());
    drawing.stride = static_cast<int>(drawing.sheet->bytesPerLine() / 4);
    return drawing;
}

/// False when there is no memory for the drawing.
bool drawground(OpenPicture& picture, const MapRecord& record)
{
    if (mapgrid.samples.empty())
        return true;
    if (colours.colortable[10] == 0)
        setcolors();
    const Drawing drawing = makedrawing(record);
    if (drawing.pixels == nullptr || picture.surface.kept.isNull())
        return false;
    drawtiles(picture, drawing);
    return true;
}

/// Ends a drawing whose picture was closed before it began.
void stopdrawing(bool commit)
{
    opbusy = 0;
    if (commit)
        endop();
}

} // namespace

Job drawmapjob(const MapGrid& map)
{
    const auto tiles = [](int upper) {
        return std::floor(static_cast<float>(upper) / tileside) + 1;
    };
    return {.number = 1,
            .text = "Dessin de l'image 2D...",
            .total = tiles(map.upperx()) * tiles(map.uppery()),
            .value = [](float step) { return static_cast<float>(optiles) + step / tileside; }};
}

/// The layers over the ground, each kept before the next where they are to be kept.
static void drawlayers(OpenPicture& picture, const PictureSettings& settings, bool commit)
{
    if (settings.cities != 0)
        drawcities(picture, commit, "cities.dat");
    const bool rainbow = settings.record.Mapmode == mapmode::rainbow;
    if (rainbow && settings.legend && colours.showlegend != 0) {
        drawlegend(picture);
        if (commit)
            keep(picture.surface);
    }
}

OpenPicture* drawmap(OpenPicture* picture, bool commit)
{
    return drawmap(picture, settingsof(mapgrid, nullptr), commit);
}

OpenPicture* drawmap(OpenPicture* picture, const PictureSettings& settings, bool commit)
{
    if (picture == nullptr)
        picture = openpic("", -1);
    currentpic = picture;
    picture->enabled = false;
    if (commit)
        clearsurface(picture->surface);
    hidemarks(picture->marks);
    picture->marks.stations = {};
    const QSize size(std::max(mapgrid.width, 1), std::max(mapgrid.height, 1));
    if (picture->surface.kept.size() != size)
        resizepicture(*picture, size.width(), size.height());
    beginop(drawmapjob(mapgrid));
    if (!stillopen(picture)) {
        stopdrawing(commit);
        return nullptr;
    }
    const bool drawn = drawground(*picture, settings.record);
    if (drawn && opbusy != 0) {
        if (commit)
            keep(picture->surface);
        takevalues(settings, picture->data);
        drawlayers(*picture, settings, commit);
    }
    picture->enabled = true;
    picturehooks.picturechanged(*picture, {});
    if (commit)
        endop();
    return picture;
}

/// Draws the map that was built into its picture, by the picture's caption; opens one for it.
static void drawbuiltmap(const std::string& name)
{
    const auto belongs = [file = lowercase(nameof(name))](const auto& picture) {
        return lowercase(nameof(picture->caption)) == file;
    };
    const auto found = std::find_if(openpictures.begin(), openpictures.end(), belongs);
    drawmap(found != openpictures.end() ? found->get() : openpic(name, -1), true);
}

void connectrelief()
{
    hooks.drawmap = drawbuiltmap;
    hooks.mapchanged = setcolors;
}
