// A .net file: whatever its bytes, what a complete reading took is written back unchanged.

#include "network/netfile.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    static const NetworkTables defaults = defaulttables();
    NetworkTables tables = defaults;
    NetFile file;
    netbeginning(bytes);
    const NetStatus status = parsenet(bytes, tables, file);
    findunit(tables, tables.units[MAXUNIT].name.text());
    if (status != NetStatus::ok || file.older)
        return 0;
    const std::string written = netbytes(tables, file.mapname, file.pictures);
    if (written.size() > size || std::memcmp(written.data(), data, written.size()) != 0)
        std::abort();
    return 0;
}
