// The widgets of a picture's properties.

#include "base/numbers.h"
#include "base/session.h"
#include "base/windows/boxes.h"
#include "engine/draw/fastdraw.h"
#include "relief/paint/mappreview.h"
#include "relief/windows/frmPicPro.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include <array>

namespace
{

constexpr int previewside = 240; // pixels
constexpr const char* metres = "0.00";

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
    coloursbutton = namedbutton(QStringLiteral("colours"), QStringLiteral("Couleurs..."), frame);
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
                         double low, double high, const char* pattern) {
        auto* field = new NumberField(QString::fromLatin1(name), low, high, this);
        field->setFixedWidth(width);
        const Number number{field, target, pattern};
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
    contour10 =
        namedcheck(QStringLiteral("contour10"), QStringLiteral("Courbes d'altitude 10 m"), this);
    contour100 =
        namedcheck(QStringLiteral("contour100"), QStringLiteral("Courbes d'altitude 100 m"), this);
    contour500 =
        namedcheck(QStringLiteral("contour500"), QStringLiteral("Courbes d'altitude 500 m"), this);
    cities = namedcheck(QStringLiteral("cities"), QStringLiteral("Montrer les villes"), this);
    transparent = namedcheck(QStringLiteral("transparent"), QStringLiteral("Transparent"), this);
    objects = namedcheck(QStringLiteral("objects"), QStringLiteral("Montrer les objets"), this);
    font = namedbutton(QStringLiteral("font"), QStringLiteral("Police"), this);
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
    auto* image3d = namedbutton(QStringLiteral("image3d"), QStringLiteral("Image 3D"), this);
    auto* stereo = namedbutton(QStringLiteral("stereo"), QStringLiteral("Stéréo"), this);
    auto* adrg = namedbutton(QStringLiteral("adrg"), QStringLiteral("ADRG"), this);
    auto* applybutton = namedbutton(QStringLiteral("apply"), QStringLiteral("Appliquer"), this);
    auto* cancel = namedbutton(QStringLiteral("cancel"), QStringLiteral("Annuler"), this);
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
