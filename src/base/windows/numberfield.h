#pragma once

#include <QLineEdit>

/// A field for a number. It refuses nothing: a text out of bounds turns red, and the value is held
/// within them.
class NumberField : public QLineEdit
{
    Q_OBJECT

public:
    NumberField(const QString& name, double lo, double hi, QWidget* parent);

    void setbounds(double lo, double hi);
    /// Shows a number in general notation.
    void setnumber(float number);
    /// The text as a number held within the bounds.
    double value() const;
    /// The text as a number, as typed.
    double typed() const;

private:
    void recolour();

    double low;
    double high;
};
