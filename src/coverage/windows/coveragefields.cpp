#include "coverage/windows/coveragefields.h"

#include "app/base/numbers.h"

#include <QColorDialog>
#include <QPainter>

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

SwatchButton::SwatchButton(const QString& name, QWidget* parent)
    : QPushButton(QStringLiteral("Couleur"), parent)
{
    setObjectName(name);
    setAutoDefault(false);
    setMinimumWidth(sizeHint().width() + 28);
}

void SwatchButton::setcolour(std::int32_t colour)
{
    shown = colour;
    update();
}

void SwatchButton::choose()
{
    const QColor chosen =
        QColorDialog::getColor(QColor(shown & 255, shown >> 8 & 255, shown >> 16 & 255), this);
    if (chosen.isValid())
        setcolour(chosen.red() | chosen.green() << 8 | chosen.blue() << 16);
}

void SwatchButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    const int side = height() - 14;
    QColor fill(shown & 255, shown >> 8 & 255, shown >> 16 & 255);
    if (!isEnabled())
        fill.setAlpha(70);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.setBrush(fill);
    painter.drawRect(8, 7, side, side);
}

void fillstations(QComboBox& list, int selected)
{
    list.clear();
    for (std::size_t i = 1; i <= MAXUNIT; ++i)
        list.addItem(QString::fromStdString(network.units[i].name.text()));
    list.setCurrentIndex(selected - 1);
    list.setMaxVisibleItems(20);
}

QGroupBox* formbox(const QString& title, QFormLayout*& form, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return box;
}
