#include "reports/reportlines.h"

#include "base/numbers.h"

#include <algorithm>

int charactercount(const std::string& text)
{
    const auto leads = [](char byte) { return (byte & 0xC0) != 0x80; };
    return static_cast<int>(std::count_if(text.begin(), text.end(), leads));
}

void ReportWriter::write(const std::string& text, std::int32_t colour)
{
    if (text.empty())
        return;
    collected.back().push_back({next, text, colour});
    next += charactercount(text);
}

void ReportWriter::tab(int column)
{
    next = smax(next, column);
}

void ReportWriter::endline(int count)
{
    collected.resize(collected.size() + static_cast<std::size_t>(count));
    next = 1;
}

void ReportWriter::writeat(int column, const std::string& text, std::int32_t colour)
{
    tab(column);
    write(text, colour);
}

void ReportWriter::line(const std::string& text)
{
    write(text);
    endline();
}

std::string reporttext(const ReportLines& lines)
{
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0)
            text += "\r\n";
        int column = 1;
        for (const ReportPiece& piece : lines[i]) {
            text.append(static_cast<std::size_t>(smax(0, piece.column - column)), ' ');
            text += piece.text;
            column = piece.column + charactercount(piece.text);
        }
    }
    return text;
}

int reportwidth(const ReportLines& lines)
{
    int width = 0;
    for (const ReportLine& line : lines)
        if (!line.empty())
            width = smax(width, line.back().column - 1 + charactercount(line.back().text));
    return width;
}
