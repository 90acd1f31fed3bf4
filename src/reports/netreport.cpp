#include "reports/netreport.h"

#include "base/busy.h"
#include "base/clock.h"
#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/session.h"
#include "coordinates/positiontexts.h"
#include "radio/link.h"

#include <array>
#include <cmath>
#include <vector>

namespace
{
constexpr std::int32_t heading = 0x800000; ///< dark blue
constexpr std::int32_t good = 0x008500;    ///< green
constexpr std::int32_t bad = 0x0000C8;     ///< red
constexpr std::int32_t detail = 0x505050;  ///< grey

/// Columns of the matrix.
constexpr int numbercolumn = 28;
constexpr int cellwidth = 3;
/// Quality of a direct link without margin.
constexpr int nomargin = 50;
constexpr int namewidth = 20;
/// The details, counted from behind the last cell, and the room of a system's name.
constexpr int rolecolumn = 29;
constexpr int antennacolumn = 42;
constexpr int systemcolumn = 52;
constexpr int systemwidth = 30;

/// Captions by the values of a net's fields.
constexpr std::array polarisations{"Horizontale", "Verticale"};
constexpr std::array modes{"Essai", "Accidentel", "Mobile", "Diffusion"};
constexpr std::array climates{
    "Équatorial",          "Continental sous-tropical",  "Maritime sous-tropical",  "Désert",
    "Continental tempéré", "Maritime tempéré sur terre", "Maritime tempéré sur mer"};

/// Caption of a value held within those there are.
template <std::size_t N>
const char* caption(const std::array<const char*, N>& captions, int lowest, int value)
{
    const int index = smin(smax(value - lowest, 0), static_cast<int>(N) - 1);
    return captions[static_cast<std::size_t>(index)];
}

std::string firstcharacters(const std::string& text, int count)
{
    std::size_t end = 0;
    while (end < text.size() && charactercount(text.substr(0, end + 1)) <= count)
        ++end;
    return text.substr(0, end);
}

std::string positiontext(float lon, float lat)
{
    float shownlon = lon;
    float shownlat = lat;
    return dmslon(shownlon) + " " + dmslat(shownlat) + " " + locator(lon, lat);
}

bool onmap(const MapGrid& map, const Unit& station)
{
    float x = 0;
    float y = 0;
    float elevation = 0;
    return maplookup(map, station.lon, station.lat, x, y, elevation);
}

void writesection(ReportWriter& out, const std::string& title)
{
    const std::string dashes(75, '-');
    out.line(dashes);
    out.line(title);
    out.line(dashes);
}

void writegeneral(ReportWriter& out, const ReportSources& sources)
{
    const MapGrid& map = *sources.map;
    const MapRecord& record = map.record;
    out.endline();
    out.line(apptitle);
    out.line("Rapport généré le " + datetext() + " à " + timetext());
    writesection(out, "Généralités");
    out.line("Fichier réseau " + uppercase(sources.netfile));
    out.line("Fichier carte  " + uppercase(sources.mapfile));
    out.line("  Centre       " + positiontext(record.maplon0, record.maplat0));
    const double size_km = double{record.mapsize};
    const double width_km =
        size_km * map.width / map.height / std::cos(double{record.maplat0} * degree);
    out.line("  Dimension    " + formatnumber("0.0 km ", size_km) + "N-S, " +
             formatnumber("0.00 ", width_km) + "E-O");
}

void writestations(ReportWriter& out, const ReportSources& sources)
{
    writesection(out, "Unités actives");
    out.write("Nom");
    out.writeat(21, "Position");
    out.writeat(66, "Altitude");
    out.endline();
    for (const Unit& station : std::span(sources.tables->units).subspan(1)) {
        if (station.enabled == 0 || !onmap(*sources.map, station))
            continue;
        out.write(station.name.text());
        out.writeat(21, positiontext(station.lon, station.lat));
        out.writeat(66, formatnumber("0.0m", double{station.elevation}));
        out.endline();
    }
}

void writesystems(ReportWriter& out, const ReportSources& sources)
{
    writesection(out, "Systèmes");
    out.write("Nom");
    out.writeat(21, "Puiss. Tx");
    out.writeat(32, "Pertes");
    out.writeat(43, "Gain ant.");
    out.writeat(54, "Seuil Rx");
    out.writeat(65, "Haut. ant.");
    out.endline();
    for (const RadioSystem& system : std::span(sources.tables->systems).subspan(1)) {
        out.write(firstcharacters(system.name.text(), namewidth));
        out.writeat(21, formatnumber("0.000W", double{system.power}));
        out.writeat(32, formatnumber("0.0dB", double{system.lineloss}));
        out.writeat(43, formatnumber("0.0dB", double{system.gain}));
        out.writeat(54, formatnumber("0.0dBm", double{system.threshold}));
        out.writeat(65, formatnumber("0.0m", double{system.height}));
        out.endline();
    }
}

/// One net as the report writes it.
struct ReportedNet {
    const ReportSources* sources;
    int number;
    const Net* net;
    RoleNames names;
    std::vector<int> members; ///< enabled stations that are members
    ReportScale scale;

