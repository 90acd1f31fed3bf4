#include "base/windows/numberfield.h"

#include "base/numbers.h"

NumberField::NumberField(const QString& name, double lo, double hi, QWidget* parent)
    : QLineEdit(parent), low(lo), high(hi)
{
    setObjectName(name);
    setAlignment(Qt::AlignRight);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000.000")) + 16);
    connect(this, &QLineEdit::textChanged, this, &NumberField::recolour);
}

void NumberField::setbounds(double lo, double hi)
{
    low = lo;
    high = hi;
    recolour();
}

void NumberField::setnumber(float number)
{
    setText(QString::fromStdString(generalnumber(number)));
}

double NumberField::value() const
{
    return checkfield(low, high, text().toStdString()).value;
}

double NumberField::typed() const
{
    return leadingnumber(text().toStdString());
}

void NumberField::recolour()
{
    QPalette colours = palette();
    const bool inbounds = checkfield(low, high, text().toStdString()).inbounds;
    colours.setColor(QPalette::Text, inbounds ? QColor(Qt::black) : QColor(255, 0, 0));
    setPalette(colours);
}
