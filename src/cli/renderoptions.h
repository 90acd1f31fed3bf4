#pragma once

#include "pictures/paint/openpictures.h"

#include <CLI/App.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The files of a picture, and drawing values that replace the map's own.
struct RenderOptions {
    std::string picture; ///< may be empty where a command has figures too
    std::string geotiff, kml;
    std::optional<std::int16_t> mode;
    std::optional<float> contrast, brightness, floor, ceiling, light;
    std::optional<std::vector<int>> contours;
    bool cities = false;
    bool legend = false;
};

///   pictureneeded   false: -o may be left out
void addoptions(CLI::App& parser, RenderOptions& options, bool pictureneeded = true);

/// A UsageError where two of the files that the options name, or that go with them, are one.
void checkfiles(const RenderOptions& options);

/// Puts the options' values into the process's map and colour table.
void applyoptions(const RenderOptions& options);

/// Makes painting possible: fonts need the toolkit's application, which needs no display here. The
/// network's own pictures stay closed.
void startpainting();

/// Writes the files that the options name, or throws Failure.
///   alone   what goes into GeoTIFF and KML instead of the whole picture; null: the picture
void writefiles(const OpenPicture& picture, const RenderOptions& options,
                const QImage* alone = nullptr);

/// True when one of the files is standard output.
bool takesoutput(const RenderOptions& options);
