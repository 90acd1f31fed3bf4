#include "coverage/radar.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "coverage/numberlist.h"

/// A gate takes two numbers of a few characters; this holds a million gates.
static constexpr std::size_t largestfile = 1 << 25;

std::optional<RadarDiagram> parseradar(std::string_view text)
{
    NumberList numbers(text);
    RadarDiagram radar;
    double count = 0;
    if (!numbers.next(count) || !numbers.next(radar.gatesize_km))
        return std::nullopt;
    count = roundtoeven(count);
    // Two numbers of one digit and their separators are the least that a gate takes.
    const std::size_t most = text.size() / 4 + 1;
    if (!(count >= 1) || count > static_cast<double>(most) || !(radar.gatesize_km > 0))
        return std::nullopt;
    radar.gates.resize(static_cast<std::size_t>(count) + 1);
    for (std::size_t i = 1; i < radar.gates.size(); ++i) {
        double lower_m = 0;
        double upper_m = 0;
        if (!numbers.next(lower_m) || !numbers.next(upper_m))
            return std::nullopt;
        radar.gates[i] = {static_cast<float>(lower_m), static_cast<float>(upper_m)};
    }
    return radar;
}

std::optional<RadarDiagram> readradar(const std::string& filename)
{
    const auto path = findprogramfile(filename);
    const auto text = path ? readfile(*path, largestfile) : std::nullopt;
    return text ? parseradar(*text) : std::nullopt;
}
