// The model on any bytes as a record, a profile and its length: every result is finite, and nothing
// but what the call may write is written.

#include "engine/itm/lr.h"

#include "engine/itm/itm.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

using Block = std::array<double, lrblocksize>;

static void require(bool condition)
{
    if (!condition)
        std::abort();
}

static void block(const std::uint8_t* data, std::size_t size)
{
    LRRecord rec{};
    Block prof{};
    Block losses;
    losses.fill(-7);
    std::memcpy(&rec, data, std::min(size, sizeof rec));
    if (size > sizeof rec)
        std::memcpy(prof.data(), data + sizeof rec, std::min(size - sizeof rec, sizeof prof));
    LR(prof.data(), losses.data(), &rec);
    for (const double value :
         {rec.loss, rec.dl1, rec.dl2, rec.the1, rec.the2, rec.gme, rec.lfree, rec.lobst})
        require(std::isfinite(value));
    for (const double loss : losses)
        require(std::isfinite(loss));
    for (std::size_t i = 0; i < 3; ++i)
        require(losses[i] == -7);
}

/// A profile of sixteen-bit elevations, longer than a block holds.
static void longradial(const std::uint8_t* data, std::size_t size)
{
    std::vector<double> z;
    for (std::size_t i = 0; i + 1 < std::min<std::size_t>(size, 4000); i += 2)
        z.push_back(static_cast<std::int16_t>(data[i] | data[i + 1] << 8));
    std::vector<double> losses(z.size(), -7);
    ItmInput in;
    in.freq_mhz = size % 2 == 0 ? 150 : 7000;
    const double step = 10.0 + static_cast<double>(size % 200);
    const ItmResult whole = itmradial(z, step, in, 0, losses);
    require(std::isfinite(whole.loss_db));
    for (const double loss : losses)
        require(std::isfinite(loss));
    if (z.size() >= 2)
        require(std::abs(itmpath(z, step, in).loss_db - losses.back()) < 1e-6);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    block(data, size);
    longradial(data, size);
    return 0;
}
