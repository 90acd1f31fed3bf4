#include "terrain/szdd.h"

#include "base/paths.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mspack.h>

namespace
{
// The library reads and writes through a table of procedures; these keep both ends in memory. The
// "file names" that it hands back are not looked at: it opens one file to read and one to write.
struct MemoryFile : mspack_file {
    std::span<const std::byte> source;  ///< of the file to read
    std::string* target = nullptr;      ///< of the file to write
    const std::size_t* limit = nullptr; ///< most bytes of the target
    std::size_t position = 0;
};

struct MemorySystem : mspack_system {
    std::span<const std::byte> input;
    std::string output;
    std::size_t limit = 0;
};

MemoryFile* memoryfile(mspack_file* file)
{
    return static_cast<MemoryFile*>(file);
}

mspack_file* openmemory(mspack_system* self, const char*, int mode)
{
    auto* const system = static_cast<MemorySystem*>(self);
    auto file = std::make_unique<MemoryFile>();
    if (mode == MSPACK_SYS_OPEN_READ)
        file->source = system->input;
    else
        file->target = &system->output;
    file->limit = &system->limit;
    return file.release();
}

void closememory(mspack_file* file)
{
    delete memoryfile(file);
}

int readmemory(mspack_file* from, void* buffer, int bytes)
{
    MemoryFile* const file = memoryfile(from);
    if (bytes < 0)
        return -1;
    const std::size_t count =
        std::min(static_cast<std::size_t>(bytes), file->source.size() - file->position);
    if (count > 0)
        std::memcpy(buffer, file->source.data() + file->position, count);
    file->position += count;
    return static_cast<int>(count);
}

int writememory(mspack_file* to, void* buffer, int bytes)
{
    MemoryFile* const file = memoryfile(to);
    if (file->target == nullptr || bytes < 0)
        return -1;
    // Bytes behind the stream come out as more content than there is: it goes nowhere.
    const std::size_t room = *file->limit - file->target->size();
    file->target->append(static_cast<const char*>(buffer),
                         std::min(static_cast<std::size_t>(bytes), room));
    return bytes;
}

int seekmemory(mspack_file* in, off_t offset, int mode)
{
    MemoryFile* const file = memoryfile(in);
    const auto size = static_cast<off_t>(file->source.size());
    off_t from = 0;
    if (mode == MSPACK_SYS_SEEK_CUR)
        from = static_cast<off_t>(file->position);
    else if (mode == MSPACK_SYS_SEEK_END)
        from = size;
    if (from + offset < 0 || from + offset > size)
        return -1;
    file->position = static_cast<std::size_t>(from + offset);
    return 0;
}

off_t tellmemory(mspack_file* file)
{
    return static_cast<off_t>(memoryfile(file)->position);
}

void nomessage(mspack_file*, const char*, ...) {}

void* allocate(mspack_system*, std::size_t bytes)
{
    return std::malloc(bytes);
}

void copybytes(void* source, void* target, std::size_t bytes)
{
    std::memcpy(target, source, bytes);
}

MemorySystem memorysystem(std::span<const std::byte> input, std::size_t limit)
{
    MemorySystem system{};
    system.open = openmemory;
    system.close = closememory;
    system.read = readmemory;
    system.write = writememory;
    system.seek = seekmemory;
    system.tell = tellmemory;
    system.message = nomessage;
    system.alloc = allocate;
    system.free = std::free;
    system.copy = copybytes;
    system.input = input;
    system.limit = limit;
    return system;
}
} // namespace

std::optional<std::string> expandbytes(std::span<const std::byte> compressed, std::size_t limit)
{
    MemorySystem system = memorysystem(compressed, limit);
    const std::unique_ptr<msszdd_decompressor, decltype(&mspack_destroy_szdd_decompressor)>
        decompressor(mspack_create_szdd_decompressor(&system), mspack_destroy_szdd_decompressor);
    if (decompressor == nullptr)
        return {};
    msszddd_header* const header = decompressor->open(decompressor.get(), "");
    if (header == nullptr)
        return {};
    const off_t length = header->length;
    const bool fits = length >= 0 && static_cast<std::size_t>(length) <= limit;
    system.limit = fits ? static_cast<std::size_t>(length) : 0;
    // How it ends is told by the length alone: what stands behind the stream may be anything.
    if (fits)
        decompressor->extract(decompressor.get(), header, "");
    decompressor->close(decompressor.get(), header);
    if (!fits || system.output.size() != system.limit)
        return {};
    return std::move(system.output);
}

std::optional<std::string> expand(std::string_view srcdir, std::string_view srcname,
                                  std::size_t limit)
{
    const auto path = findfile(std::string(srcdir) + std::string(srcname));
    if (!path)
        return {};
    // Data that do not compress grow by an eighth, and there is a header.
    const auto compressed = readfile(*path, limit + limit / 8 + 64);
    if (!compressed)
        return {};
    return expandbytes(asbytes(*compressed), limit);
}
