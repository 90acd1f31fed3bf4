#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Writes over an existing file without replacing it, where its folder takes no new file or it has
/// several names. Until it is done a copy of what it held lies, flushed to the disk, in the user's
/// data folder; a write that fails puts the old bytes back. 0, or the system's error number;
/// nothing when no copy could be made: the file is then untouched.
std::optional<int> writeinplace(const std::string& target, std::span<const std::string_view> parts);

/// Copies that a crash in the middle of such a write has left, by their full paths. Their names
/// begin with that of the file whose old bytes they hold.
std::vector<std::string> interruptedcopies();
