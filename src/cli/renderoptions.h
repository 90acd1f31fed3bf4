#pragma once

#include "pictures/paint/openpictures.h"

#include <CLI/App.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Drawing values that replace the map's own.
struct RenderOptions {
    std::string picture;
    std::optional<std::int16_t> mode;
    std::optional<float> contrast, brightness, floor, ceiling, light;
    std::optional<std::vector<int>> contours;
    bool cities = false;
    bool legend = false;
};

void addoptions(CLI::App& parser, RenderOptions& options);

/// Puts the options' values into the process's map and colour table.
void applyoptions(const RenderOptions& options);

/// Makes painting possible: fonts need the toolkit's application, which needs no display here. The
/// network's own pictures stay closed.
void startpainting();

/// Writes a picture with its sidecar, or throws Failure.
void write(const OpenPicture& picture, const std::string& path);