    std::size_t from = 1;  ///< first member that has a column in this block of the matrix
    std::size_t count = 0; ///< number of such columns
    bool details = true;   ///< this block shows role, antenna and system

    double freq_mhz() const { return (double{net->fmin} + double{net->fmax}) * 0.5; }
    /// Column of a member's cell, k from 1.
    int cellcolumn(std::size_t k) const
    {
        return cellwidth * static_cast<int>(k - from + 1) + numbercolumn;
    }
    /// Column behind the last cell, from which the details are counted.
    int lastcolumn() const { return cellwidth * (static_cast<int>(count) + 1); }
    /// Column of the last character of the details.
    int width() const { return lastcolumn() + systemcolumn + systemwidth - 1; }
};

/// The blocks of a net's matrix that fit on a page: members side by side, and the details behind
/// the last ones or in a block of their own.
std::vector<ReportedNet> matrixblocks(const ReportedNet& whole, int columns)
{
    std::vector<ReportedNet> blocks;
    const std::size_t members = whole.members.size();
    const int room = (columns - numbercolumn - 1) / cellwidth;
    const std::size_t most = columns > 0 ? static_cast<std::size_t>(smax(room, 1)) : members;
    for (std::size_t from = 1; from <= members; from += most) {
        blocks.push_back(whole);
        blocks.back().from = from;
        blocks.back().count = smin(most, members - from + 1);
        blocks.back().details = false;
    }
    ReportedNet& last = blocks.back();
    if (columns > 0 && last.width() > columns) {
        blocks.push_back(whole);
        blocks.back().count = 0;
    } else {
        last.details = true;
    }
    return blocks;
}

std::vector<int> enabledmembers(const NetworkTables& tables, const Net& net)
{
    std::vector<int> members;
    for (int unit = 1; unit <= MAXUNIT; ++unit)
        if (tables.unit(unit).enabled != 0 && net.ismember(unit))
            members.push_back(unit);
    return members;
}

void writenetheading(ReportWriter& out, const ReportedNet& reported)
{
    const Net& net = *reported.net;
    out.endline();
    out.line(net.name.text());
    out.line(std::string("Topologie ") + reported.names.adjective);
    out.write(formatnumber("0.0 MHz", double{net.fmin}));
    if (net.fmax != net.fmin)
        out.write(" to " + formatnumber("0.0 MHz", double{net.fmax}));
    if (reported.sources->interference)
        out.write(" (mode interférence <optimiste>)");
    out.endline();
}

void writepropagation(ReportWriter& out, const Net& net)
{
    out.line(std::string("Polarisation ") + caption(polarisations, 0, net.polarisation));
    // The urban factor is part of the word, so that such a net shows the last mode.
    out.line(std::string("Mode statistique ") + caption(modes, 0, net.statmode) + ":");
    out.line(generalnumber(net.ptime) + "% du temps, " + generalnumber(net.plocation) +
             "% des locations, " + generalnumber(net.psituation) + "% des situations");
    out.line("Refractivité= " + generalnumber(net.refractivity) +
             " N-units, conductivité= " + generalnumber(net.conductivity) +
             " S/m, permittivité= " + generalnumber(net.permittivity));
    out.line(std::string("Climat ") + caption(climates, 1, net.climate));
}

void writematrixheading(ReportWriter& out, const ReportedNet& reported)
{
    out.endline(2);
    out.write("Participants:");
    out.writeat(numbercolumn, "#");
    for (std::size_t k = reported.from; k < reported.from + reported.count; ++k)
        out.writeat(reported.cellcolumn(k), formatnumber("00", static_cast<double>(k)), heading);
    if (!reported.details)
        return;
    out.writeat(reported.lastcolumn() + rolecolumn, "Rôle:");
    out.writeat(reported.lastcolumn() + antennacolumn, "Antenne:");
    out.writeat(reported.lastcolumn() + systemcolumn, "Système:");
}

void writecell(ReportWriter& out, const ReportedNet& reported, std::size_t k, int a, int b)
{
    const QualityTable& table = *reported.sources->quality;
    const int q = table.at(reported.number, smin(a, b), smax(a, b));
    if (q == 0)
        return;
    const int column = reported.cellcolumn(k);
    if (reported.scale == ReportScale::retransmissions && reported.net->kind() != Topology::star) {
        const int reach = table.at(reported.number, smax(a, b), smin(a, b));
        out.writeat(column, formatnumber("00", reach), reach != 0 ? good : bad);
        return;
    }
    std::string text = formatnumber("00", q);
    if (reported.scale == ReportScale::sunits) {
        const int s =
            sunits(static_cast<float>(q - nomargin), static_cast<float>(reported.freq_mhz()));
        text = s < 10 ? formatnumber("0", s) + "S" : formatnumber("00", s);
    }
    out.writeat(column, text, q >= nomargin ? good : bad);
}

/// Role, antenna and system of a member.
void writedetails(ReportWriter& out, const ReportedNet& reported, int unit)
{
    const NetworkTables& tables = *reported.sources->tables;
    const int role = reported.net->role(unit);
    const int slot = reported.net->systemof(unit);
    if (role < static_cast<int>(reported.names.roles.size()))
        out.writeat(reported.lastcolumn() + rolecolumn,
                    reported.names.roles[static_cast<std::size_t>(role)], detail);
    out.writeat(reported.lastcolumn() + antennacolumn,
                formatnumber("0.0m", double{antheight(tables, reported.number, unit)}), detail);
    if (slot >= 1 && slot <= MAXSYSTEM)
        out.writeat(reported.lastcolumn() + systemcolumn, tables.system(slot).name.text(), detail);
}

void writemember(ReportWriter& out, const ReportedNet& reported, std::size_t k)
{
    const NetworkTables& tables = *reported.sources->tables;
    const int unit = reported.members[k - 1];
    out.endline();
    out.write(firstcharacters(tables.unit(unit).name.text(), namewidth));
    out.writeat(numbercolumn, formatnumber("00", static_cast<double>(k)));
    for (std::size_t m = reported.from; m < reported.from + reported.count; ++m)
        if (m != k)
            writecell(out, reported, m, unit, reported.members[m - 1]);
    if (reported.details)
        writedetails(out, reported, unit);
}

const char* legend(ReportScale scale)
{
    switch (scale) {
    case ReportScale::direct:
        return "Qualité = 50 + marge de signal (dB)";
    case ReportScale::retransmissions:
        return "Qualité = 50 - nombre de retransmissions";
    case ReportScale::sunits:
        break;
    }
    return "Qualité = S-units";
}

void writenet(ReportWriter& out, const ReportedNet& reported, ReportTarget target, int columns)
{
    writenetheading(out, reported);
    if (target != ReportTarget::screen)
        writepropagation(out, *reported.net);
    for (const ReportedNet& block : matrixblocks(reported, columns)) {
        writematrixheading(out, block);
        for (std::size_t k = 1; k <= block.members.size(); ++k)
            writemember(out, block, k);
    }
    out.endline(2);
    out.writeat(numbercolumn, legend(reported.scale));
    out.endline();
}
} // namespace

