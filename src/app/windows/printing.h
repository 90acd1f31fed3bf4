#pragma once

class QPrinter;
struct OpenPicture;

/// Paints a picture on one page of a printer that stands as the user has set it.
void printpage(QPrinter& printer, const OpenPicture& picture);

/// Shows how a picture comes out on paper; from there it is printed, or written as PDF.
void previewpicture(const OpenPicture& picture);
