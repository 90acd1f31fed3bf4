#include "network/windows/frmImport.h"

#include "base/windows/boxes.h"
#include "coordinates/positiontexts.h"
#include "network/windows/netundo.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace
{
enum Column { numbercolumn, namecolumn, loncolumn, latcolumn, heightcolumn, slotcolumn, remark };

/// Why a record is no station; empty for one that is.
QString faulttext(const StationRecord& record)
{
    const QString detail = QString::fromStdString(record.detail);
    switch (record.fault) {
    case StationFault::notpoint:
        return QStringLiteral("une ligne ou une surface, pas un point");
    case StationFault::noposition:
        return QStringLiteral("longitude ou latitude absente");
    case StationFault::nonumber:
        return QStringLiteral("coordonnée illisible : « %1 »").arg(detail);
    case StationFault::outside:
        return QStringLiteral("position hors du globe : %1").arg(detail);
    case StationFault::zero:
        return QStringLiteral("0, 0 n'est pas une position");
    case StationFault::manyfields:
        return QStringLiteral("plus de champs que dans l'en-tête");
    case StationFault::openquote:
        return QStringLiteral("guillemet jamais fermé");
    case StationFault::none:
        break;
    }
    return {};
}

/// What the user should know of a station that is taken.
QString remarktext(const StationRecord& record, const PlannedStation& planned)
{
    QStringList remarks;
    if (planned.cut)
        remarks << QStringLiteral("nom coupé à 20 caractères");
    if (planned.replaced)
        remarks << QStringLiteral("lettres inconnues remplacées par « ? »");
    if (planned.offmap)
        remarks << (record.elevation ? QStringLiteral("hors de la carte : altitude du fichier")
                                     : QStringLiteral("hors de la carte, sans altitude : 0 m"));
    if (record.badheight)
        remarks << QStringLiteral("altitude du fichier illisible ou absurde");
    return remarks.join(QStringLiteral(" ; "));
}

QString plural(std::size_t count, const QString& one, const QString& many)
{
    return (count > 1 ? many : one).arg(count);
}

void setcell(QTableWidget& table, int row, int column, const QString& text)
{
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    if (column == numbercolumn || column == heightcolumn || column == slotcolumn)
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table.setItem(row, column, item);
}
} // namespace

