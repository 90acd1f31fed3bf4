#include "base/windows/numberfield.h"

#include "base/numbers.h"
#include "base/paint/colour.h"

void showinred(QLineEdit& field, bool red)
{
    QPalette colours = field.palette();
    const QPalette plain;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor warning = readablered(plain.color(group, QPalette::Base));
        colours.setColor(group, QPalette::Text, red ? warning : plain.color(group, QPalette::Text));
    }
    field.setPalette(colours);
}

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
    return typednumber(text().toStdString());
}

bool NumberField::inbounds() const
{
    return checkfield(low, high, text().toStdString()).inbounds;
}

void NumberField::recolour()
{
    showinred(*this, !isReadOnly() && !inbounds());
}
