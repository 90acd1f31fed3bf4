#include "base/fileattributes.h"
#include "base/hooks.h"
#include "base/inplace.h"
#include "base/openfile.h"
#include "base/paths.h"
#include "base/temporaryfile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

namespace fs = std::filesystem;

static std::optional<struct stat> regularstatus(const OpenFile& file)
{
    struct stat status = {};
    if (!file.good() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return status;
}

std::optional<std::string> readfile(const std::string& path, std::size_t limit)
{
    const OpenFile file(path, O_RDONLY | O_NONBLOCK);
    const auto status = regularstatus(file);
    if (!status)
        return std::nullopt;
    std::string content(std::min(static_cast<std::size_t>(status->st_size), limit), '\0');
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t got = ::read(file.get(), content.data() + done, content.size() - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break; // it became shorter meanwhile
        done += static_cast<std::size_t>(got);
    }
    content.resize(done);
    return content;
}

static thread_local bool lost = false;

bool attributeslost()
{
    return lost;
}

std::string lostnote()
{
    return lost ? ", sans garder son propriétaire, ses droits ou ses liens" : "";
}

/// True for the reasons for which a folder, or the name's place in it, takes no new file, though
/// the file itself may be written.
static bool folderrefuses(int reason)
{
    return reason == EACCES || reason == EPERM || reason == EROFS || reason == EBUSY ||
           reason == ENAMETOOLONG;
}

using Parts = std::span<const std::string_view>;

/// Writes a new file beside the target, and renames it. 0 or the system's error number.
static int finish(TemporaryFile& file, const std::string& target, Parts parts)
{
    return writeall(file.get(), parts) ? file.replace(target) : errno;
}

static int newfile(const std::string& target, Parts parts)
{
    constexpr mode_t usual = 0666; // less what the user's mask takes
    TemporaryFile file(target, usual);
    return file.good() ? finish(file, target, parts) : file.error();
}

/// Replaces a file by a new one with all that belongs to it but its bytes; one that would lose
/// something by that is written in place.
static int replacefile(const std::string& target, Parts parts, const struct stat& old)
{
    constexpr mode_t own = 0600; // until it has the old one's
    const bool linked = old.st_nlink > 1;
    if (linked)
        if (const auto reason = writeinplace(target, parts))
            return *reason;
    int reason = 0;
    {
        TemporaryFile file(target, own);
        lost = file.good() && (!copyattributes(target, old, file.get()) || linked);
        if (lost && !linked)
            if (const auto written = writeinplace(target, parts)) {
                lost = false;
                return *written;
            }
        reason = file.good() ? finish(file, target, parts) : file.error();
    }
    return folderrefuses(reason) ? writeinplace(target, parts).value_or(reason) : reason;
}

/// Writes to something that is no file and cannot be replaced, such as a device or a pipe.
static int writedirectly(const std::string& target, Parts parts)
{
    OpenFile file(target, O_WRONLY);
    return file.good() && writeall(file.get(), parts) && file.close() ? 0 : errno;
}

/// Where a chain of symbolic links leads, to a missing file too; a ring of links leads nowhere.
static std::string linktarget(const std::string& path)
{
    fs::path target = path;
    std::error_code error;
    for (int links = 0; links < 40 && fs::is_symlink(target, error); ++links)
        target = target.parent_path() / fs::read_symlink(target, error);
    return target.string();
}

static int writetarget(const std::string& path, Parts parts)
{
    const std::string target = linktarget(path);
    struct stat old = {};
    if (::stat(target.c_str(), &old) != 0)
        return errno == ENOENT ? newfile(target, parts) : errno;
    if (S_ISDIR(old.st_mode))
        return EISDIR;
    if (::access(target.c_str(), W_OK) != 0)
        return errno;
    return S_ISREG(old.st_mode) ? replacefile(target, parts, old) : writedirectly(target, parts);
}

bool writefile(const std::string& path, std::span<const std::string_view> parts, std::string* why)
{
    lost = false;
    const int reason = path.empty() ? ENOENT : writetarget(path, parts);
    if (reason != 0 && why != nullptr)
        *why = std::generic_category().message(reason);
    if (reason == 0 && lost)
        hooks.attributeslost(path);
    return reason == 0;
}

bool writefile(const std::string& path, std::string_view content, std::string* why)
{
    return writefile(path, std::span(&content, 1), why);
}
