#pragma once

#include "support/rawbytes.h"

#include <string>

/// Bytes of the map record, every field with a value of its own.
inline std::string recordbytes(float lon = -84.25F)
{
    return rawbytes(lon) + rawbytes(36.5F) + rawbytes(31.5F) + rawbytes(short{3}) +
           rawbytes(41.0F) + rawbytes(42.0F) + rawbytes(43.0F) + rawbytes(44.0F) + rawbytes(45.0F) +
           "\x01\x02" + rawbytes(236.0F) + rawbytes(1076.0F) + rawbytes(401.5F) + "\x05T";
}

/// Bytes of the corners and the flag of the cities.
inline std::string framebytes()
{
    std::string bytes;
    for (const float corner : {-85.0F, -83.0F, -83.0F, -85.0F, 37.0F, 37.0F, 36.0F, 36.0F})
        bytes += rawbytes(corner);
    return bytes + rawbytes(short{-1});
}

/// A map of 3 x 2 samples, 100 to 105, in the current format.
inline std::string currentmap()
{
    std::string bytes = std::string("\x00\x40\x9C\x45", 4) + rawbytes(3) + rawbytes(2) +
                        recordbytes() + framebytes();
    for (short sample = 100; sample < 106; ++sample)
        bytes += rawbytes(sample);
    return bytes;
}

/// A map of the older format, with one height everywhere.
inline std::string oldermap(float lon, float height = 12, const std::string& source = "Dted")
{
    std::string bytes = recordbytes(lon) + std::string(20, 'u') + rawstring("one") + rawstring("") +
                        rawstring(source);
    for (int i = 0; i < 513 * 513; ++i)
        bytes += rawbytes(height);
    return bytes;
}

/// Where the heights of `oldermap` begin.
inline constexpr std::size_t olderheights = 50 + 20 + 5 + 2 + 6;
