#include "network/predefined.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/textcodec.h"

#include <algorithm>
#include <string_view>

namespace
{

/// Takes the next line off a text; nothing at its end.
std::optional<std::string> takeline(std::string_view& rest)
{
    constexpr std::size_t mostbytes = 255; // more than any name or number that a field holds
    if (rest.empty())
        return std::nullopt;
    const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
    const bool crlf = rest.substr(end, 2) == "\r\n";
    std::string line = trimmed(fromansi(rest.substr(0, std::min(end, mostbytes))));
    rest.remove_prefix(std::min(end + (crlf ? 2 : 1), rest.size()));
    return line;
}

std::optional<PredefinedSystem> takesystem(std::string_view& rest)
{
    PredefinedSystem system;
    for (std::string* text : {&system.name, &system.power, &system.threshold, &system.lineloss,
                              &system.gain, &system.height}) {
        std::optional<std::string> line = takeline(rest);
        if (!line)
            return std::nullopt;
        *text = std::move(*line);
    }
    return system;
}

std::string_view astext(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Content of the program's file; empty when there is none.
std::string filecontent()
{
    constexpr std::size_t mostbytes = std::size_t{16} << 20;
    const std::optional<std::string> path = findprogramfile("radiosys.dat");
    return path ? readfile(*path, mostbytes).value_or(std::string()) : std::string();
}

} // namespace

std::vector<std::string> predefinednames(std::span<const std::byte> bytes)
{
    std::vector<std::string> names;
    std::string_view rest = astext(bytes);
    while (auto system = takesystem(rest))
        if (!system->name.empty())
            names.push_back(std::move(system->name));
    return names;
}

std::optional<PredefinedSystem> findpredefined(std::span<const std::byte> bytes,
                                               const std::string& name)
{
    std::string_view rest = astext(bytes);
    while (auto system = takesystem(rest))
        if (system->name == name)
            return system;
    return std::nullopt;
}

std::vector<std::string> predefinednames()
{
    const std::string content = filecontent();
    return predefinednames(asbytes(content));
}

std::optional<PredefinedSystem> findpredefined(const std::string& name)
{
    const std::string content = filecontent();
    return findpredefined(asbytes(content), name);
}
