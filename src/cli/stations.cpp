#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/output.h"
#include "gis/gis.h"
#include "network/stationplan.h"
#include "reports/readstations.h"
#include "reports/writestations.h"

#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>
#include <memory>
#include <unistd.h>

namespace
{
struct StationArguments {
    std::string file, output, from, first;
    bool replace = false;
    NetworkOptions options;
};

/// Most that is read of standard input.
constexpr std::size_t moststream = std::size_t{1} << 28;

/// Bytes in a file of their own, for readers that want one; it goes with this.
class PassingFile
{
public:
    explicit PassingFile(const std::string& content) : name(tempdir() + "velmora-XXXXXX")
    {
        const int file = mkstemp(name.data());
        if (file < 0)
            throw Failure("standard input", "no temporary file can be made");
        close(file);
        std::string why;
        if (!writefile(name, content, &why)) {
            unlink(name.c_str());
            throw Failure("standard input", why);
        }
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;
    ~PassingFile() { unlink(name.c_str()); }
    const std::string& path() const { return name; }

private:
    std::string name;
};

/// Standard input has no name that tells its kind: a table begins with a letter or a quote.
StationReading readstream(StationRecords& records, std::string& why)
{
    const std::string content = readstandardinput(moststream);
    const std::string head = trimmed(std::string_view(content).substr(0, 64));
    const bool marked = head.starts_with('<') || head.starts_with('{') ||
                        head.find('\0') != std::string::npos || head.starts_with("PK");
    if (marked)
        return readstations(PassingFile(content).path(), records, why);
    return readstationtable(asbytes(content), records) ? StationReading::ok
                                                       : StationReading::nocolumns;
}

std::string refusal(StationReading reading, const std::string& why)
{
    switch (reading) {
    case StationReading::toolarge:
        return "holds too much";
    case StationReading::nocolumns:
        return "its first line must name the columns, lon and lat among them";
    case StationReading::nolibrary:
        return std::string("only CSV can be read: ") + nogislibrary;
    default:
        return why.empty() ? "cannot be read" : why;
    }
}

std::string faulttext(const StationRecord& record)
{
    switch (record.fault) {
    case StationFault::notpoint:
        return "a line or an area, no point";
    case StationFault::noposition:
        return "longitude or latitude is missing";
    case StationFault::nonumber:
        return "no number: " + record.detail;
    case StationFault::outside:
        return "outside the globe: " + record.detail;
    case StationFault::zero:
        return "0, 0 is no position";
    case StationFault::manyfields:
        return "more fields than the header names";
    case StationFault::openquote:
        return "a quote that nothing closes";
    case StationFault::none:
        break;
    }
    return "no free slot up to 50";
}

std::vector<std::string> remarks(const StationRecord& record, const PlannedStation& planned)
{
    if (planned.slot == 0)
        return {"not taken: " + faulttext(record)};
    std::vector<std::string> texts;
    if (planned.cut)
        texts.emplace_back("name cut to 20 characters");
    if (planned.replaced)
        texts.emplace_back("letters that a name cannot have became ?");
    if (planned.offmap)
        texts.emplace_back(record.elevation ? "outside the map, height from the file"
                                            : "outside the map and without a height, 0 m");
    if (record.badheight)
        texts.emplace_back("its height is no number, or absurd");
    return texts;
}

/// Says what is not taken and why, and what the user should know of the rest.
void tell(const std::string& name, const StationRecords& records, const StationPlan& plan)
{
    for (std::size_t i = 0; i < records.kept.size(); ++i) {
        const StationRecord& record = records.kept[i];
        const auto texts = remarks(record, plan.stations[i]);
        if (!texts.empty())
            remark(fmt::format("{}:{}: {}", name, record.row, record.name),
                   fmt::format("{}", fmt::join(texts, "; ")));
    }
    const std::size_t stations = std::min(records.usable, std::size_t{MAXUNIT});
    const std::size_t faulty = records.faulty + stations - records.kept.size();
    if (records.usable > stations)
        remark(name, fmt::format("{} more stations: no free slot", records.usable - stations));
    if (faulty > 0)
        remark(name, fmt::format("{} more records are no stations", faulty));
}

/// The network, and its map where it names one or the options do.
NetFile opentarget(const StationArguments& arguments)
{
    NetFile file = readnetwork(arguments.file, network);
    if (!arguments.options.map.empty())
        openmap(arguments.options.map);
    else if (!trimmed(file.mapname).empty())
        openmap(file.mapname);
    return file;
}

void takein(const StationArguments& arguments)
{
    if (arguments.output != standardstream && filekind(arguments.output) != FileKind::netfile)
        throw UsageError("-o: " + arguments.output + " is no .net file");
    const bool stream = arguments.from == standardstream;
    if (stream && (arguments.file == standardstream || arguments.options.map == standardstream))
        throw UsageError("only one of NET, --map and --from can be standard input");
    const NetFile file = opentarget(arguments);
    const int first = arguments.first.empty() ? 1 : stationslot(arguments.first);
    const std::string name = stream ? "standard input" : arguments.from;

    StationRecords records;
    std::string why;
    const StationReading reading =
        stream ? readstream(records, why) : readstations(arguments.from, records, why);
    if (reading != StationReading::ok)
        throw Failure(name, refusal(reading, why));
    const StationPlan plan = planstations(records, network, mapgrid, first, arguments.replace);
    tell(name, records, plan);
    if (plan.taken == 0)
        throw Failure(name, "no station was taken");
    takestations(plan, network);
    writestream(arguments.output, netbytes(network, file.mapname, file.pictures));
    KeyValues figures;
    figures.add("taken", static_cast<int>(plan.taken));
    figures.add("nottaken", static_cast<double>(plan.left));
    printfigures(figures.text(arguments.options.json), arguments.output == standardstream);
}

/// The rows of the CSV as objects.
std::string stationjson()
{
    const auto names = stationcolumnnames();
    std::string text = "[";
    for (int slot = 1; const auto& row : stationrows(network)) {
        KeyValues object;
        for (std::size_t i = 0; i < row.size(); ++i)
            if (names[i] == std::string_view("name"))
                object.add(names[i], row[i]);
            else
                object.add(names[i], leadingnumber(row[i]));
        text += (slot++ == 1 ? "\n" : ",\n") + trimmed(object.text(true));
    }
    return text + "\n]\n";
}

void giveout(const StationArguments& arguments)
{
    const bool file = !arguments.output.empty() && arguments.output != standardstream;
    const auto format = file ? stationformat(arguments.output) : StationFormat::csv;
    if (!format)
        throw UsageError("-o: " + arguments.output + " ends in none of .csv, .gpx, .kml, .geojson");
    std::vector<StationLink> links;
    if (takeslinks(*format)) {
        opennetwork(arguments.file, arguments.options);
        links = stationlinks(network, mapgrid, selection.linestyle, arguments.options.mode());
    } else {
        readnetwork(arguments.file, network);
    }
    std::string why;
    const auto bytes = arguments.options.json ? std::optional(stationjson())
                                              : stationbytes(*format, network, links, why);
    if (!bytes)
        throw Failure(arguments.output, why);
    writestream(file ? arguments.output : standardstream, *bytes);
}

void runstations(const StationArguments& arguments)
{
    if (arguments.options.json && arguments.from.empty() && !arguments.output.empty() &&
        arguments.output != standardstream)
        throw UsageError("--json prints: it goes without -o");
    prepare(arguments.options.common);
    if (arguments.from.empty())
        giveout(arguments);
    else
        takein(arguments);
}
} // namespace

std::function<void()> setupstations(CLI::App& parser)
{
    auto arguments = std::make_shared<StationArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    auto* output = parser.add_option("-o,--output", arguments->output,
                                     "Out: .csv, .gpx, .kml or .geojson; with --from the new .net");
    output->type_name("FILE");
    auto* from = parser.add_option("--from", arguments->from, "File whose stations are taken");
    from->type_name("FILE")->needs(output);
    parser.add_option("--first", arguments->first, "Slot from which on stations are taken")
        ->type_name("SLOT")
        ->needs(from);
    parser.add_flag("--replace", arguments->replace, "Take slots of placed stations, too")
        ->needs(from);
    addjson(parser, arguments->options.json);
    addoptions(parser, arguments->options);
    parser.footer(
        "Prints the placed stations as CSV, or writes them to FILE; KML and GeoJSON have the "
        "links\n"
        "of the active nets, too, as lines with class, distance_km and margin_db.\n"
        "With --from, reads a CSV (a header line; comma, semicolon or tab; decimal point or "
        "comma)\n"
        "or any vector file, puts its stations into the unplaced slots, and prints taken= and\n"
        "nottaken=; on standard error, what is not taken and why. Heights come from the map where\n"
        "it has them.");
    return [arguments] { runstations(*arguments); };
}
