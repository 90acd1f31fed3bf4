#pragma once

#include "pictures/paint/openpictures.h"

#include <QWidget>

/// Shows a picture's surface pixel by pixel, sharp at every scale of the screen, with the marks of
/// its window over it.
class SurfaceView : public QWidget
{
    Q_OBJECT
public:
    SurfaceView(const OpenPicture& shown, QWidget* parent);

    /// Nothing more is shown: the picture is gone.
    void release() { picture = nullptr; }

signals:
    /// What the mouse did over the surface; positions are those of the widget.
    void pressed(QMouseEvent* event);
    void moved(QMouseEvent* event);
    void released(QMouseEvent* event);
    void doubleclicked(QMouseEvent* event);
    /// The surface got or lost the keyboard.
    void focused(bool on);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const OpenPicture* picture;
};
