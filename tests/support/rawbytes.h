#pragma once

#include <cstring>
#include <string>
#include <string_view>

/// Little-endian bytes of a number, as files hold it.
template <typename T> std::string rawbytes(T value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

/// The number that stands at an offset.
template <typename T> T rawvalue(std::string_view bytes, std::size_t offset)
{
    T value{};
    std::memcpy(&value, bytes.substr(offset, sizeof value).data(), sizeof value);
    return value;
}

/// A 16-bit length and the characters.
inline std::string rawstring(std::string_view text)
{
    return rawbytes(static_cast<short>(text.size())) + std::string(text);
}
