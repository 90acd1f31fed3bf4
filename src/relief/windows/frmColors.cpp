#include "relief/windows/frmColors.h"

#include "base/paint/colour.h"
#include "base/windows/colourbutton.h"
#include "relief/windows/scalestrip.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

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

QPushButton* frmColors::makebutton(const QString& text, const char* name)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
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
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-00000.00")) + 12;
    for (std::size_t i = colourbuttons.size(); i-- > 0;) {
        const int row = static_cast<int>(colourbuttons.size() - i);
        QWidget* value = nullptr;
        if (i > 0) {
            auto* field = values[i - 1] = new QLineEdit(this);
            field->setObjectName(numbered("value", i - 1));
            field->setReadOnly(edited.signal);
            field->setFixedWidth(width);
            connect(field, &QLineEdit::textChanged, this, [this, i] { valuechanged(i - 1); });
            field->setAlignment(Qt::AlignRight);
            value = field;
        } else {
            value = below = new QLabel(this);
            below->setObjectName(QStringLiteral("below"));
            below->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
        auto* button = colourbuttons[i] = new ColourButton(this);
        button->setObjectName(numbered("colour", i));
        button->setAccessibleName(numbered("Couleur ", i));
        connect(button, &ColourButton::changed, this, [this, i](std::int32_t colour) {
            edited.colortable[i] = colour;
            refresh();
        });
        grid->addWidget(value, row, 0);
        grid->addWidget(button, row, 1);
    }
    strip = new ScaleStrip(this);
    grid->addWidget(strip, 1, 2, static_cast<int>(colourbuttons.size()), 1);
    return grid;
}

QLayout* frmColors::maketools()
{
    const QSize iconsize(fontMetrics().height() * 5, fontMetrics().height());
    auto* column = new QVBoxLayout;
    column->setSpacing(8);
    for (int number = 1; number <= ramps; ++number) {
        auto* button = makebutton(QStringLiteral("Couleurs %1").arg(number), "");
        button->setObjectName(numbered("ramp", static_cast<std::size_t>(number)));
        button->setIcon(rampicon(number, iconsize));
        button->setIconSize(iconsize);
        connect(button, &QPushButton::clicked, this, [this, number] { loadramp(number); });
        column->addWidget(button);
    }
    column->addSpacing(12);
    auto* relative = makebutton(QStringLiteral("Échelle relative"), "relative");
    auto* absolute = makebutton(QStringLiteral("Échelle absolue"), "absolute");
    connect(relative, &QPushButton::clicked, this, [this] {
        relativescale(edited, floor_m, ceiling_m);
        showvalues();
    });
    connect(absolute, &QPushButton::clicked, this, [this] {
        fixedscale(edited);
        showvalues();
    });
    column->addWidget(relative);
    column->addWidget(absolute);
    column->addSpacing(12);
    stratified = new QCheckBox(QStringLiteral("Couleurs statifiées"), this);
    stratified->setObjectName(QStringLiteral("stratified"));
    stratified->setChecked(edited.stratified);
    legend = new QCheckBox(QStringLiteral("Montrer légende"), this);
    legend->setObjectName(QStringLiteral("legend"));
    legend->setChecked(edited.showlegend);
    connect(stratified, &QCheckBox::toggled, this, &frmColors::refresh);
    column->addWidget(stratified);
    column->addWidget(legend);
    column->addStretch();
    for (QWidget* widget : std::initializer_list<QWidget*>{relative, absolute, stratified})
        widget->setEnabled(!edited.signal);
    return column;
}

QLayout* frmColors::makebuttons()
{
    auto* apply = makebutton(QStringLiteral("Appliquer"), "apply");
    auto* keep = makebutton(QStringLiteral("Appliquer et garder"), "keep");
    auto* cancel = makebutton(QStringLiteral("Annuler"), "cancel");
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
    QLineEdit* field = values[index];
    edited.values[index] = field->text().toStdString();
    if (index == 0)
        below->setText(QStringLiteral("< ") + field->text());
    bool inbounds = false;
    levelof(edited.values[index], inbounds);
    QPalette colour;
    if (!inbounds && !edited.signal)
        colour.setColor(QPalette::Text, QColor(255, 0, 0));
    field->setPalette(colour);
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
