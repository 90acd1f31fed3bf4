#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <span>

/// A command of the program. Its set-up adds the arguments to the parser and returns the work,
/// which runs once they are read.
struct Command {
    const char* name;
    const char* summary; ///< one line of the program's help
    std::function<void()> (*setup)(CLI::App& parser);
};

/// All commands, in the order of the help.
std::span<const Command> commands();

/// `info`: what a file of any kind holds, in info.cpp.
std::function<void()> setupinfo(CLI::App& parser);

/// `evaluate` and `lines`: all links of a network, in evaluation.cpp.
std::function<void()> setupevaluate(CLI::App& parser);
std::function<void()> setuplines(CLI::App& parser);

/// `link`, `losses` and `export`: one link by its profile, in onelink.cpp.
std::function<void()> setuplink(CLI::App& parser);
std::function<void()> setuplosses(CLI::App& parser);
std::function<void()> setupexport(CLI::App& parser);

/// `where`, `parse` and `elevation`: one position, in positions.cpp.
std::function<void()> setupwhere(CLI::App& parser);
std::function<void()> setupparse(CLI::App& parser);
std::function<void()> setupelevation(CLI::App& parser);

/// `render` and `draw`: a picture of the map, with the network on it, in rendering.cpp.
std::function<void()> setuprender(CLI::App& parser);
std::function<void()> setupdraw(CLI::App& parser);

/// `build`: a map from elevation sources, in build.cpp.
std::function<void()> setupbuild(CLI::App& parser);

/// `import`: foreign rasters into elevation sources, in import.cpp.
std::function<void()> setupimport(CLI::App& parser);

/// `coverage` and `viewshed`: a sweep painted or as a table, in coverages.cpp.
std::function<void()> setupcoverage(CLI::App& parser);
std::function<void()> setupviewshed(CLI::App& parser);

/// `report` and `haat`: texts as the program writes them, in reporting.cpp.
std::function<void()> setupreport(CLI::App& parser);
std::function<void()> setuphaat(CLI::App& parser);

// stations.cpp
std::function<void()> setupstations(CLI::App& parser);
