#pragma once

#include "pictures/picture.h"

#include <QImage>

#include <string>

/// An image of any kind that the toolkit reads (BMP, GIF, JPEG, PNG), as opaque 32-bit; a null
/// image when it cannot be loaded.
QImage readraster(const std::string& path);

/// Reads what lies beside a raster into its picture: the sidecar, or else its older form.
void readcompanion(const std::string& raster, Picture& picture);

/// Writes an image as a Windows bitmap of 24 bits, as a whole or not at all.
bool writebmp(const std::string& path, const QImage& image, std::string* why = nullptr);

/// Writes an image and its sidecar without asking. False, and `why`, on an error.
bool writepicture(const std::string& path, const QImage& image, const Picture& picture,
                  std::string* why = nullptr);
