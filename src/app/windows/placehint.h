#pragma once

#include <QFrame>

/// A line at the foot of the picture area that tells how the first station is placed. It is shown
/// while a picture can carry stations and none has a place yet, until the user closes it.
class PlaceHint : public QFrame
{
    Q_OBJECT

public:
    explicit PlaceHint(QWidget* area);

    /// Shows or hides itself as pictures and stations are now.
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void settle();

    bool dismissed = false;
};
