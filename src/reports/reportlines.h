#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A piece of a report's line. Columns count characters from 1; the colour counts on the screen.
struct ReportPiece {
    int column = 1;
    std::string text;        ///< UTF-8
    std::int32_t colour = 0; ///< 0x00BBGGRR
    bool operator==(const ReportPiece&) const = default;
};

/// A line of a report, pieces in the order of writing.
using ReportLine = std::vector<ReportPiece>;
using ReportLines = std::vector<ReportLine>;

/// Number of characters of a UTF-8 text.
int charactercount(const std::string& text);

/// Collects the lines of a report as it is written: texts follow each other, `tab` moves to a
/// column of the line. A move to a column already passed stays where the line is, so that nothing
/// is overwritten.
class ReportWriter
{
public:
    /// Writes a UTF-8 text where the line is, in a colour (0xBBGGRR).
    void write(const std::string& text, std::int32_t colour = 0);
    /// Moves to a column, counted from 1.
    void tab(int column);
    /// Ends the line, then `count` - 1 empty ones.
    void endline(int count = 1);
    /// `tab`, then `write`.
    void writeat(int column, const std::string& text, std::int32_t colour = 0);
    /// A whole line.
    void line(const std::string& text);

    /// The lines so far; one that is still open counts.
    const ReportLines& lines() const { return collected; }

private:
    ReportLines collected{1};
    int next = 1; ///< column of the next character
};

/// The lines as a text with blanks up to each column and CR LF at the line ends.
std::string reporttext(const ReportLines& lines);

/// Width of the widest line, characters.
int reportwidth(const ReportLines& lines);
