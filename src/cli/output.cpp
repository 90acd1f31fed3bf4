#include "cli/output.h"

#include "base/numbers.h"
#include "base/paths.h"
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

void remark(std::string_view what, std::string_view sentence)
{
    fmt::print(stderr, "velmora-cli: {}: {}\n", what, sentence);
}

void printfigures(std::string_view text, bool streamtaken)
{
    if (streamtaken)
        fmt::print(stderr, "{}", text);
    else
        printresult(text);
}

void writestream(const std::string& path, std::string_view bytes)
{
    std::string why;
    if (path == standardstream)
        printresult(bytes);
    else if (!writefile(targetpath(path), bytes, &why))
        throw Failure(path, why);
}

/// A text with the characters escaped that a line does not take.
static std::string oneline(std::string_view text)
{
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && text.substr(i + 1, 1) == "\n")
            continue;
        if (text[i] == '\r' || text[i] == '\n')
            line += "\\n";
        else
            line += text[i];
    }
    return line;
}

static std::string quoted(std::string_view text)
{
    std::string json = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            json += '\\';
        if (static_cast<unsigned char>(c) < 0x20)
            fmt::format_to(std::back_inserter(json), "\\u{:04x}", static_cast<unsigned char>(c));
        else
            json += c;
    }
    return json + '"';
}

/// A number as JSON has it: infinities, what is no number and what is none have no digits.
static std::string jsonnumber(const std::string& value)
{
    return value.find_first_of("0123456789") != std::string::npos ? value : "null";
}

void KeyValues::addlist(std::string_view key, const std::vector<std::string>& texts)
{
    entries.push_back({std::string(key), texts, false, true});
}

void KeyValues::put(std::string_view key, std::string value, bool number)
{
    entries.push_back({std::string(key), {std::move(value)}, number, false});
}

std::string KeyValues::linetext() const
{
    std::string lines;
    for (const Entry& entry : entries)
        for (const std::string& value : entry.values)
            lines += entry.key + '=' + oneline(value) + '\n';
    return lines;
}

std::string KeyValues::jsontext() const
{
    std::string text = "{";
    for (const Entry& entry : entries) {
        std::vector<std::string> values;
        for (const std::string& value : entry.values)
            values.push_back(entry.number ? jsonnumber(value) : quoted(value));
        const std::string value = fmt::format("{}", fmt::join(values, ", "));
        fmt::format_to(std::back_inserter(text), "{}\n  \"{}\": {}", text.size() > 1 ? "," : "",
                       entry.key, entry.list ? '[' + value + ']' : value);
    }
    return text + (entries.empty() ? "}\n" : "\n}\n");
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
            fmt::format_to(std::back_inserter(text), "{}\"{}\": {}", column == 0 ? "" : ", ",
                           names[column], jsonnumber(rows[i][column]));
        }
        text += '}';
    }
    text += rows.empty() ? "]\n" : "\n]\n";
    return text;
}
