#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

/// Reads little-endian values from a span of outside bytes. A read beyond the end fails, reads
/// nothing, and leaves its target as it was; every later read fails too.
class ByteReader
{
public:
    explicit ByteReader(std::span<const std::byte> source) : bytes(source) {}

    template <typename T> bool read(T& value)
    {
        static_assert(std::is_trivially_copyable_v<T>);
        return readblock(&value, sizeof(T));
    }
    bool readblock(void* target, std::size_t size)
    {
        if (bad || size > left()) {
            bad = true;
            return false;
        }
        if (size > 0)
            std::memcpy(target, bytes.data() + offset, size);
        offset += size;
        return true;
    }
    /// A 16-bit length and that many bytes; a negative length fails.
    bool readstring(std::string& text);
    bool skip(std::size_t size);

    std::size_t position() const { return offset; }
    std::size_t left() const { return bytes.size() - offset; }
    bool failed() const { return bad; }

private:
    std::span<const std::byte> bytes;
    std::size_t offset = 0;
    bool bad = false;
};

/// Collects little-endian values in the order of writing.
class ByteWriter
{
public:
    template <typename T> void write(const T& value)
    {
        static_assert(std::is_trivially_copyable_v<T>);
        writeblock(&value, sizeof(T));
    }
    void writeblock(const void* source, std::size_t size)
    {
        bytes.append(static_cast<const char*>(source), size);
    }
    /// A 16-bit length and the bytes; cut at 32767.
    void writestring(std::string_view text);

    const std::string& data() const { return bytes; }

private:
    std::string bytes;
};

static_assert(std::endian::native == std::endian::little, "file records are copied as they stand");
