#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Limits of a radar's beam at one range, m relative to the sensor.
struct RadarGate {
    float lower = 0;
    float upper = 0;
};

/// Vertical diagram of a radar. Gate i lies at i times the gate's size.
struct RadarDiagram {
    double gatesize_km = 0;
    std::vector<RadarGate> gates; ///< from 1; entry 0 is zero

    int count() const { return static_cast<int>(gates.size()) - 1; }
};

/// Diagram from the text of a radar file: the number of gates, their size in km, then the lower and
/// upper limit of each. Nothing when the text ends early, a number is missing or a size is not
/// above 0. Memory follows the text's real length, whatever number of gates it claims.
std::optional<RadarDiagram> parseradar(std::string_view text);

/// Diagram of a file of the program's folder.
std::optional<RadarDiagram> readradar(const std::string& filename);
