#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

/// Files put together byte by byte, without the program's own writers: three stations on a plain of
/// 41 by 31 cells of 1 km, 1/64 degree apart, with one ridge.
namespace handmade
{
inline constexpr int width = 41;
inline constexpr int height = 31;
inline constexpr float west = 8;
inline constexpr float south = 44;
inline constexpr int ridge = 15; ///< column
inline constexpr std::int16_t plain_m = 120;
inline constexpr std::int16_t ridge_m = 180;

template <typename T> void put(std::string& bytes, T value)
{
    char raw[sizeof(T)];
    std::memcpy(raw, &value, sizeof(T));
    bytes.append(raw, sizeof(T));
}

inline void puttext(std::string& bytes, const std::string& text)
{
    put(bytes, static_cast<std::int16_t>(text.size()));
    bytes += text;
}

inline void putfield(std::string& bytes, std::string text, std::size_t size)
{
    text.resize(size, ' ');
    bytes += text;
}

inline void putunit(std::string& bytes, float lon, float lat, float elevation,
                    const std::string& name)
{
    put(bytes, lon);
    put(bytes, lat);
    put(bytes, elevation);
    put(bytes, std::int16_t{-1}); // enabled
    put(bytes, std::int16_t{0});  // transparent
    put(bytes, std::int32_t{0xFFFFFF});
    put(bytes, std::int32_t{0});
    putfield(bytes, name, 20);
}

/// Stations, systems and nets. The names are Windows-1252.
inline void puttables(std::string& bytes, float eastsign)
{
    const float cell = 1.0F / 64;
    putunit(bytes, eastsign * (west + 5 * cell), south + 10 * cell, 120, "Tour");
    putunit(bytes, eastsign * (west + 25 * cell), south + 10 * cell, 120.5F, "Ch\xE2teau");
    putunit(bytes, eastsign * (west + 5 * cell), south + 22 * cell, 120, "Pont");
    for (int unit = 4; unit <= 50; ++unit)
        putunit(bytes, 0, 0, 0, "");
    for (int system = 1; system <= 25; ++system) {
        for (const float value : {25.0F, -110.0F, 1.0F, 3.0F, 15.0F})
            put(bytes, value);
        putfield(bytes, "", 30);
    }
    for (int net = 1; net <= 25; ++net) {
        std::string members(50, '\0');
        if (net == 2)
            members[0] = members[1] = members[2] = '\x80';
        bytes += members;
        bytes += std::string(50, '\x01');
        put(bytes, 144.0F);
        put(bytes, 148.0F);
        put(bytes, std::int16_t{1});
        for (const float value : {15.0F, 0.005F, 301.0F})
            put(bytes, value);
        put(bytes, std::int16_t{5});
        put(bytes, std::int16_t{3});
        for (const float value : {50.0F, 50.0F, 50.0F})
            put(bytes, value);
        put(bytes, std::int16_t{0});
        put(bytes, std::int16_t{256});
        putfield(bytes, net == 2 ? "Secours" : "", 30);
    }
}

/// A network of version 2000 over plain.map, with two pictures.
inline std::string network()
{
    std::string bytes("\x00\x00\xFA\x44", 4);
    puttables(bytes, 1);
    bytes += std::string(74, '\0'); // coverage settings
    puttext(bytes, "C:\\Cartes\\PLAIN.map");
    puttext(bytes, "c:\\images\\plaine.bmp");
    puttext(bytes, "\xE9t\xE9.bmp");
    put(bytes, std::int16_t{0});
    for (int unit = 1; unit <= 50; ++unit)
        for (int net = 1; net <= 25; ++net)
            put(bytes, net == 2 && unit == 3 ? 42.0F : 0.0F);
    bytes += std::string(50, '\xFF');
    return bytes;
}

/// The same stations and net from before version 2000, where west was positive.
inline std::string oldernetwork()
{
    std::string bytes;
    puttext(bytes, "plain.map");
    puttables(bytes, -1);
    return bytes;
}

inline std::int16_t ground(int x)
{
    return x == ridge ? ridge_m : plain_m;
}

/// The map record: centre, size, drawing values, statistics.
inline void putrecord(std::string& bytes, float lon, float lat, float size_km)
{
    put(bytes, lon);
    put(bytes, lat);
    put(bytes, size_km);
    put(bytes, std::int16_t{5});
    for (const float value : {30.0F, 70.0F, 0.0F, 0.0F, 335.0F})
        put(bytes, value);
    bytes += std::string(2, '\0');
    for (const float value : {120.0F, 180.0F, 121.5F})
        put(bytes, value);
    bytes += "\x04 ";
}

/// Longitudes, then latitudes: north-west, north-east, south-east, south-west.
inline std::array<float, 8> corners()
{
    const float east = west + (width - 1) / 64.0F;
    const float north = south + (height - 1) / 64.0F;
    return {west, east, east, west, north, north, south, south};
}

/// The plain in the current format: 30 km from south to north.
inline std::string map()
{
    std::string bytes("\x00\x40\x9C\x45", 4);
    put(bytes, std::int32_t{width});
    put(bytes, std::int32_t{height});
    const auto frame = corners();
    putrecord(bytes, (frame[0] + frame[1]) / 2, (frame[4] + frame[6]) / 2, 30);
    for (const float degrees : frame)
        put(bytes, degrees);
    put(bytes, std::int16_t{0});
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            put(bytes, ground(x));
    return bytes;
}

/// A map of the older format around the stations: 513 x 513 singles, west positive.
inline std::string oldermap()
{
    std::string bytes;
    putrecord(bytes, -8.25F, 44.25F, 80);
    bytes += std::string(20, '\0');
    puttext(bytes, "a");
    puttext(bytes, "");
    puttext(bytes, "T");
    for (int y = 0; y < 513; ++y)
        for (int x = 0; x < 513; ++x)
            put(bytes, 200.5F + static_cast<float>(y));
    return bytes;
}
} // namespace handmade
