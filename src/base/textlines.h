#pragma once

#include <string>
#include <string_view>

/// Takes the next line off a text. A line ends at CR, LF, or both together.
std::string_view takeline(std::string_view& text);

/// A text of Windows-1252 bytes as it is searched: small letters without accents, "œ" as "oe".
std::string foldedtext(std::string_view ansi);
