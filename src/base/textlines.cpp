#include "base/textlines.h"

#include <algorithm>

std::string_view takeline(std::string_view& text)
{
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    const std::size_t ending = text.substr(end, 2) == "\r\n" ? 2 : 1;
    text.remove_prefix(std::min(end + ending, text.size()));
    return line;
}

/// A character as it is searched; a blank stands for "as it is", a capital for two letters.
static constexpr std::string_view folded80 = "          s O z  ''       s O zy";
static constexpr std::string_view foldedC0 = "aaaaaaAceeeeiiiidnooooo ouuuuyTS";
static_assert(folded80.size() == 32 && foldedC0.size() == 32);

static char folded(unsigned char c)
{
    constexpr unsigned char upper = 0x20; // from a capital's number to that of its small letter
    if (c >= 'A' && c <= 'Z')
        return static_cast<char>(c + upper);
    if (c < 0x80)
        return static_cast<char>(c);
    char letter = ' ';
    if (c < 0xA0)
        letter = folded80[c - 0x80U];
    else if (c >= 0xC0)
        letter = c == 0xFF ? 'y' : foldedC0[c & 0x1FU];
    return letter == ' ' ? static_cast<char>(c) : letter;
}

std::string foldedtext(std::string_view ansi)
{
    std::string text;
    text.reserve(ansi.size());
    for (const char c : ansi) {
        const char letter = folded(static_cast<unsigned char>(c));
        if (static_cast<unsigned char>(c) < 0x80 || letter < 'A' || letter > 'Z')
            text += letter;
        else
            text += letter == 'A' ? "ae" : letter == 'O' ? "oe" : letter == 'T' ? "th" : "ss";
    }
    return text;
}
