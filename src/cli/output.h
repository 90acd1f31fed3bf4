#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Stands for standard input or output in the place of a file's name.
inline constexpr const char* standardstream = "-";

/// Writes a result to standard output. Throws Failure when it cannot take all of it.
void printresult(std::string_view text);

/// Figures about a file that is written: to standard output, or to standard error where the file
/// itself goes to standard output.
void printfigures(std::string_view text, bool streamtaken);

/// Writes a file of one stream, or throws Failure; "-" is standard output.
void writestream(const std::string& path, std::string_view bytes);

/// A sentence for the user on standard error, in the form of the failures; the work goes on.
void remark(std::string_view what, std::string_view sentence);

/// A number as text: the fewest digits that read back the same number.
std::string cell(int value);
std::string cell(float value);
std::string cell(double value);

/// Values under keys, printed as lines of the form key=value or as one JSON object.
class KeyValues
{
public:
    /// A text. In a line its line ends are written as \n, so that a value is always one line.
    void add(std::string_view key, std::string_view text) { put(key, std::string(text), false); }
    void add(std::string_view key, int value) { put(key, cell(value), true); }
    void add(std::string_view key, float value) { put(key, cell(value), true); }
    void add(std::string_view key, double value) { put(key, cell(value), true); }
    /// No value: nothing behind the equals sign, null in JSON.
    void addnone(std::string_view key) { put(key, "", true); }
    /// A line for each text; in JSON an array, also of none.
    void addlist(std::string_view key, const std::vector<std::string>& texts);

    /// The lines so far, or one JSON object.
    std::string text(bool json = false) const { return json ? jsontext() : linetext(); }

private:
    struct Entry {
        std::string key;
        std::vector<std::string> values;
        bool number; ///< what has no digits is null in JSON
        bool list;
    };
    void put(std::string_view key, std::string value, bool number);
    std::string linetext() const;
    std::string jsontext() const;

    std::vector<Entry> entries;
};

/// A table of numbers, printed as CSV with a header line or as a JSON array of objects. An empty
/// cell is null in JSON, as is what JSON has no number for.
class NumberTable
{
public:
    explicit NumberTable(std::vector<std::string> columns) : names(std::move(columns)) {}

    /// Adds a row, a cell per column.
    void add(std::vector<std::string> row) { rows.push_back(std::move(row)); }

    /// The whole table, in UTF-8.
    std::string text(bool json) const { return json ? jsontext() : csvtext(); }

private:
    std::string csvtext() const;
    std::string jsontext() const;

    std::vector<std::string> names;
    std::vector<std::vector<std::string>> rows;
};
