#pragma once

#include "pictures/paint/openpictures.h"

#include <QImage>

#include <string>

/// What goes to the clipboard of a picture.
struct CopiedPicture {
    QImage image;
    std::string text; ///< its place, as `copytext` writes it
};

/// The picture with what is drawn over it; where a selection is shown, that part as a picture of
/// its own, and the selection is hidden.
CopiedPicture copypicture(OpenPicture& picture);

/// Puts an image in the place of a picture's own, with the place that the text beside it tells.
///   text  of the clipboard; empty where it has none
void pastepic(OpenPicture& picture, const QImage& image, const std::string& text);
