#pragma once

#include <string>

/// A cell of one degree: its south-west corner, the longitude in -180 .. 179, and its level.
struct ImportCell {
    int lon = 0;
    int lat = 0;
    int level = 1;

    // The checker takes the comparison with zero that the language makes here for a null pointer.
    auto operator<=>(const ImportCell&) const = default; // NOLINT(modernize-use-nullptr)

    /// Lines of longitude. Towards the poles there are fewer, by the zones of the standard.
    int columns() const;
    /// Samples of each.
    int rows() const;
    double spacingx() const { return 1.0 / (columns() - 1); } ///< degrees
    double spacingy() const { return 1.0 / (rows() - 1); }    ///< degrees
    /// Name below the folder, as "DTED/E001/N41.DT1".
    std::string name() const;
};
