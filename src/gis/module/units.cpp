#include "gis/module/units.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <string_view>

namespace
{
struct Unit {
    std::string_view name; ///< lower case, letters only
    double metres;
};

constexpr double foot = 0.3048;
constexpr double surveyfoot = 1200.0 / 3937;

constexpr auto units = std::to_array<Unit>({
    {"", 1},
    {"unknown", 1},
    {"m", 1},
    {"mt", 1},
    {"mtr", 1},
    {"meter", 1},
    {"metre", 1},
    {"metro", 1},
    {"ft", foot},
    {"foot", foot},
    {"feet", foot},
    {"pied", foot},
    {"fti", foot},
    {"ift", foot},
    {"ftintl", foot},
    {"footinternational", foot},
    {"feetinternational", foot},
    {"internationalfoot", foot},
    {"internationalfeet", foot},
    {"usft", surveyfoot},
    {"ftus", surveyfoot},
    {"sft", surveyfoot},
    {"footus", surveyfoot},
    {"feetus", surveyfoot},
    {"usfoot", surveyfoot},
    {"usfeet", surveyfoot},
    {"ussurveyfoot", surveyfoot},
    {"ussurveyfeet", surveyfoot},
    {"ussurveyft", surveyfoot},
    {"ftussurvey", surveyfoot},
    {"footussurvey", surveyfoot},
    {"feetussurvey", surveyfoot},
    {"surveyfoot", surveyfoot},
    {"surveyfeet", surveyfoot},
    {"cm", 0.01},
    {"centimeter", 0.01},
    {"centimetre", 0.01},
    {"dm", 0.1},
    {"decimeter", 0.1},
    {"decimetre", 0.1},
    {"mm", 0.001},
    {"millimeter", 0.001},
    {"millimetre", 0.001},
    {"dam", 10},
    {"decameter", 10},
    {"decametre", 10},
    {"dekameter", 10},
    {"hm", 100},
    {"hectometer", 100},
    {"hectometre", 100},
    {"km", 1000},
    {"kilometer", 1000},
    {"kilometre", 1000},
    {"in", 0.0254},
    {"inch", 0.0254},
    {"inche", 0.0254}, // without the s of its plural
    {"inchinternational", 0.0254},
    {"yd", 3 * foot},
    {"yard", 3 * foot},
    {"internationalyard", 3 * foot},
    {"yardinternational", 3 * foot},
    {"fathom", 6 * foot},
    {"fath", 6 * foot},
    {"fathominternational", 6 * foot},
    {"fathomus", 6 * surveyfoot},
    {"mi", 5280 * foot},
    {"mile", 5280 * foot},
    {"statutemile", 5280 * foot},
    {"nmi", 1852},
    {"nauticalmile", 1852},
    {"footclarke", 0.3047972654},
    {"clarkefoot", 0.3047972654},
    {"clarkesfoot", 0.3047972654},
});

/// The letters of a name in lower case.
std::string lettersof(std::string_view text)
{
    std::string letters;
    for (const char c : text)
        if (std::isalpha(static_cast<unsigned char>(c)) != 0)
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return letters;
}

const Unit* find(const std::string& name)
{
    const auto* const found =
        std::find_if(units.begin(), units.end(), [&name](const Unit& u) { return u.name == name; });
    return found == units.end() ? nullptr : found;
}
} // namespace

std::optional<double> metresof(const std::string& unit)
{
    const std::size_t start = unit.find_first_not_of(" \t");
    std::string_view text = unit;
    text.remove_prefix(start == std::string::npos ? text.size() : start);
    double factor = 1; // "0.1 m", as some write it
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), factor);
    if (error == std::errc())
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    else
        factor = 1;
    if (text.find_first_of("/^*0123456789%") != std::string_view::npos || !(factor > 0))
        return {}; // another quantity
    std::string name = lettersof(text);
    const Unit* known = find(name);
    if (known == nullptr && name.size() > 1 && name.ends_with('s')) {
        name.pop_back();
        known = find(name);
    }
    if (known == nullptr || (error == std::errc() && known->name.empty()))
        return {};
    return known->metres * factor;
}
