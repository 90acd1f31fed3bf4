// The widgets of the map's properties.

#include "base/session.h"
#include "base/windows/boxes.h"
#include "coordinates/geosys.h"
#include "terrain/windows/frmMapPro.h"
#include "terrain/windows/mapwindows.h"

#include <QCompleter>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QLabel>

// Bounds of either side of a map, pixels.
static constexpr double leastpixels = 10;
static constexpr double mostpixels = 2000;

static constexpr std::array<const char*, 3> sourcenames{"DTED", "GTOPO30", "TERRAIN"};

/// A number of a position or a size.
static NumberField* widefield(const QString& name, double lo, double hi, QWidget* parent)
{
    constexpr int digits = 11;
    auto* field = new NumberField(name, lo, hi, parent);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 16);
    return field;
}

static QLabel* namedlabel(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    return label;
}

/// A caption in front of its field.
static void addrow(QGridLayout& grid, int row, const QString& caption, QWidget* field)
{
    grid.addWidget(new QLabel(caption, field->parentWidget()), row, 0);
    grid.addWidget(field, row, 1);
    grid.setHorizontalSpacing(12);
}

QGroupBox* frmMapPro::makecentre()
{
    auto* frame = new QGroupBox(QStringLiteral("Centre"), this);
    lonfield = widefield(QStringLiteral("lon"), -180, 179.99999, frame);
    latfield = widefield(QStringLiteral("lat"), -89, 89, frame);
    position = namedlabel(QStringLiteral("position"), frame);
    locatorlabel = namedlabel(QStringLiteral("locator"), frame);
    auto* grid = new QGridLayout(frame);
    addrow(*grid, 0, QStringLiteral("Longitude"), lonfield);
    addrow(*grid, 1, QStringLiteral("Latitude"), latfield);
    grid->addWidget(position, 2, 0, 1, 2);
    grid->addWidget(locatorlabel, 3, 0, 1, 2);
    int row = 0;
    for (QPushButton* button : makecentrebuttons(frame))
        grid->addWidget(button, row++, 2);
    grid->setColumnStretch(1, 1);
    connect(lonfield, &QLineEdit::textChanged, this, &frmMapPro::takelon);
    connect(latfield, &QLineEdit::textChanged, this, &frmMapPro::takelat);
    return frame;
}

std::array<QPushButton*, 4> frmMapPro::makecentrebuttons(QWidget* parent)
{
    auto* world = namedbutton(QStringLiteral("world"), QStringLiteral("Mappemonde"), parent);
    auto* city = namedbutton(QStringLiteral("city"), QStringLiteral("Choisir une ville"), parent);
    auto* cursor = namedbutton(QStringLiteral("usecursor"),
                               QStringLiteral("Utiliser la position du curseur"), parent);
    const QString suffix = geosys.name.empty() ? QStringLiteral(" QRA") : QStringLiteral(" MGRS");
    auto* enter = namedbutton(QStringLiteral("enterposition"),
                              QStringLiteral("Entrer LAT LON ou") + suffix, parent);
    world->setEnabled(static_cast<bool>(mapwindowhooks.showworld));
    city->setEnabled(static_cast<bool>(mapwindowhooks.choosecity));
    cursor->setEnabled(static_cast<bool>(mapwindowhooks.cursorposition));
    connect(world, &QPushButton::clicked, this, [this] {
        mapwindowhooks.showworld();
        updatefields();
    });
    connect(city, &QPushButton::clicked, this, &frmMapPro::choosecity);
    connect(cursor, &QPushButton::clicked, this, &frmMapPro::usecursor);
    connect(enter, &QPushButton::clicked, this, &frmMapPro::enterposition);
    return {world, city, cursor, enter};
}

