#include "network/texttable.h"

#include "base/numbers.h"
#include "base/textcodec.h"
#include "base/textlines.h"

#include <algorithm>

TextTable::TextTable(std::string_view text, char separator)
    : rest(text), stops({separator, '\r', '\n'}), utf8(isutf8(text))
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (rest.starts_with(mark))
        rest.remove_prefix(mark.size());
    if (rest.starts_with("sep=")) { // how spreadsheets tell the separator
        takeline(rest);
        ++nextline;
    }
}

bool TextTable::next()
{
    do {
        if (rest.empty())
            return false;
        std::string_view taken = rest;
        rowline = nextline;
        open = !takerow();
        if (open) {
            rest = taken;
            takeline(rest);
        }
        taken.remove_suffix(rest.size());
        for (; !taken.empty(); ++nextline)
            takeline(taken);
    } while (lastfilled == 0 && !open);
    return true;
}

/// Takes a row off the text with its line end. False when a quote is not closed.
bool TextTable::takerow()
{
    row.clear();
    fieldcount = lastfilled = 0;
    std::string field;
    for (;;) {
        if (!takefield(field))
            return false;
        keepfield(field);
        if (rest.empty())
            return true;
        if (rest.front() != stops.front()) {
            takeline(rest);
            return true;
        }
        rest.remove_prefix(1);
    }
}

/// Takes a field off the text, up to what follows it. False when its quote is not closed.
bool TextTable::takefield(std::string& field)
{
    field.clear();
    if (rest.starts_with('"')) {
        do {
            rest.remove_prefix(1);
            const std::size_t end = rest.find('"');
            if (end == std::string_view::npos)
                return false;
            field.append(rest.substr(0, end));
            rest.remove_prefix(end + 1);
            if (rest.starts_with('"'))
                field += '"';
        } while (rest.starts_with('"'));
    }
    const std::size_t end = std::min(rest.find_first_of(stops), rest.size());
    field.append(rest.substr(0, end));
    rest.remove_prefix(end);
    return true;
}

void TextTable::keepfield(std::string& field)
{
    ++fieldcount;
    if (field.find_first_not_of(" \t") != std::string::npos)
        lastfilled = fieldcount;
    if (row.size() < mostfields)
        row.push_back(utf8 ? field : fromansi(field));
}
