#include "terrain/windows/frmGrid.h"

#include "base/operation.h"
#include "base/windows/boxes.h"
#include "coordinates/positiontexts.h"
#include "terrain/windows/mapwindows.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>

#include <algorithm>

// The zoom panel shows a square piece of the picture three times enlarged.
static constexpr int piece = 50;             // picture pixels
static constexpr int zoomside = 150;         // device-independent pixels
static constexpr double zoominterval = 0.25; // seconds

/// What is kept for the run, from one window to the next.
struct GridPlace {
    int gridright = 24;  ///< margins to the screen's edges, device-independent pixels
    int gridbottom = 64; ///< clear of a desktop's panel
    bool zoomopen = false;
    double gridzoomtime = 0; ///< time of day before which the zoom panel is not refreshed
};
static GridPlace kept;

frmGrid::frmGrid(QWidget* parent) : QDialog(parent, Qt::Tool)
{
    setObjectName(QStringLiteral("frmGrid"));
    setWindowTitle(QStringLiteral("Grille d'altitude (m)"));
    makewidgets();
    fitzoom();
}

void frmGrid::makewidgets()
{
    constexpr std::size_t middle = gridcells / 2;
    auto* table = new QGridLayout;
    table->setSpacing(1);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        auto* cell = new QLabel(QStringLiteral("-"), this);
        cell->setObjectName(QStringLiteral("cell") + QString::number(i));
        cell->setAlignment(Qt::AlignCenter);
        cell->setAutoFillBackground(true);
        cell->setBackgroundRole(i == middle ? QPalette::Highlight : QPalette::Base);
        cell->setForegroundRole(i == middle ? QPalette::HighlightedText : QPalette::Text);
        cell->setMinimumSize(fontMetrics().horizontalAdvance(QStringLiteral("-00000")) + 8,
                             fontMetrics().height() + 8);
        cell->installEventFilter(this);
        table->addWidget(cell, static_cast<int>(i) / gridside, static_cast<int>(i) % gridside);
        cells.at(i) = cell;
    }
    position = new QLabel(this);
    position->setObjectName(QStringLiteral("position"));
    locatorlabel = new QLabel(this);
    locatorlabel->setObjectName(QStringLiteral("locator"));
    zoombutton = namedbutton(QStringLiteral("zoombutton"), QString(), this);
    zoombutton->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('<')) + 16);
    zoom = new QLabel(this);
    zoom->setObjectName(QStringLiteral("zoom"));
    zoom->setFixedSize(zoomside, zoomside);
    zoom->setAutoFillBackground(true);
    zoom->setBackgroundRole(QPalette::Mid);

    auto* texts = new QHBoxLayout;
    texts->addWidget(position);
    texts->addStretch();
    texts->addWidget(locatorlabel);
    auto* left = new QVBoxLayout;
    left->addLayout(table);
    left->addLayout(texts);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 8, 8, 8);
    row->addLayout(left);
    row->addWidget(zoombutton, 0, Qt::AlignVCenter);
    row->addWidget(zoom, 0, Qt::AlignTop);
    row->setSizeConstraint(QLayout::SetFixedSize);
    zoombutton->installEventFilter(this);
    zoomlater = new QTimer(this);
    zoomlater->setSingleShot(true);
    connect(zoombutton, &QPushButton::clicked, this, &frmGrid::flipzoom);
    connect(zoomlater, &QTimer::timeout, this, &frmGrid::refreshzoom);
}

void frmGrid::fitzoom()
{
    zoombutton->setText(kept.zoomopen ? QStringLiteral("<") : QStringLiteral(">"));
    zoom->setVisible(kept.zoomopen);
}

// Moves the cursor to where it is, so that all that follows it is written anew.
static void refreshcursor()
{
    float lon = 0;
    float lat = 0;
    mapwindowhooks.cursorposition(lon, lat);
    mapwindowhooks.movecursor(lon, lat);
}

