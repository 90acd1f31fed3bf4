#include "relief/windows/frmPicPro.h"

#include "base/numbers.h"
#include "base/operation.h"
#include "base/session.h"
#include "base/windows/choosers.h"
#include "engine/draw/fastdraw.h"
#include "pictures/paint/fonts.h"
#include "relief/paint/mappreview.h"
#include "relief/windows/frmColors.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>

PictureActions pictureactions;

namespace
{

constexpr int previewside = 240; // pixels
constexpr const char* metres = "0.00";
constexpr std::uint8_t bit100 = 1;
constexpr std::uint8_t bit500 = 2;

struct Mode {
    int value;
    const char* caption;
};
constexpr auto modetable = std::to_array<Mode>({
    {mapmode::rainbow, "Arc-en-ciel"},
    {mapmode::moon, "Paysage lunaire"},
    {mapmode::absolute, "Couleurs stratifiées  (absolu)"},
    {mapmode::relative, "Couleurs stratifiées  (relatif)"},
    {mapmode::xray, "Rayon X"},
    {mapmode::negative, "Rayon X (inversé)"},
});

bool isxray(int mode)
{
    return mode == mapmode::xray || mode == mapmode::negative;
}

void showinred(QLineEdit* field, bool red)
{
    QPalette colour;
    if (red)
        colour.setColor(QPalette::Text, QColor(255, 0, 0));
    field->setPalette(colour);
}

} // namespace

frmPicPro::frmPicPro(const Picture* picture, QWidget* parent)
    : QDialog(parent), shown(picture), edited(settingsof(mapgrid, picture)),
      thinned(thinnedmap(mapgrid, previewside))
{
    setObjectName(QStringLiteral("frmPicPro"));
    setWindowTitle(QString::fromStdString(settingstitle(picture)));
    preview = new QLabel(this);
    preview->setObjectName(QStringLiteral("preview"));
    preview->setAlignment(Qt::AlignCenter);
    preview->setFixedSize(previewside + 2, previewside + 2);
    preview->setFrameShape(QFrame::StyledPanel);
    information = new QLabel(this);
    information->setObjectName(QStringLiteral("information"));
    information->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(12);
    grid->addLayout(makemodes(), 0, 0);
    grid->addLayout(makenumbers(), 0, 1);
    grid->addWidget(preview, 0, 2, Qt::AlignTop);
    grid->addLayout(makelayers(), 1, 0, 1, 3);
    grid->addLayout(makepaths(), 2, 0, 1, 3);
    grid->addWidget(information, 3, 0, 1, 3);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 12);
    column->setSpacing(16);
    column->addLayout(grid);
    column->addLayout(makebuttons());
    column->setSizeConstraint(QLayout::SetFixedSize);
    updatefields();
}

QCheckBox* frmPicPro::makecheck(const QString& caption, const char* name)
{
    auto* check = new QCheckBox(caption, this);
    check->setObjectName(QString::fromLatin1(name));
    return check;
}

QPushButton* frmPicPro::makebutton(const QString& caption, const char* name)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QLayout* frmPicPro::makemodes()
{
    auto* frame = new QGroupBox(QStringLiteral("Mode dessin"), this);
    auto* inner = new QVBoxLayout(frame);
    modes = new QButtonGroup(this);
    for (const Mode& mode : modetable) {
        auto* option = new QRadioButton(QString::fromUtf8(mode.caption), frame);
        option->setObjectName(QStringLiteral("mode%1").arg(mode.value));
        modes->addButton(option, mode.value);
        inner->addWidget(option);
    }
    coloursbutton = makebutton(QStringLiteral("Couleurs..."), "colours");
    inner->addWidget(coloursbutton, 0, Qt::AlignLeft);
    connect(modes, &QButtonGroup::idClicked, this, &frmPicPro::modechosen);
    connect(coloursbutton, &QPushButton::clicked, this, &frmPicPro::choosecolours);
    auto* column = new QVBoxLayout;
    column->addWidget(frame);
    column->addStretch();
    return column;
}

QLayout* frmPicPro::makenumbers()
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(10);
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-00000.00")) + 16;
    const auto add = [&](const QString& caption, const char* name, float MapRecord::*target,
                         float low, float high, const char* pattern) {
        auto* field = new QLineEdit(this);
        field->setObjectName(QString::fromLatin1(name));
        field->setAlignment(Qt::AlignRight);
        field->setFixedWidth(width);
        const Number number{field, target, low, high, pattern};
        connect(field, &QLineEdit::textChanged, this, [this, number] { numberchanged(number); });
        numbers.push_back(number);
        const int row = grid->rowCount();
        auto* label = new QLabel(caption, this);
        label->setBuddy(field);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
    };
    add(QStringLiteral("Plancher (m)"), "floor", &MapRecord::minx, -999, 9999, metres);
    add(QStringLiteral("Plafond (m)"), "ceiling", &MapRecord::maxx, -999, 99999, metres);
    add(QStringLiteral("Contraste (%)"), "contrast", &MapRecord::con, 0, 100, "");
    add(QStringLiteral("Luminosité (%)"), "brightness", &MapRecord::bri, 0, 100, "");
    add(QStringLiteral("Azimut d'éclairage (°)"), "light", &MapRecord::light, 0, 360, "");
    grid->setRowStretch(grid->rowCount(), 1);
    return grid;
}

