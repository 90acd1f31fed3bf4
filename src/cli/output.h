#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Writes a result to standard output. Throws Failure when it cannot take all of it.
void printresult(std::string_view text);

/// A number as text: the fewest digits that read back the same number.
std::string cell(int value);
std::string cell(float value);
std::string cell(double value);

/// Lines of the form key=value.
class KeyValues
{
public:
    /// A text; its line ends are written as \n, so that a value is always one line.
    void add(std::string_view key, std::string_view text);
    void add(std::string_view key, int value) { add(key, cell(value)); }
    void add(std::string_view key, float value) { add(key, cell(value)); }
    void add(std::string_view key, double value) { add(key, cell(value)); }

    /// The lines so far.
    const std::string& text() const { return lines; }

private:
    std::string lines;
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
