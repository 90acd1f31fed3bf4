#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/output.h"
#include "radio/analysis.h"
#include "radio/exportprofile.h"

#include <fmt/format.h>
#include <memory>
#include <string>

namespace
{
struct LinkArguments {
    std::string file;
    std::string stationA;
    std::string stationB;
    std::string net;
    NetworkOptions options;
};

/// A link of the process's network, by slots; net 0 is none.
struct LinkSlots {
    int a;
    int b;
    int net;
};

LinkSlots openlink(const LinkArguments& arguments)
{
    prepare(arguments.options.common);
    opennetwork(arguments.file, arguments.options);
    return {stationslot(arguments.stationA), stationslot(arguments.stationB),
            netslot(arguments.net)};
}

[[noreturn]] void noprofile(const LinkSlots& link)
{
    throw Failure(fmt::format("no profile between stations {} and {}", link.a, link.b),
                  "one lies outside the map, or both in the same cell");
}

void addmodel(const Link& link, double margin, KeyValues& output)
{
    const LRRecord& record = link.record;
    output.add("gain12", link.gain12);
    output.add("gain21", link.gain21);
    output.add("loss", double{record.loss});
    output.add("lfree", double{record.lfree});
    output.add("lobst", double{record.lobst});
    output.add("lurban", double{record.lurban});
    output.add("dl1", double{record.dl1});
    output.add("dl2", double{record.dl2});
    output.add("the1", double{record.the1});
    output.add("the2", double{record.the2});
    output.add("gme", double{record.gme});
    output.add("los", record.los);
    output.add("scatter", record.scatter);
    output.add("margin", margin);
}

/// The keys of `addmodel`, without values: there is no net.
void addnomodel(KeyValues& output)
{
    for (const char* key : {"gain12", "gain21", "loss", "lfree", "lobst", "lurban", "dl1", "dl2",
                            "the1", "the2", "gme", "los", "scatter", "margin"})
        output.addnone(key);
}

void runlink(const LinkArguments& arguments)
{
    const LinkSlots slots = openlink(arguments);
    const AnalysisOptions options{.interference = arguments.options.mode()};
    Link link;
    LinkAnalysis analysis;
    if (!analyselink(network, mapgrid, slots.a, slots.b, slots.net, options, link, analysis))
        noprofile(slots);
    KeyValues output;
    output.add("n", link.profile.intervals());
    output.add("distkm", link.profile.distkm);
    output.add("azim", link.profile.azim);
    output.add("pathmin", link.profile.pathmin);
    output.add("pathmax", link.profile.pathmax);
    if (slots.net > 0)
        addmodel(link, analysis.margin, output);
    else
        addnomodel(output);
    output.add("minclear", analysis.minclear);
    output.add("minclearkm", analysis.minclearkm);
    for (std::size_t i = 0; i < analysis.linktext.size(); ++i)
        output.add(fmt::format("linktext{}", i + 1), analysis.linktext[i]);
    printresult(output.text(arguments.options.json));
}

/// The bare profile with the losses on it, without the bulge that the analysis adds.
void runlosses(const LinkArguments& arguments)
{
    const LinkSlots slots = openlink(arguments);
    const Unit& left = unitat(slots.a);
    const Unit& right = unitat(slots.b);
    Link link;
    const int n = cutprofile(mapgrid, left, right, link.profile);
    if (n < 1)
        noprofile(slots);
    setends(left, right, link.profile);
    if (slots.net > 0) {
        setlink(network, slots.a, slots.b, slots.net, link);
        linkmargin(netat(slots.net), false, arguments.options.mode(), link);
    }
    NumberTable table({"i", "distance_m", "elevation_m", "loss_db"});
    for (int i = 0; i <= n; ++i) {
        // Elevations are whole numbers or the stations' singles.
        const float elevation = static_cast<float>(link.profile.sample(i));
        table.add(
            {cell(i), cell(i * link.profile.spacing_m), cell(elevation), cell(link.lossat(i))});
    }
    printresult(table.text(arguments.options.json));
}

struct ExportArguments : LinkArguments {
    std::string output;
};

void runexport(const ExportArguments& arguments)
{
    const LinkSlots slots = openlink(arguments);
    const AnalysisOptions options{.interference = arguments.options.mode()};
    std::string why;
    const auto bytes = profilefile(network, mapgrid, slots.a, slots.b, slots.net, options, &why);
    if (!bytes)
        throw Failure(arguments.output, why);
    writestream(arguments.output, *bytes);
}

/// Adds the arguments that name a link to a command's own.
template <typename Arguments = LinkArguments>
std::shared_ptr<Arguments> linkarguments(CLI::App& parser)
{
    auto arguments = std::make_shared<Arguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    parser.add_option("A", arguments->stationA, "Left station, by number or name")->required();
    parser.add_option("B", arguments->stationB, "Right station")->required();
    parser.add_option("N", arguments->net, "Net, by number or name; 0: none")->required();
    addoptions(parser, arguments->options);
    return arguments;
}
} // namespace

std::function<void()> setuplink(CLI::App& parser)
{
    const auto arguments = linkarguments(parser);
    addjson(parser, arguments->options.json);
    parser.footer("Prints key=value lines; without a net, those of the model have no value.");
    return [arguments] { runlink(*arguments); };
}

std::function<void()> setuplosses(CLI::App& parser)
{
    const auto arguments = linkarguments(parser);
    addjson(parser, arguments->options.json);
    parser.footer("Prints CSV: i,distance_m,elevation_m,loss_db, a row per sample of the profile.\n"
                  "The elevations are bare terrain; a loss of 0 is none.");
    return [arguments] { runlosses(*arguments); };
}

std::function<void()> setupexport(CLI::App& parser)
{
    const auto arguments = linkarguments<ExportArguments>(parser);
    parser.add_option("-o,--output", arguments->output, "Text file to write")
        ->required()
        ->type_name("FILE");
    parser.footer("Writes the profile in Windows-1252 with CR LF, bare terrain with the stations'\n"
                  "elevations at its ends. Two intervals or less are too few.");
    return [arguments] { runexport(*arguments); };
}
