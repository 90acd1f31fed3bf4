#pragma once

#include <vector>

/// Numbers from low to below high, `step` apart.
inline std::vector<double> even(double low, double high, double step)
{
    std::vector<double> row;
    for (int i = 0; low + i * step < high; ++i)
        row.push_back(low + i * step);
    return row;
}

/// Numbers from low to below high, each `factor` times the one before.
inline std::vector<double> growing(double low, double high, double factor)
{
    std::vector<double> row{low};
    while (row.back() * factor < high)
        row.push_back(row.back() * factor);
    return row;
}
