#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// Windows-1252 bytes to UTF-8. Every byte has a character (the five undefined ones keep their
/// number as a control character), so that what was read is written back unchanged.
std::string fromansi(std::string_view bytes);

/// UTF-8 to Windows-1252. A character that the code page lacks becomes "?".
std::string toansi(std::string_view text);

/// True for a text of whole UTF-8 characters, as one of ASCII alone is.
bool isutf8(std::string_view text);

/// A fixed field of a record, as it stands in files: Windows-1252 bytes, blank padded.
template <std::size_t N> struct FixedText {
    std::array<char, N> bytes{};

    FixedText() { bytes.fill(' '); }
    explicit FixedText(std::string_view utf8) { assign(utf8); }

    /// Takes a UTF-8 text: cut at the field's width, padded with blanks.
    void assign(std::string_view utf8)
    {
        bytes.fill(' ');
        toansi(utf8).copy(bytes.data(), N);
    }
    /// The text as it is shown: UTF-8, without the padding.
    std::string text() const;
    bool operator==(const FixedText&) const = default;
};

/// UTF-8 of a padded field without the blanks and NULs around it.
std::string fixedtext(std::string_view bytes);

template <std::size_t N> std::string FixedText<N>::text() const
{
    return fixedtext({bytes.data(), N});
}
