#include "pictures/copytext.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <optional>

std::string copytext(const Picture& picture)
{
    std::string text;
    for (std::size_t corner = 0; corner < picture.lon.size(); ++corner) {
        text += formatnumber("000.00000", double{picture.lon[corner]}) + "\t";
        text += formatnumber("00.00000", double{picture.lat[corner]}) + "\t";
    }
    return text + formatnumber("00", picture.Pictype) + "\t" + picture.source + "\t";
}

/// Takes the field up to the next tab off a text; nothing at its end.
static std::optional<std::string_view> takefield(std::string_view& text)
{
    if (text.empty())
        return std::nullopt;
    const std::size_t tab = text.find('\t');
    const std::string_view field = text.substr(0, tab);
    text.remove_prefix(tab == std::string_view::npos ? text.size() : tab + 1);
    return field;
}

static bool takenumber(std::string_view& text, float& value)
{
    const auto field = takefield(text);
    const auto number = field ? static_cast<float>(leadingnumber(*field)) : NAN;
    if (!std::isfinite(number))
        return false;
    value = number;
    return true;
}

void parsecopytext(std::string_view text, Picture& picture)
{
    constexpr double lastkind = 20;
    for (std::size_t corner = 0; corner < picture.lon.size(); ++corner)
        if (!takenumber(text, picture.lon[corner]) || !takenumber(text, picture.lat[corner]))
            return;
    float kind = 0;
    if (!takenumber(text, kind))
        return;
    picture.Pictype = static_cast<std::int16_t>(std::clamp(roundeven(double{kind}), 0.0, lastkind));
    if (const auto source = takefield(text))
        picture.source = *source;
}
