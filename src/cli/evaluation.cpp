#include "cli/command.h"
#include "cli/inputs.h"
#include "cli/output.h"
#include "radio/evaluate.h"
#include "radio/link.h"

#include <memory>
#include <string>

namespace
{
struct EvaluationArguments {
    std::string file;
    bool allnets = false;
    NetworkOptions options;
};

void evaluatefile(const EvaluationArguments& arguments)
{
    prepare(arguments.options.common);
    opennetwork(arguments.file, arguments.options);
    interf = arguments.options.mode();
    evalnets(arguments.allnets);
}

void runevaluate(const EvaluationArguments& arguments)
{
    evaluatefile(arguments);
    NumberTable table({"net", "a", "b", "quality", "reach"});
    for (int net = 1; net <= MAXNET; ++net) {
        for (int a = 1; a < MAXUNIT; ++a) {
            for (int b = a + 1; b <= MAXUNIT; ++b) {
                const int signal = quality.at(net, a, b);
                const int reach = quality.at(net, b, a);
                if (signal != 0 || reach != 0)
                    table.add({cell(net), cell(a), cell(b), cell(signal), cell(reach)});
            }
        }
    }
    printresult(table.text(arguments.options.json));
}

void runlines(const EvaluationArguments& arguments)
{
    evaluatefile(arguments);
    NumberTable table({"a", "b", "class"});
    for (int a = 1; a < MAXUNIT; ++a) {
        for (int b = a + 1; b <= MAXUNIT; ++b) {
            const int best = lineclass(network, quality, selection.linestyle, a, b);
            if (best > 0)
                table.add({cell(a), cell(b), cell(best)});
        }
    }
    printresult(table.text(arguments.options.json));
}

std::shared_ptr<EvaluationArguments> evaluationarguments(CLI::App& parser)
{
    auto arguments = std::make_shared<EvaluationArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    addoptions(parser, arguments->options);
    addjson(parser, arguments->options.json);
    return arguments;
}
} // namespace

std::function<void()> setupevaluate(CLI::App& parser)
{
    const auto arguments = evaluationarguments(parser);
    parser.add_flag("--all", arguments->allnets, "Evaluate the nets that are not visible, too");
    parser.footer("Prints CSV: net,a,b,quality,reach, a row per net and pair with a result.\n"
                  "quality is 50 + margin in dB, held within 1 to 99; reach is 50 less the number\n"
                  "of retransmissions. 0 stands for none.");
    return [arguments] { runevaluate(*arguments); };
}

std::function<void()> setuplines(CLI::App& parser)
{
    const auto arguments = evaluationarguments(parser);
    parser.footer(
        "Prints CSV: a,b,class, a row per pair with a line. Classes 1 and 2 are red, 3 is\n"
        "yellow, 4 to 6 are green, the higher the better.");
    return [arguments] { runlines(*arguments); };
}
