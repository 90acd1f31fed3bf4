#include "cli/output.h"

#include "base/numbers.h"
#include "cli/failure.h"

#include <cerrno>
#include <cstdio>
#include <fmt/format.h>
#include <system_error>

void printresult(std::string_view text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0)
        throw Failure("standard output", std::generic_category().message(errno));
}

std::string cell(int value)
{
    return std::to_string(value);
}

std::string cell(float value)
{
    return generalnumber(value);
}

std::string cell(double value)
{
    return generalnumber(value);
}

void KeyValues::add(std::string_view key, std::string_view text)
{
    lines += key;
    lines += '=';
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && text.substr(i + 1, 1) == "\n")
            continue;
        if (text[i] == '\r' || text[i] == '\n')
            lines += "\\n";
        else
            lines += text[i];
    }
    lines += '\n';
}

std::string NumberTable::csvtext() const
{
    std::string text = fmt::format("{}\n", fmt::join(names, ","));
    for (const std::vector<std::string>& row : rows)
        fmt::format_to(std::back_inserter(text), "{}\n", fmt::join(row, ","));
    return text;
}

std::string NumberTable::jsontext() const
{
    std::string text = "[";
    for (std::size_t i = 0; i < rows.size(); ++i) {
        text += i == 0 ? "\n  {" : ",\n  {";
        for (std::size_t column = 0; column < names.size(); ++column) {
            const std::string& value = rows[i][column];
            // Infinities and what is no number have no digits.
            const bool number = value.find_first_of("0123456789") != std::string::npos;
            fmt::format_to(std::back_inserter(text), "{}\"{}\": {}", column == 0 ? "" : ", ",
                           names[column], number ? value : "null");
        }
        text += '}';
    }
    text += rows.empty() ? "]\n" : "\n]\n";
    return text;
}
