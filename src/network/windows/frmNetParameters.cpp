#include "network/windows/frmNetParameters.h"

#include "base/windows/numberfield.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

namespace
{

/// A number of a net's record, and its field.
struct NumberRow {
    FieldTexts texts;
    float Net::*value;
    Bounds limits;
};

constexpr std::array<NumberRow, 5> numberrows{{
    {{"fmin", "Fréquence minimale (MHz)", "20 à 20 000 MHz"}, &Net::fmin, bounds::frequency},
    {{"fmax", "Fréquence maximale  (MHz)", "20 à 20 000 MHz"}, &Net::fmax, bounds::frequency},
    {{"refractivity", "Réfractivité en surface (N-Units)", "250 à 400 N-units"},
     &Net::refractivity,
     bounds::refractivity},
    {{"conductivity", "Conductivité du sol (S/m)", "0.005 pour sol moyen "},
     &Net::conductivity,
     bounds::ground},
    {{"permittivity", "Permittivité relative du sol", "15 pour sol moyen "},
     &Net::permittivity,
     bounds::ground},
}};

constexpr std::array<NumberRow, 3> sharerows{{
    {{"ptime", "% du temps", ""}, &Net::ptime, bounds::percent},
    {{"plocation", "% des locations", ""}, &Net::plocation, bounds::percent},
    {{"psituation", "% des situations", ""}, &Net::psituation, bounds::percent},
}};

constexpr std::array<const char*, 2> polarisationnames{"Horizontale", "Verticale"};
constexpr std::array<const char*, 4> modenames{"Essai", "Accidentel", "Mobile", "Diffusion"};
constexpr std::array<const char*, 7> climatenames{
    "Équatorial",          "Continental sous-tropical",  "Maritime sous-tropical",  "Désert",
    "Continental tempéré", "Maritime tempéré sur terre", "Maritime tempéré sur mer"};

/// Radio buttons numbered from 0, named after their group.
template <std::size_t N>
QButtonGroup* makebuttons(const QString& name, const std::array<const char*, N>& captions,
                          QWidget* parent)
{
    auto* group = new QButtonGroup(parent);
    for (std::size_t i = 0; i < N; ++i) {
        auto* button = new QRadioButton(QString::fromUtf8(captions[i]), parent);
        button->setObjectName(name + QString::number(i));
        group->addButton(button, static_cast<int>(i));
    }
    return group;
}

} // namespace

ParametersPage::ParametersPage(TableActions& record, QWidget* parent) : NetPage(record, parent)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    name = addname(*grid, {"netname", "Nom du réseau", "Jusqu'à 30 caractères"});
    name->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    follow(*name, [this] {
        shownnet().name.assign(name->text().toStdString());
        emit renamed();
    });
    makenumbers(*grid);
    makechoices(*grid);
    auto* column = new QVBoxLayout(this);
    column->addLayout(grid);
    column->addSpacing(6);
    column->addWidget(makemodes());
    column->addStretch();
}

void ParametersPage::makenumbers(QGridLayout& grid)
{
    for (std::size_t i = 0; i < numberrows.size(); ++i) {
        const NumberRow& row = numberrows.at(i);
        NumberField* field = addnumber(grid, row.texts, row.limits);
        follow(*field,
               [field, &row] { shownnet().*row.value = static_cast<float>(field->value()); });
        numbers.at(i) = field;
    }
}

void ParametersPage::makechoices(QGridLayout& grid)
{
    const int row = grid.rowCount();
    auto* pair = new QHBoxLayout;
    polarisations = makebuttons(QStringLiteral("polarisation"), polarisationnames, this);
    for (QAbstractButton* button : polarisations->buttons())
        pair->addWidget(button);
    pair->addStretch();
    connect(polarisations, &QButtonGroup::idClicked, this, [this](int chosen) {
        choose(QStringLiteral("Polarisation"),
               [chosen] { shownnet().polarisation = static_cast<std::int16_t>(chosen); });
    });
    climates = new QComboBox(this);
    climates->setObjectName(QStringLiteral("climate"));
    climates->setAccessibleName(QStringLiteral("Climat"));
    for (const char* climate : climatenames)
        climates->addItem(QString::fromUtf8(climate));
    connect(climates, &QComboBox::activated, this, [this](int chosen) {
        choose(QStringLiteral("Climat"),
               [chosen] { shownnet().climate = static_cast<std::int16_t>(chosen + 1); });
    });
    auto* label = new QLabel(QStringLiteral("Climat"), this);
    label->setBuddy(climates);
    grid.addWidget(new QLabel(QStringLiteral("Polarisation"), this), row, 0);
    grid.addLayout(pair, row, 1, 1, 2);
    grid.addWidget(label, row + 1, 0);
    grid.addWidget(climates, row + 1, 1);
}

QGroupBox* ParametersPage::makemodes()
{
    auto* box = new QGroupBox(QStringLiteral("Mode statistique"), this);
    auto* grid = new QGridLayout;
    auto* row = new QHBoxLayout(box);
    auto* column = new QVBoxLayout;
    modes = makebuttons(QStringLiteral("statmode"), modenames, box);
    for (QAbstractButton* button : modes->buttons())
        column->addWidget(button);
    urbanbox = new QCheckBox(QStringLiteral("Ajouter le facteur urbain"), box);
    urbanbox->setObjectName(QStringLiteral("urban"));
    makeshares(*grid);
    grid->addWidget(urbanbox, grid->rowCount(), 0, 1, 2);
    row->addLayout(column);
    row->addSpacing(36);
    row->addLayout(grid);
    row->addStretch(1);
    connect(modes, &QButtonGroup::idClicked, this, [this] {
        choose(QStringLiteral("Mode statistique"), [this] { storemode(); });
        enableshares();
    });
    connect(urbanbox, &QCheckBox::clicked, this,
            [this] { choose(urbanbox->text(), [this] { storemode(); }); });
    return box;
}

void ParametersPage::makeshares(QGridLayout& grid)
{
    grid.setHorizontalSpacing(12);
    for (std::size_t i = 0; i < sharerows.size(); ++i) {
        const NumberRow& row = sharerows.at(i);
        NumberField* field = addnumber(grid, row.texts, row.limits);
        follow(*field,
               [field, &row] { shownnet().*row.value = static_cast<float>(field->value()); });
        shares.at(i) = field;
    }
}

void ParametersPage::storemode()
{
    setstatmode(shownnet(), static_cast<StatMode>(modes->checkedId()), urbanbox->isChecked());
}

void ParametersPage::enableshares()
{
    const StatMode mode = statmode(shownnet());
    shares[0]->setEnabled(usestime(mode));
    shares[1]->setEnabled(useslocation(mode));
}

void ParametersPage::fill()
{
    const QScopedValueRollback<bool> quiet(filling, true);
    const Net& net = shownnet();
    name->setText(QString::fromStdString(net.name.text()));
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers.at(i)->setnumber(net.*numberrows.at(i).value);
    for (std::size_t i = 0; i < shares.size(); ++i)
        shares.at(i)->setnumber(net.*sharerows.at(i).value);
    mark(*polarisations, net.polarisation);
    climates->setCurrentIndex(net.climate >= 1 && net.climate <= 7 ? net.climate - 1 : -1);
    mark(*modes, static_cast<int>(statmode(net)));
    urbanbox->setChecked(urban(net));
    enableshares();
}
