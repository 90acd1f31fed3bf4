#pragma once

/// A page turned on its side holds a picture of this size better.
bool printslandscape(int width, int height);

/// Size of a picture on a page, in the page's own units; it lies in the page's upper left corner.
struct PrintSize {
    double width = 0;
    double height = 0;
};

/// The picture takes the page's whole width, or its whole height, and keeps its shape; what lies
/// beyond the page is cut off. Which of the two, the texts of both shapes decide, compared
/// character by character.
///   width, height          of the picture, pixels
///   pagewidth, pageheight  of what the printer can paint on
PrintSize printsize(int width, int height, double pagewidth, double pageheight);
