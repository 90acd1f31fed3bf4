#include "terrain/windows/frmMapPro.h"

#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "coordinates/dmsfields.h"
#include "coordinates/geosys.h"
#include "coordinates/positiontexts.h"
#include "coordinates/windows/frmDMS.h"
#include "terrain/build.h"
#include "terrain/mapproperties.h"
#include "terrain/windows/mapwindows.h"

#include <QCheckBox>
#include <QCompleter>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <limits>

static constexpr std::array<const char*, 3> sourcenames{"DTED", "GTOPO30", "TERRAIN"};

frmMapPro::frmMapPro(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmMapPro"));
    makewidgets();
    takemap();
    updatefields();
}

void frmMapPro::takemap()
{
    if (mapname.empty())
        mapname = "Nouveau.map";
    setWindowTitle(QStringLiteral("Propriétés de ..\\") + QString::fromStdString(nameof(mapname)));
    mapedit = mapgrid.record;
    constexpr int most = std::numeric_limits<std::int16_t>::max();
    W = static_cast<std::int16_t>(std::min(mapgrid.width, most));
    H = static_cast<std::int16_t>(std::min(mapgrid.height, most));
    bool ignoring = false;
    readsetting("IGNMIS", false, ignoring);
    ignore->setChecked(ignoring);
    for (std::size_t i = 0; i < paths.size(); ++i) {
        sources.at(i)->setChecked((mapedit.sources >> i & 1U) != 0);
        paths.at(i)->setText(QString::fromStdString(session.drvpath.at(i)));
    }
}

QLineEdit* frmMapPro::makefield(const char* name, QWidget* parent)
{
    constexpr int digits = 11;
    auto* field = new QLineEdit(parent);
    field->setObjectName(QString::fromLatin1(name));
    field->setAlignment(Qt::AlignRight);
    field->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 16);
    return field;
}

