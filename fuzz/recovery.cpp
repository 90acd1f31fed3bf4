// A recovery copy: what is taken from one is a whole network.

#include "network/recovery.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto net = parserecovery(std::as_bytes(std::span(data, size)));
    if (!net)
        return 0;
    NetworkTables tables = defaulttables();
    NetFile file;
    if (parsenet(std::as_bytes(std::span(net->bytes)), tables, file) != NetStatus::ok)
        std::abort();
    if (net->bytes.size() + net->netfile.size() > size || net->stations > MAXUNIT)
        std::abort();
    return 0;
}
