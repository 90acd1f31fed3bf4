#include "base/textcodec.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/output.h"
#include "coverage/haat.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "reports/netreport.h"

#include <memory>

namespace
{
/// A report in the form of its file, Windows-1252 with CR LF; without a file for the terminal.
void writetext(const std::string& path, std::string text)
{
    if (!path.empty()) {
        writestream(path, toansi(text));
        return;
    }
    std::erase(text, '\r');
    printresult(text);
}

struct ReportArguments {
    std::string file, output;
    NetworkOptions options;
    int first = 1;
    int last = MAXNET;
    int scale = 1;
};

void runreport(const ReportArguments& arguments)
{
    prepare(arguments.options.common);
    opennetwork(arguments.file, arguments.options);
    interf = arguments.options.mode();
    evalnets(true);
    writetext(
        arguments.output,
        reporttext(netreportlines(reportsources(), arguments.first, arguments.last,
                                  static_cast<ReportScale>(arguments.scale), ReportTarget::file)));
}

struct HaatArguments {
    std::string file, unit, net, output;
    NetworkOptions options;
};

void runhaat(const HaatArguments& arguments)
{
    prepare(arguments.options.common);
    opennetwork(arguments.file, arguments.options);
    const int net = netslot(arguments.net);
    if (net == 0)
        throw Failure("net 0", "the antenna's height needs a net");
    const HaatReport report = haattext(network, mapgrid, stationslot(arguments.unit), net);
    if (!report.complete)
        throw Failure("station " + arguments.unit, "no radials can be laid at a pole");
    writetext(arguments.output, report.text);
}
} // namespace

std::function<void()> setupreport(CLI::App& parser)
{
    auto arguments = std::make_shared<ReportArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    parser.add_option("--first", arguments->first, "First net of the report")
        ->check(CLI::Range(1, MAXNET))
        ->type_name("N");
    parser.add_option("--last", arguments->last, "Last net; one net alone has no general sections")
        ->check(CLI::Range(1, MAXNET))
        ->type_name("N");
    parser
        .add_option("--scale", arguments->scale,
                    "0 direct links in dB, 1 with retransmissions, 2 direct links in S-units")
        ->check(CLI::Range(0, 2))
        ->type_name("S");
    parser
        .add_option("-o,--output", arguments->output,
                    "Text file to write; without it, to standard output")
        ->type_name("FILE");
    addoptions(parser, arguments->options);
    parser.footer("Evaluates all nets and writes the report in Windows-1252 with CR LF;\n"
                  "without -o it is printed in UTF-8.");
    return [arguments] { runreport(*arguments); };
}

std::function<void()> setuphaat(CLI::App& parser)
{
    auto arguments = std::make_shared<HaatArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    parser.add_option("UNIT", arguments->unit, "Station, by number or name")->required();
    parser.add_option("N", arguments->net, "Net, by number or name")->required();
    parser
        .add_option("-o,--output", arguments->output,
                    "Text file to write; without it, to standard output")
        ->type_name("FILE");
    addoptions(parser, arguments->options);
    parser.footer(
        "Writes the height above average terrain in Windows-1252 with CR LF; without -o it\n"
        "is printed in UTF-8.");
    return [arguments] { runhaat(*arguments); };
}
