#include "relief/windows/frmColors.h"

#include "base/paint/colour.h"
#include "base/windows/boxes.h"
#include "base/windows/colourbutton.h"
#include "base/windows/numberfield.h"
#include "relief/windows/scalestrip.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>

#include <limits>

namespace
{

constexpr int ramps = 4;

QString numbered(const char* name, std::size_t number)
{
    return QString::fromLatin1(name) + QString::number(number);
}

/// The ten colours of a ramp side by side.
QIcon rampicon(int number, const QSize& size)
{
    const auto ramp = colorramp(number);
    QImage image(static_cast<int>(ramp.size()) - 2, 1, QImage::Format_RGB32);
    for (int x = 0; x < image.width(); ++x)
        image.setPixelColor(x, 0, colorof(ramp[static_cast<std::size_t>(x) + 1]));
    return QPixmap::fromImage(image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

} // namespace

frmColors::frmColors(const ColorEdit& edit, float floor, float ceiling, QWidget* parent)
    : QDialog(parent), edited(edit), floor_m(floor), ceiling_m(ceiling)
{
    setObjectName(QStringLiteral("frmColors"));
    setWindowTitle(QStringLiteral("Couleurs arc-en-ciel"));
    auto* row = new QHBoxLayout;
    row->setSpacing(24);
    row->addLayout(makescale());
    row->addLayout(maketools());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(16);
    column->addLayout(row);
    column->addLayout(makebuttons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    showvalues();
    refresh();
    values.back()->setFocus();
}

/// The scale, high ground on top: a colour beside the level at which it begins.
QLayout* frmColors::makescale()
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(2);
    auto* caption =
        new QLabel(edited.signal ? QStringLiteral("Signal") : QStringLiteral("Altitude (m)"), this);
    caption->setObjectName(QStringLiteral("caption"));
    grid->addWidget(caption, 0, 0, 1, 3);
    for (std::size_t i = colourbuttons.size(); i-- > 0;) {
        const int row = static_cast<int>(colourbuttons.size() - i);
        grid->addWidget(i > 0 ? makevalue(i - 1) : makebelow(), row, 0);
        grid->addWidget(makecolour(i), row, 1);
    }
    strip = new ScaleStrip(this);
    grid->addWidget(strip, 1, 2, static_cast<int>(colourbuttons.size()), 1);
    return grid;
}

QWidget* frmColors::makevalue(std::size_t index)
{
    using limits = std::numeric_limits<std::int16_t>;
    auto* field = values[index] =
        new NumberField(numbered("value", index), limits::min(), limits::max(), this);
    field->setReadOnly(edited.signal);
    field->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("-00000.00")) + 12);
    connect(field, &QLineEdit::textChanged, this, [this, index] { valuechanged(index); });
    return field;
}

QWidget* frmColors::makebelow()
{
    below = new QLabel(this);
    below->setObjectName(QStringLiteral("below"));
    below->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return below;
}

QWidget* frmColors::makecolour(std::size_t index)
{
    auto* button = colourbuttons[index] = new ColourButton(this);
    button->setObjectName(numbered("colour", index));
    button->setAccessibleName(numbered("Couleur ", index));
    connect(button, &ColourButton::changed, this, [this, index](std::int32_t colour) {
        edited.colortable[index] = colour;
        refresh();
    });
    return button;
}

void frmColors::addramps(QVBoxLayout& column)
{
    const QSize iconsize(fontMetrics().height() * 5, fontMetrics().height());
    for (int number = 1; number <= ramps; ++number) {
        auto* button = namedbutton(numbered("ramp", static_cast<std::size_t>(number)),
                                   QStringLiteral("Couleurs %1").arg(number), this);
        button->setIcon(rampicon(number, iconsize));
        button->setIconSize(iconsize);
        connect(button, &QPushButton::clicked, this, [this, number] { loadramp(number); });
        column.addWidget(button);
    }
}

void frmColors::addscales(QVBoxLayout& column)
{
    auto* relative =
        namedbutton(QStringLiteral("relative"), QStringLiteral("Échelle relative"), this);
    auto* absolute =
        namedbutton(QStringLiteral("absolute"), QStringLiteral("Échelle absolue"), this);
    connect(relative, &QPushButton::clicked, this, [this] {
        relativescale(edited, floor_m, ceiling_m);
        showvalues();
    });
    connect(absolute, &QPushButton::clicked, this, [this] {
        fixedscale(edited);
        showvalues();
    });
    for (QPushButton* button : {relative, absolute}) {
        button->setEnabled(!edited.signal);
        column.addWidget(button);
    }
}

QLayout* frmColors::maketools()
{
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    addramps(*column);
    column->addSpacing(12);
    addscales(*column);
    column->addSpacing(12);
    stratified =
        namedcheck(QStringLiteral("stratified"), QStringLiteral("Couleurs statifiées"), this);
    stratified->setChecked(edited.stratified);
    stratified->setEnabled(!edited.signal);
    legend = namedcheck(QStringLiteral("legend"), QStringLiteral("Montrer légende"), this);
    legend->setChecked(edited.showlegend);
    connect(stratified, &QCheckBox::toggled, this, &frmColors::refresh);
    column->addWidget(stratified);
    column->addWidget(legend);
    column->addStretch();
    return column;
}

QLayout* frmColors::makebuttons()
{
    auto* apply = namedbutton(QStringLiteral("apply"), QStringLiteral("Appliquer"), this);
    auto* keep = namedbutton(QStringLiteral("keep"), QStringLiteral("Appliquer et garder"), this);
    auto* cancel = namedbutton(QStringLiteral("cancel"), QStringLiteral("Annuler"), this);
    apply->setDefault(true);
    connect(apply, &QPushButton::clicked, this, [this] { store(!edited.signal); });
    // Also the levels of a signal are kept: the file has one list of levels.
    connect(keep, &QPushButton::clicked, this, [this] {
        store(true);
        savecolors();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : {apply, keep, cancel})
        row->addWidget(button);
    return row;
}

void frmColors::loadramp(int number)
{
    edited.colortable = colorramp(number);
    refresh();
}

void frmColors::showvalues()
{
    const auto texts = edited.values; // the fields write theirs back while they are filled
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i]->setText(QString::fromStdString(texts[i]));
    valuechanged(0);
}

void frmColors::valuechanged(std::size_t index)
{
    edited.values[index] = values[index]->text().toStdString();
    if (index == 0)
        below->setText(QStringLiteral("< ") + values[index]->text());
}

void frmColors::store(bool withlevels)
{
    edited.stratified = stratified->isChecked();
    edited.showlegend = legend->isChecked();
    applycolors(edited, withlevels, colours);
    accept();
}

void frmColors::refresh()
{
    for (std::size_t i = 0; i < colourbuttons.size(); ++i)
        colourbuttons[i]->setcolour(edited.colortable[i]);
    strip->show(edited.colortable, stratified->isChecked());
}
