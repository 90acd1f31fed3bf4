#pragma once

#include <string>
#include <sys/stat.h>

/// Gives an open file the owner, group, permissions, access list and extended attributes of another
/// one, as far as the system allows. True when nothing of these would be lost by putting it in the
/// other one's place.
///   old     path of the file that has them
///   status  its status
///   handle  the file that is to have them
bool copyattributes(const std::string& old, const struct stat& status, int handle);
