#include "network/gazetteer.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/textlines.h"
#include "coordinates/positiontexts.h"
#include "network/tables.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

std::string cityname;

namespace
{

constexpr const char* filename = "cities.dat";
constexpr const char* lineend = "\r\n";
constexpr std::size_t fieldcount = 4;
constexpr std::size_t positionwidth = 22; // characters of longitude, blank and latitude

/// The fields of a line without their quotes; what stands behind the fourth is left out.
/// Returned: the number of commas.
std::size_t splitline(std::string_view line, std::array<std::string, fieldcount>& fields)
{
    for (std::string& field : fields)
        field.clear();
    std::size_t commas = 0;
    for (const char c : line) {
        if (c == ',')
            ++commas;
        else if (c != '"' && commas < fieldcount)
            fields[commas] += c;
    }
    return commas;
}

bool hasnumber(std::string_view field)
{
    const std::size_t at = field.find_first_not_of(" \t+-.");
    return at != std::string_view::npos && field[at] >= '0' && field[at] <= '9';
}

float degrees(std::string_view field)
{
    constexpr double most = 1e9; // beyond any turn, and within a single
    return static_cast<float>(std::clamp(leadingnumber(field), -most, most));
}

Town maketown(const std::array<std::string, fieldcount>& fields)
{
    Town town;
    town.lat = degrees(fields[1]);
    town.lon = -degrees(fields[2]); // the file counts to the west
    const std::string& name = fields[3];
    name.copy(town.name.bytes.data(), town.name.bytes.size());
    return town;
}

/// Degrees of such a text as 045°30'12", by the places of its figures.
float sexagesimaldegrees(std::string_view text, std::size_t digits)
{
    const double whole = leadingnumber(text.substr(0, digits));
    const double minutes = leadingnumber(text.substr(digits + 1, 2));
    const double seconds = leadingnumber(text.substr(digits + 4, 2));
    return static_cast<float>(whole + minutes / 60 + seconds / 3600);
}

std::string paddedname(const Town& town)
{
    return fromansi({town.name.bytes.data(), town.name.bytes.size()});
}

} // namespace

Gazetteer parsegazetteer(std::string_view text)
{
    Gazetteer gazetteer;
    std::array<std::string, fieldcount> fields;
    takeline(text); // the header
    while (!text.empty()) {
        const std::size_t commas = splitline(takeline(text), fields);
        if (commas + 1 == fieldcount && hasnumber(fields[1]) && hasnumber(fields[2]))
            gazetteer.towns.push_back(maketown(fields));
        ++gazetteer.lines;
    }
    return gazetteer;
}

Gazetteer readgazetteer()
{
    const auto path = findprogramfile(filename);
    return parsegazetteer(path ? readfile(*path).value_or(std::string()) : std::string());
}

std::string townline(const Town& town)
{
    float lon = town.lon; // the texts bring their own copies into range
    float lat = town.lat;
    return paddedname(town) + dmslon(lon) + " " + dmslat(lat);
}

std::optional<PickedTown> picktown(const std::string& line)
{
    constexpr std::size_t namewidth = 20;
    constexpr std::size_t eastletter = 10; // places in the text of the position
    constexpr std::size_t latitude = 12;
    constexpr std::size_t northletter = 21;
    const std::string ansi = toansi(line);
    if (ansi.size() < namewidth + positionwidth)
        return std::nullopt;
    const std::string_view position =
        std::string_view(ansi).substr(ansi.size() - positionwidth, positionwidth);
    PickedTown town{fromansi(std::string_view(ansi).substr(0, namewidth)),
                    sexagesimaldegrees(position, 3),
                    sexagesimaldegrees(position.substr(latitude), 2)};
    if (position[eastletter] != 'E')
        town.lon = -town.lon;
    if (position[northletter] != 'N')
        town.lat = -town.lat;
    return town;
}

std::vector<std::uint32_t> findtowns(const Gazetteer& gazetteer, const std::string& text)
{
    const std::string wanted = foldedtext(toansi(text));
    std::vector<std::uint32_t> found;
    for (std::size_t i = 0; i < gazetteer.towns.size(); ++i) {
        const FixedText<22>& name = gazetteer.towns[i].name;
        if (foldedtext({name.bytes.data(), name.bytes.size()}).find(wanted) != std::string::npos)
            found.push_back(static_cast<std::uint32_t>(i));
    }
    return found;
}

std::string gazetteerline(const Unit& unit)
{
    std::string name = toansi(unit.name.text());
    std::replace_if(
        name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return fmt::format("\"{:X}\",{},{},\"{}\"{}", static_cast<std::uint32_t>(unit.forecolour),
                       generalnumber(unit.lat), generalnumber(0 - unit.lon), name, lineend);
}

bool appendtown(const Unit& unit)
{
    const auto found = findprogramfile(filename);
    std::string text = found ? readfile(*found).value_or(std::string()) : std::string();
    if (text.empty())
        text = "\"Couleur\",\"Latitude\",\"Longitude (ouest positif)\",\"Nom\"\r\n";
    else if (text.back() != '\n' && text.back() != '\r')
        text += lineend;
    return writefile(targetpath(userfolder() + filename), text + gazetteerline(unit));
}