QPushButton* frmMapPro::makebutton(const char* name, const QString& text, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QGroupBox* frmMapPro::makecentre()
{
    auto* frame = new QGroupBox(QStringLiteral("Centre"), this);
    lonfield = makefield("lon", frame);
    latfield = makefield("lat", frame);
    position = new QLabel(frame);
    position->setObjectName(QStringLiteral("position"));
    locatorlabel = new QLabel(frame);
    locatorlabel->setObjectName(QStringLiteral("locator"));
    auto* world = makebutton("world", QStringLiteral("Mappemonde"), frame);
    auto* city = makebutton("city", QStringLiteral("Choisir une ville"), frame);
    auto* cursor =
        makebutton("usecursor", QStringLiteral("Utiliser la position du curseur"), frame);
    const QString suffix = geosys.name.empty() ? QStringLiteral(" QRA") : QStringLiteral(" MGRS");
    auto* enter = makebutton("enterposition", QStringLiteral("Entrer LAT LON ou") + suffix, frame);
    world->setEnabled(static_cast<bool>(mapwindowhooks.showworld));
    city->setEnabled(static_cast<bool>(mapwindowhooks.choosecity));
    cursor->setEnabled(static_cast<bool>(mapwindowhooks.cursorposition));

    auto* grid = new QGridLayout(frame);
    grid->addWidget(new QLabel(QStringLiteral("Longitude"), frame), 0, 0);
    grid->addWidget(lonfield, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Latitude"), frame), 1, 0);
    grid->addWidget(latfield, 1, 1);
    grid->addWidget(position, 2, 0, 1, 2);
    grid->addWidget(locatorlabel, 3, 0, 1, 2);
    int row = 0;
    for (QPushButton* button : {world, city, cursor, enter})
        grid->addWidget(button, row++, 2);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(12);

    connect(lonfield, &QLineEdit::textChanged, this, &frmMapPro::takelon);
    connect(latfield, &QLineEdit::textChanged, this, &frmMapPro::takelat);
    connect(world, &QPushButton::clicked, this, [this] {
        mapwindowhooks.showworld();
        updatefields();
    });
    connect(city, &QPushButton::clicked, this, &frmMapPro::choosecity);
    connect(cursor, &QPushButton::clicked, this, &frmMapPro::usecursor);
    connect(enter, &QPushButton::clicked, this, &frmMapPro::enterposition);
    return frame;
}

QGroupBox* frmMapPro::makepixels()
{
    auto* frame = new QGroupBox(QStringLiteral("Dimension (pixel)"), this);
    widthfield = makefield("width", frame);
    heightfield = makefield("height", frame);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(new QLabel(QStringLiteral("Largeur(pixels)"), frame), 0, 0);
    grid->addWidget(widthfield, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Hauteur (pixels)"), frame), 1, 0);
    grid->addWidget(heightfield, 1, 1);
    grid->setHorizontalSpacing(12);
    connect(widthfield, &QLineEdit::textChanged, this, &frmMapPro::takewidth);
    connect(heightfield, &QLineEdit::textChanged, this, &frmMapPro::takeheight);
    return frame;
}

QGroupBox* frmMapPro::makekilometres()
{
    auto* frame = new QGroupBox(QStringLiteral("Dimension (km)"), this);
    sizefield = makefield("size", frame);
    kilometres = makefield("kilometres", frame);
    kilometres->setReadOnly(true);
    kilometres->setFocusPolicy(Qt::NoFocus);
    QPalette quiet = kilometres->palette();
    quiet.setColor(QPalette::Base, quiet.color(QPalette::Window));
    kilometres->setPalette(quiet);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(new QLabel(QStringLiteral("Hauteur (km)"), frame), 0, 0);
    grid->addWidget(sizefield, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Largeur(km)"), frame), 1, 0);
    grid->addWidget(kilometres, 1, 1);
    grid->setHorizontalSpacing(12);
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
        auto* check = new QCheckBox(name, frame);
        check->setObjectName(name);
        auto* path = new QLineEdit(frame);
        path->setObjectName(QStringLiteral("path") + QString::number(i));
        path->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('n')) * 30);
        auto* completer = new QCompleter(folders, path);
        path->setCompleter(completer);
        grid->addWidget(check, row, 0);
        grid->addWidget(new QLabel(QStringLiteral("Lecteur ou chemin"), frame), row, 1);
        grid->addWidget(path, row, 2);
        connect(path, &QLineEdit::textChanged, this,
                [i](const QString& text) { session.drvpath.at(i) = text.toStdString(); });
        sources.at(i) = check;
        paths.at(i) = path;
    }
    ignore = new QCheckBox(QStringLiteral("Ignorer manquant"), frame);
    ignore->setObjectName(QStringLiteral("ignore"));
    grid->addWidget(ignore, static_cast<int>(sources.size()), 0, 1, 3);
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(12);
    return frame;
}

void frmMapPro::makewidgets()
{
    auto* centre = makecentre();
    auto* pixels = makepixels();
    auto* kilometre = makekilometres();
    auto* sourceframe = makesources();
    auto* cornerframe = new QFrame(this);
    cornerframe->setFrameShape(QFrame::StyledPanel);
    corners = new QLabel(cornerframe);
    corners->setObjectName(QStringLiteral("corners"));
    corners->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* cornerbox = new QVBoxLayout(cornerframe);
    cornerbox->setContentsMargins(14, 12, 14, 12);
    cornerbox->addWidget(corners, 0, Qt::AlignTop);

    auto* applybutton = makebutton("apply", QStringLiteral("Appliquer"), this);
    applybutton->setDefault(true);
    auto* cancel = makebutton("cancel", QStringLiteral("Annuler"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(applybutton);
    buttons->addWidget(cancel);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 14, 16, 12);
    grid->setSpacing(12);
    grid->addWidget(centre, 0, 0, 1, 2);
    grid->addWidget(pixels, 1, 0);
    grid->addWidget(kilometre, 1, 1);
    grid->addWidget(sourceframe, 2, 0, 1, 2);
    grid->addWidget(cornerframe, 0, 2, 3, 1);
    grid->addLayout(buttons, 3, 0, 1, 3);
    connect(applybutton, &QPushButton::clicked, this, &frmMapPro::apply);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmMapPro::updatefields()
{
    const MapRecord shown = mapedit; // each field that is set takes its own value over
    const int width = W;
    const int height = H;
    const auto settext = [](QLineEdit* field, const std::string& text) {
        field->setText(QString::fromStdString(text));
    };
    settext(lonfield, generalnumber(shown.maplon0));
    settext(latfield, generalnumber(shown.maplat0));
    settext(widthfield, std::to_string(width));
    settext(heightfield, std::to_string(height));
    settext(sizefield, generalnumber(shown.mapsize));
    updatesize();
}

void frmMapPro::updatesize()
{
    if (W < 1 || H < 1)
        return; // the fields are being filled
    kilometres->setText(QString::fromStdString(formatnumber("0.00", mapwidth_km(mapedit, W, H))));
    float lon = mapedit.maplon0;
    float lat = mapedit.maplat0;
    locatorlabel->setText(QString::fromStdString(locator(lon, lat)));
    const std::string lontext = dmslon(lon);
    position->setText(QString::fromStdString(lontext + " - " + dmslat(lat)));
    mapedit.mapsize = smax(mapedit.mapsize, 1.0F);
    corners->setText(QString::fromStdString(cornerstext(mapcorners(mapedit, W, H))));
}

// Reads a field by the rule of all numeric fields.
static double takefield(QLineEdit* field, double lo, double hi)
{
    const FieldCheck check = checkfield(lo, hi, field->text().toStdString());
    QPalette colours = field->palette();
    colours.setColor(QPalette::Text,
                     check.inbounds ? QPalette().color(QPalette::Text) : QColor(255, 0, 0));
    field->setPalette(colours);
    return check.value;
}

void frmMapPro::takelon()
{
    mapedit.maplon0 = static_cast<float>(takefield(lonfield, -180, 179.99999));
    updatesize();
}

void frmMapPro::takelat()
{
    mapedit.maplat0 = static_cast<float>(takefield(latfield, -89, 89));
    updatesize();
}

// Bounds of either side of a map, pixels.
static constexpr double leastpixels = 10;
static constexpr double mostpixels = 2000;

void frmMapPro::takewidth()
{
    W = static_cast<std::int16_t>(roundtoeven(takefield(widthfield, leastpixels, mostpixels)));
    updatesize();
}

void frmMapPro::takeheight()
{
    H = static_cast<std::int16_t>(roundtoeven(takefield(heightfield, leastpixels, mostpixels)));
    updatesize();
}

void frmMapPro::takesize()
{
    mapedit.mapsize = static_cast<float>(takefield(sizefield, 0.5, 19900));
    updatesize();
}

void frmMapPro::choosecity()
{
    if (opbusy == 1)
        return;
    mapwindowhooks.choosecity(this);
    updatefields();
}

void frmMapPro::usecursor()
{
    mapwindowhooks.cursorposition(mapedit.maplon0, mapedit.maplat0);
    updatefields();
}

void frmMapPro::enterposition()
{
    picklon = mapedit.maplon0;
    picklat = mapedit.maplat0;
    frmDMS(this).exec();
    mapedit.maplon0 = picklon;
    mapedit.maplat0 = picklat;
    updatefields();
}

void frmMapPro::apply()
{
    MapOrder order{mapedit, W, H, ignore->isChecked()};
    order.record.sources = 0;
    for (std::size_t i = 0; i < sources.size(); ++i)
        if (sources.at(i)->isChecked())
            order.record.sources |= static_cast<std::uint8_t>(1U << i);
    if (order.record.sources == 0 || opbusy > 0)
        return;
    accept(); // the build shows its progress in the main window
    buildmap(order);
}