QLayout* frmPicPro::makelayers()
{
    contour10 = makecheck(QStringLiteral("Courbes d'altitude 10 m"), "contour10");
    contour100 = makecheck(QStringLiteral("Courbes d'altitude 100 m"), "contour100");
    contour500 = makecheck(QStringLiteral("Courbes d'altitude 500 m"), "contour500");
    cities = makecheck(QStringLiteral("Montrer les villes"), "cities");
    transparent = makecheck(QStringLiteral("Transparent"), "transparent");
    objects = makecheck(QStringLiteral("Montrer les objets"), "objects");
    font = makebutton(QStringLiteral("Police"), "font");
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(8);
    grid->addWidget(contour10, 0, 0);
    grid->addWidget(contour100, 1, 0);
    grid->addWidget(contour500, 2, 0);
    grid->addWidget(cities, 0, 1);
    grid->addWidget(transparent, 1, 1);
    grid->addWidget(objects, 2, 1);
    grid->addWidget(font, 0, 2, Qt::AlignLeft);
    grid->setColumnStretch(3, 1);
    connect(cities, &QCheckBox::toggled, this, &frmPicPro::enablefields);
    connect(objects, &QCheckBox::toggled, this, &frmPicPro::enablefields);
    connect(transparent, &QCheckBox::clicked, this, [](bool on) { session.drawtransparent = on; });
    connect(font, &QPushButton::clicked, this, &frmPicPro::choosefont);
    return grid;
}

QLayout* frmPicPro::makepaths()
{
    objectpath = new QLineEdit(this);
    objectpath->setObjectName(QStringLiteral("objectpath"));
    adrgpath = new QLineEdit(this);
    adrgpath->setObjectName(QStringLiteral("adrgpath"));
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->addRow(QStringLiteral("Lecteur/chemin Objet"), objectpath);
    form->addRow(QStringLiteral("Lecteur/chemin ADRG"), adrgpath);
    return form;
}

QLayout* frmPicPro::makebuttons()
{
    auto* image3d = makebutton(QStringLiteral("Image 3D"), "image3d");
    auto* stereo = makebutton(QStringLiteral("Stéréo"), "stereo");
    auto* adrg = makebutton(QStringLiteral("ADRG"), "adrg");
    auto* applybutton = makebutton(QStringLiteral("Appliquer"), "apply");
    auto* cancel = makebutton(QStringLiteral("Annuler"), "cancel");
    applybutton->setDefault(true);
    image3d->setEnabled(static_cast<bool>(pictureactions.image3d));
    stereo->setEnabled(static_cast<bool>(pictureactions.stereo));
    adrg->setEnabled(static_cast<bool>(pictureactions.adrg));
    connect(image3d, &QPushButton::clicked, this, [this] { leave(pictureactions.image3d); });
    connect(stereo, &QPushButton::clicked, this, [this] {
        store();
        leave(pictureactions.stereo);
    });
    connect(adrg, &QPushButton::clicked, this, [this] {
        session.adrgdrive = lowercase(trimmed(adrgpath->text().toStdString()));
        leave(pictureactions.adrg);
    });
    connect(applybutton, &QPushButton::clicked, this, &frmPicPro::apply);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    for (QPushButton* button : {image3d, stereo, adrg})
        row->addWidget(button);
    row->addStretch();
    row->addWidget(applybutton);
    row->addWidget(cancel);
    return row;
}

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
        numberchanged(number);
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
    const FieldCheck check =
        checkfield(static_cast<double>(number.low), static_cast<double>(number.high),
                   number.field->text().toStdString());
    showinred(number.field, !check.inbounds);
    if (filling)
        return;
    edited.record.*number.target = static_cast<float>(check.value);
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
    const auto chosen = askfont(labelfont(), this);
    if (!chosen)
        return;
    session.drawfontname = chosen->family().toStdString();
    session.drawfontsize = static_cast<std::int16_t>(chosen->pointSize());
    session.drawfontbold = chosen->bold();
    session.drawfontitalic = chosen->italic();
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
