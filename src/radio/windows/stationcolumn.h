#pragma once

#include "radio/linkfields.h"

#include <QGroupBox>
#include <QStringList>

class NumberField;
class QLabel;

/// Data of one end of a link: five texts, and the height of its antenna, which can be typed.
class StationColumn : public QGroupBox
{
    Q_OBJECT

public:
    StationColumn(const QString& name, const QStringList& captions, QWidget* parent);

    /// Shows a station's data, with the height selected for typing.
    void showfields(const StationFields& fields);

signals:
    /// "Appliquer" was pressed, or Enter in the box.
    void applied(const QString& height);

private:
    QList<QLabel*> rows;
    NumberField* height;
};
