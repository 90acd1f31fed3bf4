#include "network/places.h"

#include "base/numbers.h"
#include "base/textcodec.h"
#include "base/textlines.h"

#include <array>
#include <charconv>

namespace
{

constexpr std::size_t mostfields = 6;
constexpr std::size_t leastfields = 4;

/// The fields of a line without their quotes; what stands behind the sixth is left out.
struct Fields {
    std::array<std::string, mostfields> texts;
    std::size_t count = 1;
};

Fields splitline(std::string_view line)
{
    Fields fields;
    for (const char c : line) {
        if (c == ',')
            ++fields.count;
        else if (c != '"' && fields.count <= mostfields)
            fields.texts[fields.count - 1] += c;
    }
    return fields;
}

std::int32_t hexadecimal(const std::string& text)
{
    constexpr std::uint32_t colourbits = 0xFFFFFF;
    const std::string digits = trimmed(text);
    std::uint32_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return static_cast<std::int32_t>(value & colourbits);
}

Placement placement(const std::string& text)
{
    const double code = leadingnumber(text);
    for (const auto known :
         {Placement::above, Placement::aboveleft, Placement::left, Placement::centred})
        if (code == static_cast<double>(known))
            return known;
    return Placement::right;
}

Place makeplace(const Fields& fields, int lonsign)
{
    Place place;
    place.colour = hexadecimal(fields.texts[0]);
    place.lat = static_cast<float>(leadingnumber(fields.texts[1]));
    place.lon = static_cast<float>(lonsign * leadingnumber(fields.texts[2]));
    place.name = trimmed(fromansi(fields.texts[3]));
    place.placement = placement(fields.texts[4]);
    const std::string background = trimmed(fields.texts[5]);
    if (background == "-1")
        place.box = Place::Box::none;
    else if (!background.empty())
        place.box = Place::Box::colour;
    place.background = hexadecimal(background);
    return place;
}

} // namespace

std::vector<Place> parseplaces(std::string_view text, int lonsign)
{
    std::vector<Place> places;
    bool header = true;
    while (!text.empty()) {
        const Fields fields = splitline(takeline(text));
        if (!header && fields.count >= leastfields)
            places.push_back(makeplace(fields, lonsign));
        header = false;
    }
    return places;
}