ReportLines netreportlines(const ReportSources& sources, int first, int last, ReportScale scale,
                           ReportTarget target, int columns)
{
    ReportWriter out;
    if (first < 1 || last > MAXNET)
        return out.lines();
    const NetworkTables& tables = *sources.tables;
    if (first != last) {
        writegeneral(out, sources);
        writestations(out, sources);
        writesystems(out, sources);
        writesection(out, "Réseaux actifs");
    }
    for (int n = first; n <= last; ++n) {
        const Net& net = tables.net(n);
        ReportedNet reported{.sources = &sources,
                             .number = n,
                             .net = &net,
                             .names = rolenames(net.topology & 255),
                             .members = enabledmembers(tables, net),
                             .scale = scale};
        if (!reported.members.empty())
            writenet(out, reported, target, columns);
    }
    return out.lines();
}

ReportSources reportsources()
{
    return {&network, &mapgrid, &quality, session.netfile, mapname, interf == 1};
}

void netreport(int first, int last, ReportScale scale)
{
    if (first < 1 || last > MAXNET)
        return;
    const Busy busy;
    hooks.pumpevents();
    const ReportLines lines =
        netreportlines(reportsources(), first, last, scale, ReportTarget::file);
    const std::string path = targetpath(userfolder() + "report.txt");
    if (writefile(path, toansi(reporttext(lines))))
        hooks.viewtext(path);
}