QGroupBox* frmMapPro::makepixels()
{
    auto* frame = new QGroupBox(QStringLiteral("Dimension (pixel)"), this);
    widthfield = widefield(QStringLiteral("width"), leastpixels, mostpixels, frame);
    heightfield = widefield(QStringLiteral("height"), leastpixels, mostpixels, frame);
    auto* grid = new QGridLayout(frame);
    addrow(*grid, 0, QStringLiteral("Largeur(pixels)"), widthfield);
    addrow(*grid, 1, QStringLiteral("Hauteur (pixels)"), heightfield);
    connect(widthfield, &QLineEdit::textChanged, this, &frmMapPro::takewidth);
    connect(heightfield, &QLineEdit::textChanged, this, &frmMapPro::takeheight);
    return frame;
}

QGroupBox* frmMapPro::makekilometres()
{
    auto* frame = new QGroupBox(QStringLiteral("Dimension (km)"), this);
    sizefield = widefield(QStringLiteral("size"), 0.5, 19900, frame);
    kilometres = new QLineEdit(frame);
    kilometres->setObjectName(QStringLiteral("kilometres"));
    kilometres->setAlignment(Qt::AlignRight);
    kilometres->setReadOnly(true);
    kilometres->setFocusPolicy(Qt::NoFocus);
    QPalette quiet = kilometres->palette();
    quiet.setColor(QPalette::Base, quiet.color(QPalette::Window));
    kilometres->setPalette(quiet);
    auto* grid = new QGridLayout(frame);
    addrow(*grid, 0, QStringLiteral("Hauteur (km)"), sizefield);
    addrow(*grid, 1, QStringLiteral("Largeur(km)"), kilometres);
    connect(sizefield, &QLineEdit::textChanged, this, &frmMapPro::takesize);
    return frame;
}

QGroupBox* frmMapPro::makesources()
{
    auto* frame = new QGroupBox(QStringLiteral("Source des données d'altitude"), this);
    auto* grid = new QGridLayout(frame);
    auto* folders = new QFileSystemModel(this);
    folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    folders->setRootPath(QString());
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const int row = static_cast<int>(i);
        const QString name = QString::fromLatin1(sourcenames.at(i));
        sources.at(i) = namedcheck(name, name, frame);
        auto* path = paths.at(i) = new QLineEdit(frame);
        path->setObjectName(QStringLiteral("path") + QString::number(i));
        path->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('n')) * 30);
        path->setCompleter(new QCompleter(folders, path));
        grid->addWidget(sources.at(i), row, 0);
        grid->addWidget(new QLabel(QStringLiteral("Lecteur ou chemin"), frame), row, 1);
        grid->addWidget(path, row, 2);
        connect(path, &QLineEdit::textChanged, this,
                [i](const QString& text) { session.drvpath.at(i) = text.toStdString(); });
    }
    ignore = namedcheck(QStringLiteral("ignore"), QStringLiteral("Ignorer manquant"), frame);
    grid->addWidget(ignore, static_cast<int>(sources.size()), 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(12);
    return frame;
}

QFrame* frmMapPro::makecorners()
{
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    corners = namedlabel(QStringLiteral("corners"), frame);
    corners->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* box = new QVBoxLayout(frame);
    box->setContentsMargins(14, 12, 14, 12);
    box->addWidget(corners, 0, Qt::AlignTop);
    return frame;
}

void frmMapPro::makewidgets()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 14, 16, 12);
    grid->setSpacing(12);
    grid->addWidget(makecentre(), 0, 0, 1, 2);
    grid->addWidget(makepixels(), 1, 0);
    grid->addWidget(makekilometres(), 1, 1);
    grid->addWidget(makesources(), 2, 0, 1, 2);
    grid->addWidget(makecorners(), 0, 2, 3, 1);

    auto* applybutton = namedbutton(QStringLiteral("apply"), QStringLiteral("Appliquer"), this);
    applybutton->setDefault(true);
    auto* cancel = namedbutton(QStringLiteral("cancel"), QStringLiteral("Annuler"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(applybutton);
    buttons->addWidget(cancel);
    grid->addLayout(buttons, 3, 0, 1, 3);
    connect(applybutton, &QPushButton::clicked, this, &frmMapPro::apply);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}
