#include "cli/options.h"

#include "base/hooks.h"
#include "base/parallel.h"
#include "base/paths.h"
#include "cli/failure.h"
#include "network/netfile.h"

#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

namespace
{
constexpr int mostthreads = 1024;
constexpr int barwidth = 50;

/// Shows the progress of a long operation in one line of the terminal; 0 percent wipes it out.
void drawbar(int percent)
{
    if (percent <= 0) {
        fmt::print(stderr, "\r{:{}}\r", "", barwidth + 8);
        return;
    }
    fmt::print(stderr, "\r[{:<{}}] {:3}%", std::string(static_cast<std::size_t>(percent) / 2, '#'),
               barwidth, percent);
}
} // namespace

void addoptions(CLI::App& parser, CommonOptions& options)
{
    parser.add_option("--data", options.data, "The program's folder of data files")
        ->type_name("DIR");
    parser.add_option("--threads", options.threads, "Number of threads (default: all cores)")
        ->check(CLI::Range(1, mostthreads))
        ->type_name("N");
    parser.add_flag("-q,--quiet", options.quiet, "Show no progress");
}

void addoptions(CLI::App& parser, NetworkOptions& options)
{
    parser.add_option("--map", options.map, "Use this map in place of the network's own")
        ->type_name("FILE");
    parser.add_flag("--interference", options.interference,
                    "Propagation mode \"Interférence\" (optimistic)");
    addoptions(parser, options.common);
}

void addjson(CLI::App& parser, bool& json)
{
    parser.add_flag("--json", json, "Print a JSON array of objects in place of CSV");
}

void prepare(const CommonOptions& options)
{
    if (!options.data.empty()) {
        std::error_code error;
        if (!std::filesystem::is_directory(options.data, error))
            throw Failure(options.data, "no such folder");
        setprogramfolder(std::filesystem::absolute(options.data, error).string());
    }
    setthreads(options.threads);
    if (!options.quiet && isatty(STDERR_FILENO) != 0)
        hooks.setprogress = drawbar;
    newnet(false);
}
