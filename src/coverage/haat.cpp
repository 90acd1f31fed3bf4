#include "coverage/haat.h"

#include "base/clock.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "coordinates/positiontexts.h"
#include "radio/link.h"

#include <cmath>
#include <optional>

namespace
{
constexpr double milekm = 1.609344;
/// Length of a degree of latitude on the report's flat earth, km.
constexpr double degreekm = 111;
/// With so many known points, or fewer, there is no mean.
constexpr int fewpoints = 5;

constexpr const char* lineend = "\r\n";

std::string dashes()
{
    return std::string(60, '-') + lineend;
}

std::string metres(float value)
{
    return generalnumber(value) + "m";
}

std::string heading(const NetworkTables& tables, int unit, int net)
{
    const Unit& station = tables.unit(unit);
    const auto& netname = tables.net(net).name.bytes;
    float lon = station.lon;
    float lat = station.lat;
    std::string text = std::string("HAAT, hauteur au dessus du sol moyen") + lineend;
    text += "Rapport généré à " + timetext() + ", le " + datetext() + lineend + dashes();
    text += "Pour " + station.name.text() + lineend;
    text += dmslat(lat) + ", " + dmslon(lon) + lineend;
    text += locator(station.lon, station.lat) + lineend;
    text += "Altitude du sol: " + metres(station.elevation) + lineend + dashes();
    text += fromansi({netname.data(), netname.size()}) + lineend;
    text += "Hauteur de l'antenne au desssus du sol: " + metres(antheight(tables, net, unit)) +
            lineend + dashes();
    return text + "Azt(°)\tD(km)\tAltitude du sol(m)" + lineend;
}

/// Sum of the known ground heights, and their number.
struct Ground {
    double sum = 0;
    int count = 0;
};

/// One line of the table.
std::string groundrow(const MapGrid& map, const Unit& station, int azimuth_deg, double km,
                      Ground& ground)
{
    const double angle = azimuth_deg * degree;
    const double lat = double{station.lat} + km / degreekm * std::cos(angle);
    const double lon = double{station.lon} +
                       km / degreekm / std::cos(double{station.lat} * degree) * std::sin(angle);
    float x = 0;
    float y = 0;
    float elevation = 0;
    std::string text = "?";
    if (maplookup(map, static_cast<float>(lon), static_cast<float>(lat), x, y, elevation)) {
        ground.sum += double{elevation};
        ++ground.count;
        text = formatnumber("0000.0", double{elevation});
    }
    return formatnumber("000", azimuth_deg) + "\t" + formatnumber("00.00", km) + "\t" + text +
           lineend;
}

bool isslot(int number, int most)
{
    return number >= 1 && number <= most;
}
} // namespace

HaatReport haattext(const NetworkTables& tables, const MapGrid& map, int unit, int net)
{
    HaatReport report;
    if (!isslot(unit, MAXUNIT) || !isslot(net, MAXNET))
        return report;
    const Unit& station = tables.unit(unit);
    report.text = heading(tables, unit, net);
    if (!(std::abs(station.lat) < 90))
        return report;
    Ground ground;
    for (int azimuth_deg = 0; azimuth_deg < 360; azimuth_deg += 45)
        for (int miles = 2; miles <= 10; miles += 2)
            report.text += groundrow(map, station, azimuth_deg, miles * milekm, ground);

    const float antenna = antheight(tables, net, unit) + station.elevation;
    std::string meantext = "?";
    std::string haat = "?";
    if (ground.count > fewpoints) {
        const double mean = ground.sum / ground.count;
        meantext = metres(static_cast<float>(mean));
        haat = metres(static_cast<float>(double{antenna} - mean));
    }
    report.text += dashes() + "Altitude de l'antenne  : " + metres(antenna) + lineend;
    report.text += "Altitude moyenne du sol: " + meantext + lineend + dashes();
    report.text += "HAAT: " + haat + lineend;
    report.complete = true;
    return report;
}

void haatreport(int unit, int net)
{
    const HaatReport report = haattext(network, mapgrid, unit, net);
    const std::string path = targetpath(userfolder() + "Haat.txt");
    const bool begun = !report.text.empty(); // without a net the last report stays
    if (!begun || !writefile(path, toansi(report.text)) || !report.complete) {
        telluser("Unable to create Haat report");
        return;
    }
    hooks.viewtext(path);
}
