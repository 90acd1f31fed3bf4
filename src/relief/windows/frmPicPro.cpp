#include "relief/windows/frmPicPro.h"

#include "base/numbers.h"
#include "base/operation.h"
#include "base/session.h"
#include "base/windows/choosers.h"
#include "engine/draw/fastdraw.h"
#include "pictures/paint/fonts.h"
#include "relief/paint/mappreview.h"
#include "relief/windows/frmColors.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

PictureActions pictureactions;

namespace
{

constexpr std::uint8_t bit100 = 1;
constexpr std::uint8_t bit500 = 2;

bool isxray(int mode)
{
    return mode == mapmode::xray || mode == mapmode::negative;
}

} // namespace

void frmPicPro::updatefields()
{
    filling = true;
    const MapRecord& record = edited.record;
    if (QAbstractButton* option = modes->button(record.Mapmode))
        option->setChecked(true);
    for (const Number& number : numbers) {
        const float value = record.*number.target;
        number.field->setText(QString::fromStdString(
            *number.pattern != '\0' ? formatnumber(number.pattern, static_cast<double>(value))
                                    : generalnumber(value)));
    }
    contour10->setChecked(record.c1 != 0);
    contour100->setChecked((record.c2 & bit100) != 0);
    contour500->setChecked((record.c2 & bit500) != 0);
    cities->setChecked(edited.cities != 0);
    transparent->setChecked(session.drawtransparent);
    objects->setChecked(session.drawobject);
    objectpath->setText(QString::fromStdString(session.objectdrive));
    adrgpath->setText(QString::fromStdString(lowercase(session.adrgdrive)));
    information->setText(QString::fromStdString(settingsinfo(edited, shown, mapgrid)));
    filling = false;
    enablefields();
    showpreview();
}

void frmPicPro::numberchanged(const Number& number)
{
    if (filling)
        return;
    edited.record.*number.target = static_cast<float>(number.field->value());
    showpreview();
}

void frmPicPro::modechosen(int mode)
{
    edited.record.Mapmode = static_cast<std::int16_t>(mode);
    enablefields();
    showpreview();
}

void frmPicPro::enablefields()
{
    const int mode = edited.record.Mapmode;
    for (const Number& number : numbers)
        if (number.target == &MapRecord::con || number.target == &MapRecord::bri)
            number.field->setEnabled(!isxray(mode));
    coloursbutton->setEnabled(mode == mapmode::rainbow);
    transparent->setEnabled(cities->isChecked());
    font->setEnabled(cities->isChecked() || objects->isChecked());
}

void frmPicPro::showpreview()
{
    preview->setPixmap(QPixmap::fromImage(mappreview(thinned, edited)));
}

void frmPicPro::choosefont()
{
    const auto chosen = askfont({QString::fromStdString(session.drawfontname), session.drawfontsize,
                                 session.drawfontbold, session.drawfontitalic},
                                this);
    if (!chosen)
        return;
    session.drawfontname = chosen->name.toStdString();
    session.drawfontsize = static_cast<std::int16_t>(chosen->points);
    session.drawfontbold = chosen->bold;
    session.drawfontitalic = chosen->italic;
}

void frmPicPro::choosecolours()
{
    frmColors(editlevels(colours), edited.record.minx, edited.record.maxx, this).exec();
    showpreview();
}

void frmPicPro::readchecks()
{
    edited.record.c1 = contour10->isChecked() ? 1 : 0;
    edited.record.c2 = static_cast<std::uint8_t>((contour100->isChecked() ? bit100 : 0) +
                                                 (contour500->isChecked() ? bit500 : 0));
    edited.cities = cities->isChecked() ? -1 : 0;
    session.drawobject = objects->isChecked();
}

void frmPicPro::store()
{
    readchecks();
    applysettings(edited, mapgrid);
}

void frmPicPro::apply()
{
    store();
    session.objectdrive = lowercase(trimmed(objectpath->text().toStdString()));
    opbusy = 1; // tells the caller to draw
    accept();
}

void frmPicPro::leave(const std::function<void()>& action)
{
    reject();
    action();
}
