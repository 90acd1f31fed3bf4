#pragma once

#include <cstddef>
#include <functional>

/// Number of threads for parallel blocks; 0 (the default) takes all cores.
void setthreads(int count);

/// Calls body(first, last) for consecutive blocks of [0, count), on all threads. The split must not
/// change results: a body writes only what belongs to its own indices.
///   grain: least number of indices worth a block
void parallelblocks(std::size_t count, std::size_t grain,
                    const std::function<void(std::size_t first, std::size_t last)>& body);
