#include "terrain/outsidefile.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
class OpenFile
{
public:
    // Without O_NONBLOCK the opening of a pipe would wait for a writer.
    explicit OpenFile(const std::string& path)
        : handle(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile()
    {
        if (handle >= 0)
            close(handle);
    }

    /// Size of a regular file; empty for anything else.
    std::optional<std::uint64_t> size() const
    {
        struct stat status {
        };
        if (handle < 0 || fstat(handle, &status) != 0 || !S_ISREG(status.st_mode))
            return {};
        return static_cast<std::uint64_t>(status.st_size);
    }

    bool read(std::uint64_t offset, std::span<std::byte> target) const
    {
        while (!target.empty()) {
            const ssize_t count =
                pread(handle, target.data(), target.size(), static_cast<off_t>(offset));
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return false;
            target = target.subspan(static_cast<std::size_t>(count));
            offset += static_cast<std::uint64_t>(count);
        }
        return true;
    }

private:
    int handle;
};
} // namespace

std::optional<ByteSource> openbytes(const std::string& path)
{
    const auto file = std::make_shared<const OpenFile>(path);
    const auto size = file->size();
    if (!size)
        return {};
    return ByteSource{*size, [file](std::uint64_t offset, std::span<std::byte> target) {
                          return file->read(offset, target);
                      }};
}
