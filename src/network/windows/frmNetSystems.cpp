#include "network/windows/frmNetSystems.h"

#include "base/numbers.h"
#include "base/windows/numberfield.h"
#include "network/predefined.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QStringListModel>

namespace
{

/// A number of a system's record, its field, and its line in the file of predefined systems.
struct NumberRow {
    FieldTexts texts;
    float RadioSystem::*value;
    Bounds limits;
    std::string PredefinedSystem::*line;
};

constexpr std::size_t thresholdrow = 1;
constexpr std::array<NumberRow, 5> numberrows{{
    {{"power", "Puissance d'émission (Watt)", "1.0E-8 à 1.0E+6 Watts"},
     &RadioSystem::power,
     bounds::power,
     &PredefinedSystem::power},
    {{"threshold", "Seuil de réception (µV)", "0.01 à 2000 microVolts"},
     &RadioSystem::threshold,
     bounds::threshold,
     &PredefinedSystem::threshold},
    {{"lineloss", "Perte de ligne (dB)", "0 à 500 dB"},
     &RadioSystem::lineloss,
     bounds::lineloss,
     &PredefinedSystem::lineloss},
    {{"gain", "Gain d'antenne (dBi)", "-10 à 100 dBi"},
     &RadioSystem::gain,
     bounds::gain,
     &PredefinedSystem::gain},
    {{"height", "Hauteur d'antenne (m)", ""},
     &RadioSystem::height,
     bounds::antennaheight,
     &PredefinedSystem::height},
}};

/// A list that offers entries to be taken: arrow keys and the wheel pass through none of them.
class OfferBox : public QComboBox
{
public:
    using QComboBox::QComboBox;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_F4:
            showPopup();
            break;
        default:
            event->ignore();
        }
    }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

} // namespace

SystemsPage::SystemsPage(TableActions& record, QWidget* parent) : NetPage(record, parent)
{
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    auto* grid = new QGridLayout;
    makelist(*left);
    makepredefined(*right);
    makefields(*grid);
    right->addLayout(grid);
    right->addStretch();
    auto* row = new QHBoxLayout(this);
    row->addLayout(left);
    row->addSpacing(12);
    row->addLayout(right, 1);
}

void SystemsPage::makelist(QVBoxLayout& column)
{
    list = titledlist(QStringLiteral("systemlist"), QStringLiteral("Liste de tous les systèmes"),
                      27, column, this);
    for (int i = 1; i <= MAXSYSTEM; ++i)
        list->addItem(QString::fromStdString(systemat(i).name.text()));
    list->setCurrentRow(0);
    connect(list, &QListWidget::currentRowChanged, this, &SystemsPage::fill);
}

void SystemsPage::makepredefined(QVBoxLayout& column)
{
    QStringList names{QStringLiteral("Prédéfinis...")};
    for (const std::string& known : predefinednames())
        names.append(QString::fromStdString(known));
    predefined = new OfferBox(this);
    predefined->setObjectName(QStringLiteral("predefined"));
    predefined->setAccessibleName(QStringLiteral("Systèmes prédéfinis"));
    predefined->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    predefined->setMinimumContentsLength(30);
    predefined->setMaxVisibleItems(20);
    predefined->setModel(new QStringListModel(names, predefined));
    if (auto* view = qobject_cast<QListView*>(predefined->view()))
        view->setUniformItemSizes(true); // a long file opens at once, too
    connect(predefined, &QComboBox::activated, this, &SystemsPage::usepredefined);
    column.addWidget(predefined, 0, Qt::AlignLeft);
    column.addSpacing(6);
}

void SystemsPage::makefields(QGridLayout& grid)
{
    grid.setHorizontalSpacing(12);
    grid.setColumnStretch(3, 1);
    name = addname(grid, {"systemname", "Nom du système", "Jusqu'à 30 caractères"});
    name->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
    follow(*name, [this] { takename(); });
    for (std::size_t i = 0; i < numberrows.size(); ++i) {
        numbers.at(i) = addnumber(grid, numberrows.at(i).texts, numberrows.at(i).limits);
        follow(*numbers.at(i), [this, i] { takenumber(i); });
    }
    level = new QLabel(this);
    level->setObjectName(QStringLiteral("level"));
    grid.addWidget(level, static_cast<int>(thresholdrow) + 1, 3);
}

int SystemsPage::chosen() const
{
    return list->currentRow() + 1;
}

RadioSystem& SystemsPage::shownsystem() const
{
    return systemat(chosen());
}

QString SystemsPage::subject() const
{
    return QString::fromStdString(shownsystem().name.text());
}

void SystemsPage::takename()
{
    shownsystem().name.assign(name->text().toStdString());
    list->currentItem()->setText(QString::fromStdString(shownsystem().name.text()));
    emit changed(chosen());
}

void SystemsPage::takenumber(std::size_t row)
{
    const double held = numbers.at(row)->value();
    shownsystem().*numberrows.at(row).value =
        static_cast<float>(row == thresholdrow ? thresholdlevel(held) : held);
    showlevel();
    emit changed(chosen());
}

void SystemsPage::showlevel()
{
    const double threshold = double{shownsystem().threshold};
    level->setText(QString::fromStdString("( " + formatnumber("0.0", threshold) + " dBm )"));
}

void SystemsPage::usepredefined(int entry)
{
    const auto found =
        entry > 0 ? findpredefined(predefined->itemText(entry).toStdString()) : std::nullopt;
    predefined->setCurrentIndex(0);
    if (!found)
        return;
    choose(QString::fromStdString(found->name), [this, &found] {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            numbers.at(i)->setText(QString::fromStdString((*found).*numberrows.at(i).line));
            takenumber(i); // also where the text is the same, but the number has more digits
        }
        name->setText(QString::fromStdString(found->name));
    });
}

void SystemsPage::fill()
{
    if (list->currentRow() < 0)
        return;
    actions.settle();
    const QScopedValueRollback<bool> quiet(filling, true);
    const RadioSystem& system = shownsystem();
    name->setText(QString::fromStdString(system.name.text()));
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers.at(i)->setnumber(system.*numberrows.at(i).value);
    numbers[thresholdrow]->setText(
        QString::fromStdString(formatnumber("0.00", microvolts(double{system.threshold}))));
    showlevel();
}
