#include "base/inplace.h"

#include "base/openfile.h"
#include "base/paths.h"
#include "base/processmark.h"
#include "base/temporaryfile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

static constexpr std::string_view copyending = ".copie";

static std::string copyfolder()
{
    return userfolder() + "copies/";
}

/// A flushed copy of a file's bytes in a new file; empty when it cannot be made.
static std::string makecopy(const std::string& target, std::string_view old)
{
    const std::string folder = copyfolder();
    std::error_code error;
    fs::create_directories(folder, error);
    std::string path = folder + nameof(target) + "." + processmark() + std::string(copyending);
    OpenFile copy(path, O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (!copy.good())
        return {};
    if (writeall(copy.get(), {&old, 1}) && ::fsync(copy.get()) == 0 && copy.close()) {
        flushfolder(path);
        return path;
    }
    ::unlink(path.c_str());
    return {};
}

/// 0 or the system's error number.
static int overwrite(int handle, std::span<const std::string_view> parts)
{
    off_t size = 0;
    for (const std::string_view part : parts)
        size += static_cast<off_t>(part.size());
    const bool written = ::lseek(handle, 0, SEEK_SET) == 0 && writeall(handle, parts) &&
                         ::ftruncate(handle, size) == 0 && ::fsync(handle) == 0;
    return written ? 0 : errno;
}

/// Takes the room on the disk that the new bytes need, so that a full one shows before the old ones
/// have gone. 0 or the system's error number; file systems that cannot tell say nothing.
static int reserve(int handle, std::size_t size)
{
    if (size == 0 || ::fallocate(handle, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0)
        return 0;
    return errno == ENOSPC || errno == EDQUOT || errno == EFBIG ? errno : 0;
}

std::optional<int> writeinplace(const std::string& target, std::span<const std::string_view> parts)
{
    const std::optional<std::string> old = readfile(target);
    if (!old)
        return std::nullopt;
    const OpenFile file(target, O_WRONLY);
    if (!file.good())
        return errno;
    std::size_t size = 0;
    for (const std::string_view part : parts)
        size += part.size();
    if (const int reason = reserve(file.get(), size); reason != 0) {
        const bool released = ::ftruncate(file.get(), static_cast<off_t>(old->size())) == 0;
        return released ? reason : errno;
    }
    const std::string copy = makecopy(target, *old);
    if (copy.empty())
        return std::nullopt;
    const HoldSignals hold;
    const std::string_view before = *old;
    const int reason = overwrite(file.get(), parts);
    // The copy stays where the old bytes could not be put back either.
    if (reason == 0 || overwrite(file.get(), {&before, 1}) == 0)
        ::unlink(copy.c_str());
    return reason;
}

std::vector<std::string> interruptedcopies()
{
    std::vector<std::string> copies;
    std::error_code error;
    fs::directory_iterator entry(copyfolder(), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string path = entry->path().string();
        if (!path.ends_with(copyending))
            continue;
        // The mark stands between the last two points but one: it holds a point itself.
        const std::string name = path.substr(0, path.size() - copyending.size());
        const std::size_t start = name.rfind('.');
        const std::size_t mark = start == std::string::npos ? start : name.rfind('.', start - 1);
        if (mark != std::string::npos && markofdead(std::string_view(name).substr(mark + 1)))
            copies.push_back(path);
    }
    std::sort(copies.begin(), copies.end());
    return copies;
}
