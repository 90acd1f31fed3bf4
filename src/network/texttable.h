#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Walks the rows of a text whose fields stand between separators, in quotes where they contain
/// one, a quote (doubled) or a line end. The text is UTF-8, with or without its mark, or else
/// Windows-1252. Rows without any text are passed over. A quote that nothing closes spoils its own
/// line only.
class TextTable
{
public:
    static constexpr std::size_t mostfields = 256; ///< kept of a row; more are counted

    /// text: stays where it is while the table lives
    TextTable(std::string_view text, char separator);

    /// Goes to the next row; false at the end.
    bool next();

    std::span<const std::string> fields() const { return row; } ///< UTF-8
    std::size_t count() const { return fieldcount; }
    /// Number of fields to the last one that is not blank.
    std::size_t filled() const { return lastfilled; }
    std::size_t line() const { return rowline; } ///< on which the row begins, from 1
    bool openquote() const { return open; }

private:
    bool takerow();
    bool takefield(std::string& field);
    void keepfield(std::string& field);

    std::string_view rest;
    std::string stops;
    bool utf8;
    std::vector<std::string> row;
    std::size_t fieldcount = 0;
    std::size_t lastfilled = 0;
    std::size_t rowline = 0;
    std::size_t nextline = 1;
    bool open = false;
};
