#include "base/paths.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
/// An open file that closes itself.
class OpenFile
{
public:
    OpenFile(const std::string& path, int flags, mode_t mode = 0)
        : handle(::open(path.c_str(), flags | O_CLOEXEC, mode))
    {
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { close(); }

    int get() const { return handle; }
    bool good() const { return handle >= 0; }
    bool close()
    {
        const bool closed = handle < 0 || ::close(handle) == 0;
        handle = -1;
        return closed;
    }

private:
    int handle;
};
} // namespace

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

static bool writeall(int handle, std::span<const std::string_view> parts)
{
    for (std::string_view part : parts) {
        while (!part.empty()) {
            const ssize_t put = ::write(handle, part.data(), part.size());
            if (put < 0 && errno != EINTR)
                return false;
            part.remove_prefix(put < 0 ? 0 : static_cast<std::size_t>(put));
        }
    }
    return true;
}

/// A new name in the target's folder.
static std::string temporaryname(const std::string& target)
{
    static int counter = 0;
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    return folder + ".velmora-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) +
           ".tmp";
}

/// Makes a rename last through a crash. A folder that cannot be flushed is no failure of the write.
static void flushfolder(const std::string& target)
{
    const std::string folder = target.substr(0, target.rfind('/') + 1);
    const OpenFile handle(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (handle.good())
        ::fsync(handle.get());
}

/// Writes and renames; 0 or the system's error number.
static int replacefile(const std::string& target, std::span<const std::string_view> parts,
                       const struct stat* old)
{
    std::string temporary;
    for (int attempt = 0; attempt < 100; ++attempt) {
        temporary = temporaryname(target);
        OpenFile file(temporary, O_WRONLY | O_CREAT | O_EXCL, 0666);
        if (!file.good() && errno == EEXIST)
            continue; // left by a crashed run that had the same number
        if (!file.good())
            return errno;
        const bool modekept = old == nullptr || ::fchmod(file.get(), old->st_mode & 07777) == 0;
        if (modekept && writeall(file.get(), parts) && ::fsync(file.get()) == 0 && file.close() &&
            ::rename(temporary.c_str(), target.c_str()) == 0) {
            flushfolder(target);
            return 0;
        }
        const int reason = errno;
        ::unlink(temporary.c_str());
        return reason;
    }
    return EEXIST;
}

/// Writes to something that is no file and cannot be replaced, such as a device or a pipe.
static int writedirectly(const std::string& target, std::span<const std::string_view> parts)
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

static int writetarget(const std::string& path, std::span<const std::string_view> parts)
{
    const std::string target = linktarget(path);
    struct stat old = {};
    if (::stat(target.c_str(), &old) != 0)
        return errno == ENOENT ? replacefile(target, parts, nullptr) : errno;
    if (S_ISDIR(old.st_mode))
        return EISDIR;
    if (::access(target.c_str(), W_OK) != 0)
        return errno;
    return S_ISREG(old.st_mode) ? replacefile(target, parts, &old) : writedirectly(target, parts);
}

bool writefile(const std::string& path, std::span<const std::string_view> parts, std::string* why)
{
    const int reason = path.empty() ? ENOENT : writetarget(path, parts);
    if (reason != 0 && why != nullptr)
        *why = std::generic_category().message(reason);
    return reason == 0;
}

bool writefile(const std::string& path, std::string_view content, std::string* why)
{
    return writefile(path, std::span(&content, 1), why);
}
