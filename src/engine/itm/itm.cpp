#include "engine/itm/itm.h"

#include "engine/itm/itmkernel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

extern const itm::Kernel itmkernel_sse2;
extern const itm::Kernel itmkernel_avx2;
extern const itm::Kernel itmkernel_avx512;

const itm::Kernel* const* itm::kernels()
{
    static const std::array<const Kernel*, 4> list = [] {
        std::array<const Kernel*, 4> found{};
        std::size_t count = 0;
        if (__builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512vl") != 0)
            found[count++] = &itmkernel_avx512;
        if (__builtin_cpu_supports("avx2") != 0)
            found[count++] = &itmkernel_avx2;
        found[count] = &itmkernel_sse2;
        return found;
    }();
    return list.data();
}

namespace
{

constexpr int blockintervals = 160; // paths up to this length work without the heap
constexpr std::size_t padding = itm::kernelpadding;

bool ispath(std::span<const double> elevations, double step_m)
{
    constexpr std::size_t most = 1U << 24; // more samples than any map has along its diagonal
    return elevations.size() >= 2 && elevations.size() <= most && step_m > 0 &&
           std::isfinite(step_m);
}

double heldstep(double step_m)
{
    return std::clamp(step_m, 1e-3, 1e6);
}

ItmResult nopath()
{
    ItmResult none;
    none.loss_db = itmnopath_db;
    none.region = ItmRegion::diffraction;
    return none;
}

/// Runs `work` on room for `size` numbers, on the stack where they are few.
template <class Work> ItmResult withroom(std::size_t size, std::size_t few, Work work)
{
    constexpr std::size_t onstack = 9 * (blockintervals + 2 + padding);
    if (size <= onstack && size <= few) {
        double room[onstack];
        return work(room);
    }
    std::vector<double> room(size);
    return work(room.data());
}

} // namespace

ItmResult itmpath(std::span<const double> elevations_m, double step_m, const ItmInput& in)
{
    if (!ispath(elevations_m, step_m))
        return nopath();
    const int last = static_cast<int>(elevations_m.size()) - 1;
    const itm::Kernel& kernel = *itm::kernels()[0];
    return withroom(elevations_m.size() + padding, 9 * (blockintervals + 2 + padding),
                    [&](double* room) {
                        if (!kernel.take(elevations_m.data(), last + 1, room))
                            return nopath();
                        ItmResult out;
                        kernel.path(room, last, heldstep(step_m), in, out);
                        return out;
                    });
}

ItmResult itmradial(std::span<const double> elevations_m, double step_m, const ItmInput& in,
                    int first, std::span<double> losses_db)
{
    const int last = static_cast<int>(elevations_m.size()) - 1;
    first = std::clamp(first, 0, std::max(last, 0));
    for (int i = first; i <= last; ++i)
        losses_db[static_cast<std::size_t>(i)] = 0;
    if (!ispath(elevations_m, step_m))
        return nopath();
    const itm::Kernel& kernel = *itm::kernels()[0];
    const std::size_t copy = elevations_m.size() + padding;
    const std::size_t size = copy + static_cast<std::size_t>(itm::kernelroom(last));
    return withroom(size, size, [&](double* room) {
        if (!kernel.take(elevations_m.data(), last + 1, room))
            return nopath();
        ItmResult out;
        kernel.radial(room, last, heldstep(step_m), in, std::max(first, 1), losses_db.data(),
                      room + copy, out);
        return out;
    });
}
