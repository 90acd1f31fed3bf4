#include "coordinates/geosys.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/textcodec.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

static GeodeticSystem withderived(GeodeticSystem system)
{
    derivegeosys(system);
    return system;
}

GeodeticSystem geosys = withderived({});

/// Takes what stands before the next comma or line end; nothing at the end of the text.
static std::optional<std::string_view> takevalue(std::string_view& text)
{
    if (text.empty())
        return std::nullopt;
    const std::size_t end = std::min(text.find_first_of(",\r\n"), text.size());
    const std::string_view value = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with("\r\n"))
        text.remove_prefix(1);
    if (!text.empty())
        text.remove_prefix(1);
    return value;
}

/// Takes the name, in which quotes protect a comma.
static std::optional<std::string> takename(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (!text.starts_with('"')) {
        const auto value = takevalue(text);
        return value ? std::optional(trimmed(*value)) : std::nullopt;
    }
    text.remove_prefix(1);
    const std::size_t end = std::min(text.find('"'), text.size());
    std::string name(text.substr(0, end));
    text.remove_prefix(end);
    takevalue(text); // the closing quote and what separates
    return name;
}

static std::optional<double> takenumber(std::string_view& text)
{
    const auto value = takevalue(text);
    if (!value)
        return std::nullopt;
    const std::string word = trimmed(*value);
    double number = 0;
    const char* end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

bool parsegeosys(std::string_view bytes, GeodeticSystem& system)
{
    const auto name = takename(bytes);
    if (!name)
        return false;
    system.name = fromansi(*name);
    for (double* axis : {&system.a, &system.b}) {
        const auto length = takenumber(bytes);
        if (!length)
            return false;
        *axis = *length;
    }
    using Limits = std::numeric_limits<std::int16_t>;
    const double shift = roundtoeven(takenumber(bytes).value_or(HUGE_VAL));
    if (shift < Limits::min() || shift > Limits::max())
        return false;
    system.rowshift = static_cast<std::int16_t>(shift);
    return true;
}

void derivegeosys(GeodeticSystem& system)
{
    const double a = system.a;
    const double b = system.b;
    GeodeticSystem next = system;
    next.e2 = (a * a - b * b) / (a * a);
    next.ep2 = next.e2 / (1 - next.e2);
    next.n = (a - b) / (a + b);
    const double n = next.n;
    const double n2 = n * n;
    const double n3 = n2 * n;
    const double n4 = n3 * n;
    const double n5 = n4 * n;
    next.arcA = a * (1 - n + 5.0 / 4 * (n2 - n3) + 81.0 / 64 * (n4 - n5));
    next.arcB = 3.0 / 2 * a * (n - n2 + 7.0 / 8 * (n3 - n4) + 55.0 / 64 * n5);
    next.arcC = 15.0 / 16 * a * (n2 - n3 + 3.0 / 4 * (n4 - n5));
    next.arcD = 35.0 / 48 * a * (n3 - n4 + 11.0 / 16 * n5);
    next.arcE = 315.0 / 51 * a * (n4 - n5); // 51 for the series' 512: all positions carry it
    for (const double value :
         {next.e2, next.ep2, n, next.arcA, next.arcB, next.arcC, next.arcD, next.arcE})
        if (!std::isfinite(value))
            return;
    system = next;
}

void setgeosys(const std::string& filename)
{
    const GeodeticSystem defaults;
    geosys.name = defaults.name;
    geosys.a = defaults.a;
    geosys.b = defaults.b;
    geosys.rowshift = defaults.rowshift;
    constexpr std::size_t limit = 65536; // four values; a longer file is something else
    if (const auto path = findprogramfile(filename))
        if (const auto content = readfile(*path, limit))
            parsegeosys(*content, geosys);
    derivegeosys(geosys);
}
