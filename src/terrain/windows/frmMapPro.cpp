#include "terrain/windows/frmMapPro.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "base/settings.h"
#include "coordinates/dmsfields.h"
#include "coordinates/positiontexts.h"
#include "coordinates/windows/frmDMS.h"
#include "terrain/build.h"
#include "terrain/mapproperties.h"
#include "terrain/windows/mapwindows.h"

#include <QCheckBox>
#include <QLabel>

#include <algorithm>
#include <limits>

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

void frmMapPro::updatefields()
{
    const MapRecord shown = mapedit; // each field that is set takes its own value over
    const int width = W;
    const int height = H;
    lonfield->setnumber(shown.maplon0);
    latfield->setnumber(shown.maplat0);
    widthfield->setText(QString::number(width));
    heightfield->setText(QString::number(height));
    sizefield->setnumber(shown.mapsize);
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

void frmMapPro::takelon()
{
    mapedit.maplon0 = static_cast<float>(lonfield->value());
    updatesize();
}

void frmMapPro::takelat()
{
    mapedit.maplat0 = static_cast<float>(latfield->value());
    updatesize();
}

void frmMapPro::takewidth()
{
    W = static_cast<std::int16_t>(roundtoeven(widthfield->value()));
    updatesize();
}

void frmMapPro::takeheight()
{
    H = static_cast<std::int16_t>(roundtoeven(heightfield->value()));
    updatesize();
}

void frmMapPro::takesize()
{
    mapedit.mapsize = static_cast<float>(sizefield->value());
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
    BuildReport report;
    if (buildmap(order, &report) && report.lacking() > 0)
        hooks.setlabel2(std::to_string(report.lacking()) +
                        (report.lacking() == 1 ? " cellule manquante" : " cellules manquantes"));
}
