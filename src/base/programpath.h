#pragma once

#include <string>
#include <string_view>

/// A folder that lies `relative` to the folder of the running program's file, as
/// "../share/velmora/", without "." and ".." in it. Where the system does not tell the program's
/// file, the same relative to the current folder.
std::string besideprogram(std::string_view relative);
