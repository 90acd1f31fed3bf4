#pragma once

class QMdiArea;

/// Standard arrangements of the child windows, with their codes.
enum class Arrangement { cascade = 0, horizontal = 1, vertical = 2, icons = 3 };

/// Arranges the child windows that are not minimised (the icons: those that are).
///   horizontal  strips of the full width, one above the other
///   vertical    strips of the full height, side by side
void arrangewindows(QMdiArea& area, Arrangement arrangement);
