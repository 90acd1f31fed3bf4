#include "base/fileattributes.h"

#include <string_view>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr std::string_view accesslist = "system.posix_acl_access";

/// Names of the extended attributes of a file; none where its file system has none.
std::vector<std::string> attributenames(const std::string& path)
{
    const ssize_t size = ::listxattr(path.c_str(), nullptr, 0);
    if (size <= 0)
        return {};
    std::string list(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::listxattr(path.c_str(), list.data(), list.size());
    std::vector<std::string> names;
    for (std::size_t at = 0; got > 0 && at < static_cast<std::size_t>(got);) {
        names.emplace_back(list.c_str() + at);
        at += names.back().size() + 1;
    }
    return names;
}

bool copyattribute(const std::string& old, const std::string& name, int handle)
{
    const ssize_t size = ::getxattr(old.c_str(), name.c_str(), nullptr, 0);
    if (size < 0)
        return false;
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = ::getxattr(old.c_str(), name.c_str(), value.data(), value.size());
    return got == size && ::fsetxattr(handle, name.c_str(), value.data(), value.size(), 0) == 0;
}

/// Labels of the system's own, which it gives to new files by its own rules.
bool systemlabel(std::string_view name)
{
    return name.starts_with("security.") || name.starts_with("trusted.");
}

bool copyextended(const std::string& old, int handle)
{
    bool all = true;
    bool listed = false;
    for (const std::string& name : attributenames(old)) {
        listed = listed || name == accesslist;
        all = (copyattribute(old, name, handle) || systemlabel(name)) && all;
    }
    if (!listed) // a new file may have one from its folder
        ::fremovexattr(handle, std::string(accesslist).c_str());
    return all;
}
/// Gives owner and group, or the group alone where the owner is not ours to give.
bool giveowner(int handle, const struct stat& status)
{
    return ::fchown(handle, status.st_uid, status.st_gid) == 0 ||
           ::fchown(handle, static_cast<uid_t>(-1), status.st_gid) == 0;
}
} // namespace

bool copyattributes(const std::string& old, const struct stat& status, int handle)
{
    constexpr mode_t permissions = 07777;
    struct stat now = {};
    if (::fstat(handle, &now) != 0)
        return false;
    if (now.st_uid != status.st_uid || now.st_gid != status.st_gid)
        giveowner(handle, status);
    const bool extended = copyextended(old, handle);
    const mode_t mode = status.st_mode & permissions;
    const bool refused = ::fchmod(handle, mode) != 0;
    // A file system without permissions refuses them, and shows the same ones for all files.
    if (::fstat(handle, &now) != 0)
        return !refused && extended;
    return now.st_uid == status.st_uid && now.st_gid == status.st_gid &&
           (now.st_mode & permissions) == mode && extended;
}
