#pragma once

#include <cerrno>
#include <fcntl.h>
#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>

/// An open file of the system that closes itself.
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

/// Writes all parts one after the other; false, and errno, where one cannot be written.
inline bool writeall(int handle, std::span<const std::string_view> parts)
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

/// Makes new and changed names in the folder of a path last through a crash. A folder that cannot
/// be flushed is no failure of the write.
inline void flushfolder(const std::string& path)
{
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const OpenFile handle(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY);
    if (handle.good())
        ::fsync(handle.get());
}
