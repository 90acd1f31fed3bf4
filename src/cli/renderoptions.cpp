#include "cli/renderoptions.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "cli/failure.h"
#include "cli/output.h"
#include "pictures/paint/export.h"
#include "pictures/paint/picturefile.h"
#include "relief/colours.h"
#include "terrain/mapgrid.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <system_error>

void addoptions(CLI::App& parser, RenderOptions& options, bool pictureneeded)
{
    parser.add_option("-o,--output", options.picture, "Picture to write")
        ->required(pictureneeded)
        ->type_name("PIC.bmp")
        ->check([](const std::string& name) {
            return lowercase(name).ends_with(".bmp") ? std::string() : "must end in .bmp";
        });
    parser.add_option("--geotiff", options.geotiff, "Write a georeferenced TIFF too")
        ->type_name("FILE");
    parser
        .add_option("--kml", options.kml,
                    "Write a KML ground overlay with its PNG, or a KMZ by the name's ending")
        ->type_name("FILE");
    parser
        .add_option("--mode", options.mode,
                    "0 grey relief, 1 bands of fixed heights, 2 bands from floor to ceiling,\n"
                    "3 X-ray, 4 X-ray inverted, 5 rainbow")
        ->check(CLI::Range(0, 5))
        ->type_name("M");
    parser.add_option("--contrast", options.contrast, "Strength of the relief, percent")
        ->check(CLI::Range(0.0, 100.0))
        ->type_name("C");
    parser.add_option("--brightness", options.brightness, "Light of level ground, percent")
        ->check(CLI::Range(0.0, 100.0))
        ->type_name("B");
    parser.add_option("--floor", options.floor, "Where colours begin, m")
        ->check(CLI::Range(-999.0, 9999.0))
        ->type_name("F");
    parser.add_option("--ceiling", options.ceiling, "Where colours end, m")
        ->check(CLI::Range(-999.0, 99999.0))
        ->type_name("C");
    parser.add_option("--light", options.light, "Azimuth of the light, degrees")
        ->check(CLI::Range(0.0, 360.0))
        ->type_name("A");
    parser.add_option("--contours", options.contours, "Contour lines: 10, 100 and 500 m")
        ->delimiter(',')
        ->check(CLI::IsMember({10, 100, 500}))
        ->type_name("LIST");
    parser.add_flag("--cities", options.cities, "Write the names of the cities of cities.dat");
    parser.add_flag("--legend", options.legend, "Draw the scale of the rainbow");
}

void applyoptions(const RenderOptions& options)
{
    MapRecord& record = mapgrid.record;
    record.Mapmode = options.mode.value_or(record.Mapmode);
    record.con = options.contrast.value_or(record.con);
    record.bri = options.brightness.value_or(record.bri);
    record.minx = options.floor.value_or(record.minx);
    record.maxx = options.ceiling.value_or(record.maxx);
    record.light = options.light.value_or(record.light);
    if (options.contours) {
        const auto wanted = [&options](int interval) {
            return std::count(options.contours->begin(), options.contours->end(), interval) > 0;
        };
        record.c1 = wanted(10) ? 1 : 0;
        record.c2 = static_cast<std::uint8_t>((wanted(100) ? 1 : 0) | (wanted(500) ? 2 : 0));
    }
    if (options.cities)
        mapgrid.cities = -1;
    setcolors();
    if (options.legend)
        colours.showlegend = 1;
}

// What the toolkit would remark about its missing display stays off standard error.
void startpainting()
{
    static int argc = 1;
    static std::string name = "velmora-cli";
    static std::array<char*, 2> argv{name.data(), nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static const QGuiApplication application(argc, argv.data());
    connectpictures();
    hooks.openpicture = [](const std::string&, int) {}; // the network's own pictures stay closed
}

/// All files that the options make.
static std::vector<std::string> filesof(const RenderOptions& options)
{
    std::vector<std::string> files;
    if (!options.picture.empty())
        files = {options.picture, options.picture.substr(0, options.picture.size() - 3) + "dat"};
    if (!options.geotiff.empty())
        files.push_back(options.geotiff);
    if (!options.kml.empty())
        for (const std::string& file : exportedfiles(options.kml))
            files.push_back(file);
    return files;
}

/// The same for all names of one file.
static std::string identity(const std::string& file)
{
    std::error_code error;
    const auto whole = std::filesystem::weakly_canonical(
        std::filesystem::absolute(targetpath(file), error), error);
    return lowercase(error ? file : whole.string());
}

void checkfiles(const RenderOptions& options)
{
    std::set<std::string> seen;
    for (const std::string& file : filesof(options))
        if (!seen.insert(identity(file)).second)
            throw UsageError(file + " would be written twice");
}

bool takesoutput(const RenderOptions& options)
{
    return options.geotiff == standardstream || options.kml == standardstream;
}

static void writekmlfile(const std::string& path, const QImage& image, const Picture& picture)
{
    std::string why;
    if (path != standardstream) {
        if (!writekml(path, image, picture, &why))
            throw Failure(path, why);
        return;
    }
    const auto bytes = kmzof("velmora", image, picture, why); // a stream holds no two files
    if (!bytes)
        throw Failure("standard output", why);
    writestream(path, *bytes);
}

void writefiles(const OpenPicture& picture, const RenderOptions& options, const QImage* alone)
{
    const QImage whole = surfaceimage(picture.surface);
    const QImage& shown = alone != nullptr ? *alone : whole;
    std::string why;
    if (!options.geotiff.empty()) {
        const auto bytes = geotiffof(shown, picture.data, why);
        if (!bytes)
            throw Failure(options.geotiff, why);
        writestream(options.geotiff, *bytes);
    }
    if (!options.kml.empty())
        writekmlfile(options.kml, shown, picture.data);
    if (!options.picture.empty() && !writepicture(options.picture, whole, picture.data, &why))
        throw Failure(options.picture, why);
}
