#include "pictures/sidecar.h"

#include "base/numbers.h"
#include "base/textcodec.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace
{

/// Takes whole lines, and numbers that commas or line ends separate, one after the other.
class FieldReader
{
public:
    explicit FieldReader(std::string_view source) : rest(source) {}

    std::optional<std::string_view> line()
    {
        if (rest.empty())
            return std::nullopt;
        return upto("\r\n");
    }

    /// The next field as a number; false at the end of the text, and for a field that is none.
    bool number(float& value)
    {
        const std::string field = trimmed(upto(",\r\n"));
        const char* begin = field.data() + (field.starts_with('+') ? 1 : 0);
        float read = 0;
        const auto result = std::from_chars(begin, field.data() + field.size(), read);
        if (result.ec != std::errc() || !std::isfinite(read))
            return false;
        value = read;
        return true;
    }

private:
    std::string_view upto(std::string_view separators)
    {
        const std::size_t end = std::min(rest.find_first_of(separators), rest.size());
        const std::string_view found = rest.substr(0, end);
        rest.remove_prefix(end);
        if (rest.starts_with("\r\n"))
            rest.remove_prefix(2);
        else if (!rest.empty())
            rest.remove_prefix(1);
        return found;
    }

    std::string_view rest;
};

template <typename T> bool fits(double value)
{
    return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

/// A whole number of the sidecar; one that doesn't fit leaves its target.
template <typename T> void assign(T& target, float value)
{
    const double whole = roundtoeven(static_cast<double>(value));
    if (fits<T>(whole))
        target = static_cast<T>(whole);
}

constexpr std::size_t mapvalues = 12;
using Values = std::array<float, mapvalues>;

void takemapvalues(const Values& values, Picture& picture)
{
    assign(picture.Mapmode, values[0]);
    picture.maxx = values[1];
    picture.minx = values[2];
    picture.light = values[3];
    picture.con = values[4];
    picture.bri = values[5];
    assign(picture.c1, values[6]);
    assign(picture.c2, values[7]);
    assign(picture.city, values[8]);
    picture.hmin = values[9];
    picture.hmax = values[10];
    picture.hmoy = values[11];
}

/// Reads all that the text has; stops at the first error.
void readfields(FieldReader& fields, Picture& picture, Values& values)
{
    const auto first = fields.line();
    if (!first)
        return;
    const double kind = roundtoeven(leadingnumber(*first));
    if (!fits<std::int16_t>(kind))
        return;
    picture.Pictype = static_cast<std::int16_t>(kind);
    for (std::size_t i = 0; i < picture.lon.size(); ++i)
        if (!fields.number(picture.lon[i]) || !fields.number(picture.lat[i]))
            return;
    const auto source = fields.line();
    if (!source)
        return;
    picture.source = fromansi(*source);
    if (picture.Pictype == pictype::map || picture.Pictype == pictype::view3d)
        for (float& value : values)
            if (!fields.number(value))
                return;
}

/// Plain decimal: the fewest digits that read back the same single, never an exponent.
std::string decimal(float value)
{
    std::array<char, 64> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                      std::chars_format::fixed);
    return {digits.data(), result.ptr};
}

} // namespace

void parsesidecar(std::string_view text, Picture& picture)
{
    FieldReader fields(text);
    Values values{};
    picture.lon.fill(0);
    picture.lat.fill(0);
    readfields(fields, picture, values);
    if (picture.Pictype == pictype::map)
        takemapvalues(values, picture);
    if (picture.Pictype == pictype::view3d)
        std::copy_n(values.begin(), picture.view.size(), picture.view.begin());
}

std::string sidecartext(const Picture& picture)
{
    std::string text;
    const auto line = [&text](const std::string& content) { text += content + "\r\n"; };
    line(std::to_string(picture.Pictype));
    for (std::size_t i = 0; i < picture.lon.size(); ++i)
        line(decimal(picture.lon[i]) + "," + decimal(picture.lat[i]));
    line(toansi(picture.source));
    if (picture.Pictype == pictype::map) {
        line(std::to_string(picture.Mapmode));
        for (const float value :
             {picture.maxx, picture.minx, picture.light, picture.con, picture.bri})
            line(decimal(value));
        for (const std::uint8_t value : {picture.c1, picture.c2, picture.city})
            line(std::to_string(value));
        for (const float value : {picture.hmin, picture.hmax, picture.hmoy})
            line(decimal(value));
    }
    if (picture.Pictype == pictype::view3d)
        for (const float value : picture.view)
            line(decimal(value));
    return text;
}

void parseadr(std::string_view text, Picture& picture)
{
    picture.Pictype = pictype::fourcorners;
    picture.lon.fill(0);
    picture.lat.fill(0);
    FieldReader fields(text);
    const auto source = fields.line();
    if (!source)
        return;
    picture.source = fromansi(*source);
    for (const std::size_t corner : {std::size_t{0}, std::size_t{2}}) {
        float west = 0;
        if (!fields.number(west))
            return;
        picture.lon[corner] = 0 - west;
        if (!fields.number(picture.lat[corner]))
            return;
    }
    picture.lon[1] = picture.lon[2];
    picture.lat[1] = picture.lat[0];
    picture.lon[3] = picture.lon[0];
    picture.lat[3] = picture.lat[2];
}

std::string companion(std::string_view raster, std::string_view extension)
{
    constexpr std::size_t replaced = 3;
    return std::string(raster.substr(0, raster.size() - std::min(raster.size(), replaced)))
        .append(extension);
}
