#include "cli/program.h"

#include "base/hooks.h"
#include "base/session.h"
#include "cli/command.h"
#include "cli/failure.h"
#include "cli/output.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <exception>
#include <fmt/format.h>
#include <new>
#include <string>
#include <vector>

namespace
{
enum ExitStatus { done = 0, workfailed = 1, badcommandline = 2 };

/// The arguments in the parser's order, last first. "-.5" is a number, no option.
std::vector<std::string> arguments(int argc, const char* const* argv)
{
    std::vector<std::string> list;
    for (int i = argc - 1; i > 0; --i) {
        std::string text = argv[i];
        if (text.size() > 2 && text.starts_with("-.") &&
            std::isdigit(static_cast<unsigned char>(text[2])) != 0)
            text.insert(1, "0");
        list.push_back(std::move(text));
    }
    return list;
}

void addcommands(CLI::App& program, std::function<void()>& work)
{
    for (const Command& command : commands()) {
        CLI::App* parser = program.add_subcommand(command.name, command.summary);
        const std::function<void()> run = command.setup(*parser);
        parser->callback([run, &work] { work = run; });
    }
}

/// The command's name comes first; one that there is not is named.
void checkcommand(int argc, const char* const* argv)
{
    const std::string_view name = argc > 1 ? argv[1] : "-";
    const auto known = commands();
    if (!name.starts_with('-') && std::none_of(known.begin(), known.end(),
                                               [name](const Command& c) { return c.name == name; }))
        throw UsageError("no such command: " + std::string(name));
}

/// One line of standard error, whatever line ends the text has.
ExitStatus complain(ExitStatus status, std::string text)
{
    std::replace(text.begin(), text.end(), '\r', ' ');
    std::replace(text.begin(), text.end(), '\n', ' ');
    fmt::print(stderr, "velmora-cli: {}\n", text);
    return status;
}
} // namespace

int runprogram(int argc, const char* const* argv)
{
    hooks.attributeslost = [](const std::string& path) {
        complain(done, path + ": written, but its owner, rights or other names are not kept");
    };
    try {
        CLI::App program("Plan radio networks over real terrain, without a window.", "velmora-cli");
        program.set_version_flag("--version", "velmora-cli " + appversion());
        program.require_subcommand(1);
        std::function<void()> work;
        checkcommand(argc, argv);
        addcommands(program, work);
        try {
            program.parse(arguments(argc, argv));
        } catch (const CLI::Success& request) {
            return program.exit(request); // --help and --version print and are done
        }
        work();
        return done;
    } catch (const CLI::ParseError& error) {
        return complain(badcommandline, std::string("command line: ") + error.what());
    } catch (const UsageError& error) {
        return complain(badcommandline, std::string("command line: ") + error.what());
    } catch (const Failure& failure) {
        return complain(workfailed, failure.what());
    } catch (const std::bad_alloc&) {
        return complain(workfailed, "out of memory: the input is too large for this machine");
    } catch (const std::exception& error) {
        return complain(workfailed, std::string("unexpected: ") + error.what());
    }
}
