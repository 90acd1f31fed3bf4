#pragma once

#include <string>
#include <string_view>

/// Mark of a file that this process makes: machine, start of the machine, process, and a number
/// that counts in the process, as "1a2b3c4d-5e6f7a8b-4711.123456-1". A later run tells from it
/// whether the maker is still there.
std::string processmark();

/// True for the mark of a process of this machine that has ended; false for a living one, for one
/// of another machine, and for a text that is no mark.
bool markofdead(std::string_view mark);
