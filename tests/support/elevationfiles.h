#pragma once

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <functional>
#include <string>

/// Elevation files of all three kinds, made from a function of the sample's place.
namespace elevationfiles
{
/// Height of a sample; the meaning of row 0 is that of the format.
using Heights = std::function<int(int column, int row)>;

inline void addword(std::string& bytes, unsigned word, bool bigendian)
{
    const auto low = static_cast<char>(word & 0xFF);
    const auto high = static_cast<char>(word >> 8 & 0xFF);
    bytes += bigendian ? high : low;
    bytes += bigendian ? low : high;
}

/// A DTED cell. Row 0 is the south one.
struct DtedCell {
    int columns = 1201;
    int rows = 1201;
    int tenthsx = 30; ///< spacing of columns, tenths of an arc second
    int tenthsy = 30;
    Heights height = [](int, int) { return 0; };
    bool checksums = true;
};

inline unsigned signmagnitude(int height)
{
    return height < 0 ? 0x8000U | static_cast<unsigned>(-height) : static_cast<unsigned>(height);
}

inline std::string dtedlabel(const DtedCell& cell)
{
    std::string label =
        fmt::format("UHL10010000E0410000N{:04}{:04}NA  U  ", cell.tenthsx, cell.tenthsy);
    label += std::string(47 - label.size(), ' ');
    label += fmt::format("{:04}{:04}0", cell.columns, cell.rows);
    return label + std::string(80 - label.size(), ' ');
}

inline std::string dtedbytes(const DtedCell& cell)
{
    std::string bytes = dtedlabel(cell) + std::string(648 + 2700, ' ');
    for (int column = 0; column < cell.columns; ++column) {
        std::string record("\xAA\0", 2);
        addword(record, static_cast<unsigned>(column), true);
        addword(record, static_cast<unsigned>(column), true);
        addword(record, 0, true);
        for (int row = 0; row < cell.rows; ++row)
            addword(record, signmagnitude(cell.height(column, row)), true);
        unsigned sum = 0;
        for (const char byte : record)
            sum += static_cast<unsigned char>(byte);
        addword(record, cell.checksums ? sum >> 16 : 0, true);
        addword(record, cell.checksums ? sum & 0xFFFF : 0, true);
        bytes += record;
    }
    return bytes;
}

/// Rows of 16-bit samples. Row 0 stands first.
inline std::string rasterbytes(int columns, int rows, const Heights& height, bool bigendian)
{
    std::string bytes;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            addword(bytes, static_cast<unsigned>(height(column, row)) & 0xFFFF, bigendian);
    return bytes;
}

/// A content in the SZDD form, each byte as it stands.
inline std::string szddbytes(const std::string& content)
{
    std::string bytes("SZDD\x88\xF0\x27\x33"
                      "A\0",
                      10);
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(content.size() >> shift & 0xFF);
    for (std::size_t i = 0; i < content.size(); i += 8)
        bytes += '\xFF' + content.substr(i, 8);
    return bytes;
}

/// A tile of 121 x 121 samples in the SZDD form. Row 0 is the south one.
inline std::string terrainbytes(const Heights& height)
{
    return szddbytes(rasterbytes(121, 121, height, false));
}

inline void write(const std::filesystem::path& path, const std::string& bytes)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

/// Bilinear height at a place between samples, straight from the definition.
inline double bilinear(const Heights& height, double column, double row)
{
    const int i = static_cast<int>(std::floor(column));
    const int j = static_cast<int>(std::floor(row));
    const double u = column - i;
    const double v = row - j;
    const int right = u > 0 ? i + 1 : i;
    const int upper = v > 0 ? j + 1 : j;
    return (1 - u) * (1 - v) * height(i, j) + u * (1 - v) * height(right, j) +
           (1 - u) * v * height(i, upper) + u * v * height(right, upper);
}

/// Uneven ground: every sample differs from its neighbours, some lie below the sea.
inline int roughground(int column, int row)
{
    const double hills = 450 * std::sin(column * 0.13) * std::cos(row * 0.11);
    return static_cast<int>(hills) + (column * 7 + row * 13) % 41 - 20;
}
} // namespace elevationfiles
