#include "coverage/windows/coveragefields.h"

#include "app/base/numbers.h"

#include <QColorDialog>
#include <QPainter>

#include <algorithm>

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

QGroupBox* azimuthbox(const QString& title, const std::array<QString, 3>& captions,
                      SweepFields& fields, QWidget* parent)
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(title, form, parent);
    fields.azmin = new NumberField(QStringLiteral("azmin"), 0, 359.9, box);
    fields.azmax = new NumberField(QStringLiteral("azmax"), 0, 360, box);
    fields.step = new NumberField(QStringLiteral("step"), 0.1, 10, box);
    form->addRow(captions[0], fields.azmin);
    form->addRow(captions[1], fields.azmax);
    form->addRow(captions[2], fields.step);
    return box;
}

QGroupBox* rangebox(const QString& title, const std::array<QString, 2>& captions,
                    SweepFields& fields, QWidget* parent)
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(title, form, parent);
    fields.rmin = new NumberField(QStringLiteral("rmin"), 0.1, 1000, box);
    fields.rmax = new NumberField(QStringLiteral("rmax"), 1, 1000, box);
    form->addRow(captions[0], fields.rmin);
    form->addRow(captions[1], fields.rmax);
    return box;
}

void showsweep(const CoverageParams& params, const SweepFields& fields)
{
    fields.azmin->setnumber(params.azmin);
    fields.azmax->setnumber(params.azmax);
    fields.step->setnumber(params.azstep);
    fields.rmin->setnumber(params.rangemin);
    fields.rmax->setnumber(params.rangemax);
}

void takesweep(const SweepFields& fields, CoverageParams& params)
{
    params.azmin = static_cast<float>(fields.azmin->value());
    params.azmax = static_cast<float>(fields.azmax->value());
    params.azstep = static_cast<float>(fields.step->value());
    params.rangemin = static_cast<float>(fields.rmin->value());
    params.rangemax = static_cast<float>(fields.rmax->value());
}

void fillstations(QComboBox& list, int selected)
{
    list.clear();
    for (std::size_t i = 1; i <= MAXUNIT; ++i)
        list.addItem(QString::fromStdString(network.units[i].name.text()));
    list.setCurrentIndex(selected - 1);
    list.setMaxVisibleItems(20);
}

void fillnets(QComboBox& list, const std::vector<int>& nets, const QString& none)
{
    list.clear();
    for (const int n : nets)
        list.addItem(QString::fromStdString(network.nets[static_cast<std::size_t>(n)].name.text()),
                     n);
    if (list.count() == 0)
        list.addItem(none, 0);
    list.setCurrentIndex(std::max(0, list.findData(selection.linknet)));
}

QPushButton* namedbutton(const QString& name, const QString& caption, QWidget* parent)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QGroupBox* formbox(const QString& title, QFormLayout*& form, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return box;
}
