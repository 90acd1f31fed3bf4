#include "base/textcodec.h"

#include "base/numbers.h"

#include <algorithm>
#include <cstdint>

/// Characters of the bytes 128 to 159; all other bytes are their own number.
static constexpr std::array<char16_t, 32> upperchars{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

static void appendutf8(std::string& text, char16_t c)
{
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (c >> 12));
        text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    }
}

/// What stands for a byte that belongs to no character.
static constexpr char32_t malformed = 0x110000;

/// Takes one character off the front of a text.
static char32_t takecharacter(std::string_view& text)
{
    const auto lead = static_cast<std::uint8_t>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    if (lead < 0xC2 || lead > 0xF4)
        return malformed;
    const std::size_t more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    constexpr std::array<std::uint8_t, 4> leadmask{0, 0x1F, 0x0F, 0x07};
    char32_t c = lead & leadmask[more];
    if (text.size() < more)
        return malformed;
    for (std::size_t i = 0; i < more; ++i) {
        const auto next = static_cast<std::uint8_t>(text[i]);
        if ((next & 0xC0) != 0x80)
            return malformed;
        c = c << 6 | (next & 0x3F);
    }
    text.remove_prefix(more);
    return c;
}

static char ansibyte(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c < 0x100))
        return static_cast<char>(c);
    const auto* found = std::find(upperchars.begin(), upperchars.end(), c);
    return found == upperchars.end() ? '?' : static_cast<char>(0x80 + (found - upperchars.begin()));
}

std::string fromansi(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint8_t>(byte);
        const bool upper = code >= 0x80 && code < 0xA0;
        appendutf8(text, upper ? upperchars[code - 0x80U] : char16_t{code});
    }
    return text;
}

bool isutf8(std::string_view text)
{
    while (!text.empty())
        if (takecharacter(text) == malformed)
            return false;
    return true;
}

std::string toansi(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty())
        bytes += ansibyte(takecharacter(text));
    return bytes;
}

std::string fixedtext(std::string_view bytes)
{
    return trimmed(fromansi(bytes));
}
