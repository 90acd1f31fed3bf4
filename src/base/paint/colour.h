#pragma once

#include <QColor>

#include <cstdint>

/// A colour as files hold it, 0x00BBGGRR, for painting; and back.
QColor colorof(std::int32_t colour);
std::int32_t colourvalue(const QColor& colour);

/// Contrast of two opaque colours, 1 to 21, whichever comes first.
///   Source: WCAG 2.1, contrast ratio of relative luminances
double contrast(const QColor& a, const QColor& b);

/// The red that can be read on a background: pure red, made darker or paler until its contrast is
/// 4.5 (pure red on white has 4.0). On a background of middle lightness it comes as near as it can.
QColor readablered(const QColor& background);