void frmGrid::flipzoom()
{
    kept.zoomopen = !kept.zoomopen;
    if (kept.zoomopen)
        refreshcursor();
    fitzoom();
    layout()->activate(); // the window has its new size from here on
    const QRect edges = screen()->geometry();
    const int beyond = frameGeometry().right() - edges.right();
    if (beyond > 0)
        move(std::max(x() - beyond, edges.left()), y());
}

void frmGrid::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    adjustSize();
    const QRect edges = screen()->geometry();
    const QSize frame = frameGeometry().size();
    const int x = edges.right() + 1 - kept.gridright - frame.width();
    const int y = edges.bottom() + 1 - kept.gridbottom - frame.height();
    move(std::max(x, edges.left()), std::max(y, edges.top()));
    placed = true;
}

void frmGrid::hideEvent(QHideEvent* event)
{
    if (placed && !event->spontaneous()) {
        const QRect edges = screen()->geometry();
        kept.gridright = edges.right() - frameGeometry().right();
        kept.gridbottom = edges.bottom() - frameGeometry().bottom();
        placed = false;
    }
    QDialog::hideEvent(event);
}

void frmGrid::showcell(float lon, float lat, int x, int y)
{
    const auto texts = gridtexts(mapgrid, x, y);
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells.at(i)->setText(QString::fromStdString(texts.at(i)));
    float shownlon = lon; // the texts bring their own copies into range
    float shownlat = lat;
    const std::string lontext = dmslon(shownlon);
    position->setText(QString::fromStdString(lontext + "  " + dmslat(shownlat)));
    locatorlabel->setText(QString::fromStdString(locator(lon, lat)));

    zoomlon = lon;
    zoomlat = lat;
    refreshzoom();
}

void frmGrid::refreshzoom()
{
    if (!kept.zoomopen || !mapwindowhooks.picturepiece)
        return;
    const double wait = kept.gridzoomtime - timeofday();
    if (wait >= 0 && wait <= zoominterval) { // beyond it the day has changed
        zoomlater->start(static_cast<int>(wait * 1000) + 1);
        return;
    }
    kept.gridzoomtime = timeofday() + zoominterval;
    const double scale = devicePixelRatioF();
    QImage image = mapwindowhooks.picturepiece(zoomlon, zoomlat, piece, qRound(zoomside * scale));
    if (image.isNull())
        return;
    image.setDevicePixelRatio(scale);
    zoom->setPixmap(QPixmap::fromImage(image));
}

void frmGrid::movetocell(int i)
{
    int x = 0;
    int y = 0;
    mapwindowhooks.cursorcell(x, y);
    x += i % gridside - gridside / 2;
    y += gridside / 2 - i / gridside;
    mapwindowhooks.movecursor(columnlon(mapgrid, x), rowlat(mapgrid, y));
}

bool frmGrid::walk(int key)
{
    int x = 0;
    int y = 0;
    float lon = 0;
    float lat = 0;
    mapwindowhooks.cursorcell(x, y);
    mapwindowhooks.cursorposition(lon, lat);
    switch (key) {
    case Qt::Key_Left:
        lon = columnlon(mapgrid, x - 1);
        break;
    case Qt::Key_Right:
        lon = columnlon(mapgrid, x + 1);
        break;
    case Qt::Key_Down:
        lat = rowlat(mapgrid, y - 1);
        break;
    case Qt::Key_Up:
        lat = rowlat(mapgrid, y + 1);
        break;
    default:
        return false;
    }
    mapwindowhooks.movecursor(lon, lat);
    return true;
}

bool frmGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick) {
        const auto cell = std::find(cells.begin(), cells.end(), watched);
        if (cell != cells.end()) {
            movetocell(static_cast<int>(cell - cells.begin()));
            return true;
        }
    }
    // The button would take the arrow keys to look for its neighbours.
    if (watched == zoombutton && event->type() == QEvent::KeyPress)
        return walk(static_cast<QKeyEvent*>(event)->key());
    return QDialog::eventFilter(watched, event);
}

void frmGrid::keyPressEvent(QKeyEvent* event)
{
    if (!walk(event->key()))
        QDialog::keyPressEvent(event); // Esc closes
}
