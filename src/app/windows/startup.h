#pragma once

#include <functional>
#include <memory>
#include <string>

class frmMain;

/// True when the propagation engine gives a sound result.
bool engineanswers();

/// What a start can be given otherwise than by its defaults (tests do).
struct StartOptions {
    double splash_s = 3;   ///< least time of the splash on the screen
    double winddown_s = 1; ///< time for ports and sockets at the end
    std::function<bool()> engineprobe = engineanswers;
};

/// Brings the program from nothing to a loaded network and map: main window, splash, default
/// network, settings, then what the command line or the last run names.
///   commandline  a picture, a map or a network, or empty
/// `fillhooks` comes before. Empty when the engine doesn't answer; the user has then been told.
std::unique_ptr<frmMain> startup(const std::string& commandline, const StartOptions& options = {});
