#include "coverage/pattern.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "coverage/numberlist.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

/// 360 numbers need far less.
static constexpr std::size_t largestfile = 1 << 20;

AntennaPattern parsepattern(std::string_view text)
{
    AntennaPattern pattern{};
    NumberList numbers(text);
    double gain_db = 0;
    for (float& entry : pattern) {
        if (!numbers.next(gain_db))
            break;
        entry = static_cast<float>(std::clamp(gain_db, -100.0, 100.0));
    }
    return pattern;
}

AntennaPattern readpattern(const std::string& filename)
{
    const auto path = findprogramfile(filename);
    const auto text = path ? readfile(*path, largestfile) : std::nullopt;
    return parsepattern(text.value_or(std::string()));
}

float patterngain(const AntennaPattern& pattern, double azimuth_deg, double antaz_deg)
{
    const double angle = std::fmod(roundtoeven(azimuth_deg - antaz_deg), 360);
    if (!std::isfinite(angle))
        return pattern[0];
    return pattern[static_cast<std::size_t>(angle < 0 ? angle + 360 : angle)];
}

std::vector<std::string> programfiles(std::string_view extension)
{
    std::set<std::string> names;
    for (const std::string& folder : {userfolder(), shippedfolder()}) {
        std::error_code error;
        for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            const std::string name = lowercase(entry->path().filename().string());
            if (name.ends_with(extension))
                names.insert(name);
        }
    }
    return {names.begin(), names.end()};
}

std::vector<std::string> patternfiles()
{
    std::vector<std::string> names = programfiles(".ant");
    std::erase(names, omnipattern);
    names.insert(names.begin(), omnipattern);
    return names;
}