frmImport::frmImport(StationRecords found, const QString& name, QWidget* parent)
    : QDialog(parent), records(std::move(found))
{
    setObjectName(QStringLiteral("frmImport"));
    setWindowTitle(QStringLiteral("Importer des stations de ") + name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(14, 14, 14, 12);
    column->setSpacing(10);
    summary = new QLabel(this);
    summary->setObjectName(QStringLiteral("summary"));
    column->addWidget(summary);
    maketable(*column);
    uncounted = new QLabel(this);
    uncounted->setObjectName(QStringLiteral("uncounted"));
    column->addWidget(uncounted);
    makechoices(*column);
    makebuttons(*column);
    refill();
    constexpr int width = 940;
    constexpr int height = 480;
    resize(width, height);
}

void frmImport::maketable(QVBoxLayout& column)
{
    const QStringList captions{QStringLiteral("Ligne"),     QStringLiteral("Nom"),
                               QStringLiteral("Longitude"), QStringLiteral("Latitude"),
                               QStringLiteral("Alt. (m)"),  QStringLiteral("Place"),
                               QStringLiteral("Remarque")};
    table = new QTableWidget(static_cast<int>(records.kept.size()),
                             static_cast<int>(captions.size()), this);
    table->setObjectName(QStringLiteral("table"));
    table->setAccessibleName(QStringLiteral("Stations du fichier"));
    table->setHorizontalHeaderLabels(captions);
    table->verticalHeader()->hide();
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->horizontalHeader()->setStretchLastSection(true);
    column.addWidget(table, 1);
}

void frmImport::makechoices(QVBoxLayout& column)
{
    first = new QSpinBox(this);
    first->setObjectName(QStringLiteral("first"));
    first->setRange(1, MAXUNIT);
    replace = new QCheckBox(QStringLiteral("&Remplacer les stations déjà placées"), this);
    replace->setObjectName(QStringLiteral("replace"));
    auto* caption = new QLabel(QStringLiteral("À partir de la &place"), this);
    caption->setBuddy(first);
    auto* line = new QHBoxLayout;
    line->addWidget(caption);
    line->addWidget(first);
    line->addSpacing(24);
    line->addWidget(replace);
    line->addStretch();
    column.addLayout(line);
    connect(first, &QSpinBox::valueChanged, this, &frmImport::refill);
    connect(replace, &QCheckBox::toggled, this, &frmImport::refill);
}

void frmImport::makebuttons(QVBoxLayout& column)
{
    auto* line = new QHBoxLayout;
    line->addStretch();
    applybutton = namedbutton(QStringLiteral("apply"), QStringLiteral("&Importer"), this);
    applybutton->setDefault(true);
    QPushButton* cancel = namedbutton(QStringLiteral("cancel"), QStringLiteral("A&nnuler"), this);
    line->addWidget(applybutton);
    line->addWidget(cancel);
    column.addLayout(line);
    connect(applybutton, &QPushButton::clicked, this, &frmImport::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

/// Plans the import anew, and shows it.
void frmImport::refill()
{
    plan = planstations(records, network, mapgrid, first->value(), replace->isChecked());
    for (std::size_t i = 0; i < records.kept.size(); ++i)
        fillrow(static_cast<int>(i), records.kept[i], plan.stations[i]);
    table->resizeColumnsToContents();
    summary->setText(plural(plan.taken, QStringLiteral("%1 station sera importée"),
                            QStringLiteral("%1 stations seront importées")) +
                     (plan.left == 0
                          ? QStringLiteral(".")
                          : plural(plan.left, QStringLiteral(", %1 ligne ne le sera pas."),
                                   QStringLiteral(", %1 lignes ne le seront pas."))));
    filluncounted();
    applybutton->setEnabled(plan.taken > 0);
}

void frmImport::fillrow(int row, const StationRecord& record, const PlannedStation& planned)
{
    const bool station = record.fault == StationFault::none;
    const bool taken = planned.slot != 0;
    auto lon = static_cast<float>(record.lon); // the texts bring their own copies into range
    auto lat = static_cast<float>(record.lat);
    const std::string name = taken ? planned.unit.name.text() : record.name;
    const QString noslot = QStringLiteral("pas de place libre jusqu'à 50");
    QString height;
    if (taken)
        height = QString::number(static_cast<double>(planned.unit.elevation), 'f', 0);
    setcell(*table, row, numbercolumn, QString::number(record.row));
    setcell(*table, row, namecolumn, QString::fromStdString(name));
    setcell(*table, row, loncolumn, station ? QString::fromStdString(dmslon(lon)) : QString());
    setcell(*table, row, latcolumn, station ? QString::fromStdString(dmslat(lat)) : QString());
    setcell(*table, row, heightcolumn, height);
    setcell(*table, row, slotcolumn, taken ? QString::number(planned.slot) : QString());
    const QString why = station ? noslot : faulttext(record);
    setcell(*table, row, remark,
            taken ? remarktext(record, planned) : QStringLiteral("Non importée : ") + why);
    table->item(row, namecolumn)->setToolTip(QString::fromStdString(record.name));
    if (!taken)
        for (int column = 0; column < table->columnCount(); ++column)
            table->item(row, column)
                ->setForeground(column == remark
                                    ? QBrush(QColor(0xC0, 0, 0))
                                    : palette().brush(QPalette::Disabled, QPalette::Text));
}

/// Tells of the records that have no line of their own.
void frmImport::filluncounted()
{
    const std::size_t stations = std::min(records.usable, std::size_t{MAXUNIT});
    const std::size_t more = records.usable - stations;
    const std::size_t faulty = records.faulty + stations - records.kept.size();
    QStringList texts;
    if (more > 0)
        texts << plural(more, QStringLiteral("%1 autre station n'a pas de place libre"),
                        QStringLiteral("%1 autres stations n'ont pas de place libre"));
    if (faulty > 0)
        texts << plural(faulty, QStringLiteral("%1 autre ligne n'est pas une station"),
                        QStringLiteral("%1 autres lignes ne sont pas des stations"));
    uncounted->setText(texts.join(QStringLiteral(" ; ")));
    uncounted->setVisible(!texts.isEmpty());
}

void frmImport::accept()
{
    TablesEdit edit(plural(plan.taken, QStringLiteral("importer %1 station"),
                           QStringLiteral("importer %1 stations")));
    takestations(plan, network);
    edit.done();
    QDialog::accept();
}
