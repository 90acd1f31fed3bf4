// The making of the station editor's widgets.

#include "base/windows/boxes.h"
#include "base/windows/colourbutton.h"
#include "base/windows/numberfield.h"
#include "coordinates/geosys.h"
#include "network/windows/frmUnit.h"
#include "network/windows/samplelabel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>

#include <algorithm>

static QLabel* makelabel(const QString& caption, QWidget* buddy)
{
    auto* label = new QLabel(caption, buddy->parentWidget());
    label->setBuddy(buddy);
    return label;
}

void frmUnit::makewidgets()
{
    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addLayout(makelist());
    auto* right = new QVBoxLayout;
    right->setSpacing(12);
    right->addLayout(makefields());
    right->addWidget(makeposition());
    right->addStretch();
    columns->addLayout(right, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(14, 14, 14, 12);
    all->setSpacing(12);
    all->addLayout(columns, 1);
    all->addLayout(makebuttons());
}

QLayout* frmUnit::makelist()
{
    constexpr int letters = 22;
    list = new QListWidget(this);
    list->setObjectName(QStringLiteral("list"));
    list->setUniformItemSizes(true);
    list->setFixedWidth(fontMetrics().averageCharWidth() * letters + 40);
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    column->addWidget(makelabel(QStringLiteral("&Stations"), list));
    column->addWidget(list, 1);
    return column;
}

QLayout* frmUnit::makefields()
{
    name = new QLineEdit(this);
    name->setObjectName(QStringLiteral("name"));
    name->setMaxLength(20);
    elevation = new NumberField(QStringLiteral("elevation"), -999, 9999, this);
    elevation->setMaximumWidth(elevation->minimumWidth() + 16);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(1, 1);
    grid->addWidget(makelabel(QStringLiteral("&Nom"), name), 0, 0);
    grid->addWidget(name, 0, 1);
    grid->addWidget(makelabel(QStringLiteral("&Altitude (m)"), elevation), 1, 0);
    grid->addWidget(elevation, 1, 1, Qt::AlignLeft);
    grid->addLayout(makelabelfields(), 2, 1);
    sample = new SampleLabel(this);
    grid->addWidget(new QLabel(QStringLiteral("Exemple"), this), 3, 0);
    grid->addWidget(sample, 3, 1);
    iconcaption = new QLabel(this);
    iconcaption->setObjectName(QStringLiteral("iconcaption"));
    grid->addWidget(iconcaption, 4, 1);
    grid->addLayout(makeiconfields(), 5, 1);
    return grid;
}

/// The look of the station's label: two checks and two colours.
QLayout* frmUnit::makelabelfields()
{
    enabled = new QCheckBox(QStringLiteral("Ac&tivée"), this);
    enabled->setObjectName(QStringLiteral("enabled"));
    transparent = new QCheckBox(QStringLiteral("Trans&parente"), this);
    transparent->setObjectName(QStringLiteral("transparent"));
    forecolour = new ColourButton(this);
    forecolour->setObjectName(QStringLiteral("forecolour"));
    forecolour->setAccessibleName(QStringLiteral("Couleur"));
    backcolour = new ColourButton(this);
    backcolour->setObjectName(QStringLiteral("backcolour"));
    backcolour->setAccessibleName(QStringLiteral("Fond"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->addWidget(enabled, 0, 0);
    grid->addWidget(transparent, 1, 0);
    grid->addWidget(makelabel(QStringLiteral("&Couleur"), forecolour), 0, 1, Qt::AlignRight);
    grid->addWidget(forecolour, 0, 2);
    grid->addWidget(makelabel(QStringLiteral("&Fond"), backcolour), 1, 1, Qt::AlignRight);
    grid->addWidget(backcolour, 1, 2);
    grid->setColumnStretch(3, 1);
    return grid;
}

QLayout* frmUnit::makeiconfields()
{
    constexpr int most = noicon;    // a byte less the number that means no icon
    constexpr int previewside = 50; // pixels
    iconbar = new QSlider(Qt::Horizontal, this);
    iconbar->setObjectName(QStringLiteral("iconbar"));
    iconbar->setAccessibleName(QStringLiteral("Icône"));
    iconbar->setPageStep(1);
    iconbar->setMaximum(static_cast<int>(std::min<std::size_t>(icons.size(), most)));
    iconcaption->setBuddy(iconbar);
    iconimage = new QLabel(this);
    iconimage->setObjectName(QStringLiteral("iconimage"));
    iconimage->setFixedSize(previewside, previewside);
    iconimage->setAlignment(Qt::AlignCenter);
    auto* row = new QHBoxLayout;
    row->addWidget(iconbar, 1);
    row->addWidget(iconimage);
    return row;
}

QGroupBox* frmUnit::makeposition()
{
    auto* frame = new QGroupBox(QStringLiteral("Position"), this);
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(6);
    const auto line = [&](const char* id, const QString& called) {
        auto* label = new QLabel(frame);
        label->setObjectName(QString::fromLatin1(id));
        label->setAccessibleName(called);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        column->addWidget(label);
        return label;
    };
    position = line("position", QStringLiteral("Longitude et latitude"));
    locatorline = line("locator", QStringLiteral("Locator ou MGRS"));
    const auto button = [&](const char* id, const QString& caption, void (frmUnit::*action)()) {
        QPushButton* made = namedbutton(QString::fromLatin1(id), caption, frame);
        connect(made, &QPushButton::clicked, this, action);
        column->addWidget(made);
        return made;
    };
    button("gotostation", QStringLiteral("Placer le c&urseur à la position de la station"),
           &frmUnit::gotostation);
    button("gotocursor", QStringLiteral("P&lacer la station à la position du curseur"),
           &frmUnit::gotocursor);
    button("enterposition",
           QStringLiteral("&Entrer LAT LON ou") +
               (geosys.name.empty() ? QStringLiteral(" QRA") : QStringLiteral(" MGRS")),
           &frmUnit::enterposition);
    button("import", QStringLiteral("I&mporter la station de cities.dat"), &frmUnit::importtown);
    exportbutton =
        button("export", QStringLiteral("A&jouter la station à cities.dat"), &frmUnit::exporttown);
    return frame;
}

QLayout* frmUnit::makebuttons()
{
    QPushButton* undobutton =
        namedbutton(QStringLiteral("undo"), QStringLiteral("&Défaire la station"), this);
    QPushButton* apply = namedbutton(QStringLiteral("apply"), QStringLiteral("Appli&quer"), this);
    connect(undobutton, &QPushButton::clicked, this, &frmUnit::undo);
    connect(apply, &QPushButton::clicked, this, &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(undobutton);
    row->addStretch();
    row->addWidget(apply);
    return row;
}

void frmUnit::connectfields()
{
    connect(list, &QListWidget::currentRowChanged, this, &frmUnit::takestation);
    connect(name, &QLineEdit::textChanged, this, &frmUnit::takename);
    connect(elevation, &QLineEdit::textChanged, this, &frmUnit::takeelevation);
    connect(enabled, &QCheckBox::toggled, this, &frmUnit::takeenabled);
    connect(transparent, &QCheckBox::toggled, this, &frmUnit::taketransparent);
    connect(forecolour, &ColourButton::changed, this, &frmUnit::takecolours);
    connect(backcolour, &ColourButton::changed, this, &frmUnit::takecolours);
    connect(iconbar, &QSlider::valueChanged, this, &frmUnit::takeicon);
    for (QWidget* field : {static_cast<QWidget*>(name), static_cast<QWidget*>(elevation),
                           static_cast<QWidget*>(iconbar)})
        field->installEventFilter(this);
}
