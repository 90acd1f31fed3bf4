#pragma once

#include <QLineEdit>

/// Shows a field's text in red, the palette's own, or as any other text.
void showinred(QLineEdit& field, bool red);

/// A field for a number, typed with a decimal point or comma. It refuses nothing: a text out of
/// bounds turns red, and the value is held within them. A field that is only read is never red.
class NumberField : public QLineEdit
{
    Q_OBJECT

public:
    NumberField(const QString& name, double lo, double hi, QWidget* parent);

    /// Least and largest number that the field takes; it is red outside.
    void setbounds(double lo, double hi);
    /// Shows a number in general notation.
    void setnumber(float number);
    /// The text as a number held within the bounds.
    double value() const;
    /// The text as a number, as typed.
    double typed() const;
    /// What was typed lies within the bounds.
    bool inbounds() const;

private:
    void recolour();

    double low;
    double high;
};
