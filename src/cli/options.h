#pragma once

#include <CLI/App.hpp>
#include <cstdint>
#include <string>

/// What every command takes.
struct CommonOptions {
    std::string data; ///< the program's folder; empty: the usual ones
    int threads = 0;  ///< 0: all cores
    bool quiet = false;
};

/// What the commands on a network take besides.
struct NetworkOptions {
    CommonOptions common;
    std::string map; ///< in place of the network's own
    bool interference = false;
    bool json = false;

    /// The propagation mode for the model: 0 normal, 1 interference.
    std::int16_t mode() const { return interference ? 1 : 0; }
};

/// Gives a command the options that all of them take, or those of the commands on a network. The
/// record is filled when the line is read and must live until then.
void addoptions(CLI::App& parser, CommonOptions& options);
void addoptions(CLI::App& parser, NetworkOptions& options);
/// The choice of JSON in place of CSV.
void addjson(CLI::App& parser, bool& json);

/// Puts the process into its start state: folders, threads, progress on a terminal, an empty
/// network, and the geodetic system of the program's folder.
void prepare(const CommonOptions& options);
