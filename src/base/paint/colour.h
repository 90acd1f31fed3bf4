#pragma once

#include <QColor>

#include <cstdint>

/// A colour as files hold it, 0x00BBGGRR, for painting; and back.
QColor colorof(std::int32_t colour);
std::int32_t colourvalue(const QColor& colour);
