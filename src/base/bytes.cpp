#include "base/bytes.h"

#include <algorithm>

bool ByteReader::readstring(std::string& text)
{
    std::int16_t length = 0;
    if (!read(length))
        return false;
    if (length < 0 || static_cast<std::size_t>(length) > left()) {
        bad = true;
        return false;
    }
    text.assign(static_cast<std::size_t>(length), '\0');
    return readblock(text.data(), text.size());
}

bool ByteReader::skip(std::size_t size)
{
    if (bad || size > left()) {
        bad = true;
        return false;
    }
    offset += size;
    return true;
}

void ByteWriter::writestring(std::string_view text)
{
    const std::size_t length = std::min<std::size_t>(text.size(), INT16_MAX);
    write(static_cast<std::int16_t>(length));
    writeblock(text.data(), length);
}
