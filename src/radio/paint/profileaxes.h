#pragma once

#include "radio/paint/linkpicture.h"

class QPainter;
class QString;

/// Lines of equal elevation behind a profile: they follow the earth's curve.
void paintelevations(const LinkStudy& study, const QSizeF& size, QPainter& painter);
/// Ticks and figures of a profile: m at the left, km at the bottom; the stations' names.
void paintaxes(const LinkStudy& study, const QSizeF& size, QPainter& painter);

/// Ticks and figures in km along the bottom of a graph with a profile's horizontal scale.
void paintdistances(const LinkStudy& study, const QSizeF& size, const QColor& ink,
                    QPainter& painter);

/// A tick at the left of an upright axis with its figure, narrower where the margin is.
void paintfigure(double axis, double y, const QString& text, QPainter& painter);
/// A text there without a tick.
void paintunit(double axis, double y, const QString& text, QPainter& painter);
