#include "network/windows/frmNet.h"

#include "base/hooks.h"
#include "base/windows/boxes.h"
#include "network/windows/frmNetMembers.h"
#include "network/windows/frmNetParameters.h"
#include "network/windows/frmNetStyle.h"
#include "network/windows/frmNetSystems.h"
#include "network/windows/frmNetTopology.h"

#include <QListWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

frmNet::frmNet(QWidget* parent)
    : QDialog(parent), undonets(network.nets), undosystems(network.systems)
{
    setObjectName(QStringLiteral("frmNet"));
    setWindowTitle(QStringLiteral("Propriétés des réseaux"));
    netdirty = true;
    hooks.erasenets();
    selection.curnet = std::clamp<std::int16_t>(selection.curnet, 1, MAXNET);
    auto* left = new QVBoxLayout;
    auto* right = new QVBoxLayout;
    makelist(*left);
    makepages(*right);
    auto* row = new QHBoxLayout;
    row->addLayout(left);
    row->addLayout(right, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row, 1);
    makebuttons(*column);
    connectpages();
    style->fill();
    systems->fill();
    netlist->setCurrentRow(selection.curnet - 1);
}

void frmNet::makelist(QVBoxLayout& column)
{
    netlist = titledlist(QStringLiteral("netlist"), QStringLiteral("Liste de tous les réseaux"), 27,
                         column, this);
    for (int n = 1; n <= MAXNET; ++n)
        netlist->addItem(QString::fromStdString(netat(n).name.text()));
}

void frmNet::makepages(QVBoxLayout& column)
{
    auto* pages = new QTabWidget(this);
    pages->setObjectName(QStringLiteral("pages"));
    parameters = new ParametersPage(actions, pages);
    topology = new TopologyPage(actions, pages);
    systems = new SystemsPage(actions, pages);
    members = new MembersPage(actions, pages);
    style = new StylePage(actions, pages);
    pages->addTab(parameters, QStringLiteral("Paramètres"));
    pages->addTab(topology, QStringLiteral("Topologie"));
    pages->addTab(systems, QStringLiteral("Système"));
    pages->addTab(members, QStringLiteral("Participants"));
    pages->addTab(style, QStringLiteral("Style"));
    column.addWidget(pages);
}

void frmNet::makebuttons(QVBoxLayout& column)
{
    auto* defaults =
        namedbutton(QStringLiteral("defaults"), QStringLiteral("Paramètres par défaut"), this);
    auto* cancel = namedbutton(QStringLiteral("cancel"), QStringLiteral("Annuler"), this);
    auto* close = namedbutton(QStringLiteral("close"), QStringLiteral("Fermer"), this);
    auto* row = new QHBoxLayout;
    row->addWidget(defaults);
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(close);
    column.addLayout(row);
    connect(defaults, &QPushButton::clicked, this, &frmNet::setdefaults);
    connect(cancel, &QPushButton::clicked, this, &frmNet::takeback);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

void frmNet::connectpages()
{
    connect(netlist, &QListWidget::currentRowChanged, this, &frmNet::choosenet);
    connect(parameters, &ParametersPage::renamed, this, [this] {
        const Net& net = netat(selection.curnet);
        netlist->currentItem()->setText(QString::fromStdString(net.name.text()));
        members->showtitle();
    });
    connect(topology, &TopologyPage::changed, members, &MembersPage::fill);
    connect(systems, &SystemsPage::changed, members, &MembersPage::showsystem);
    connect(style, &StylePage::applied, this, &QDialog::accept);
}

void frmNet::choosenet(int row)
{
    actions.settle();
    if (row < 0 || row >= MAXNET)
        return;
    selection.curnet = static_cast<std::int16_t>(row + 1);
    updatefields();
}

void frmNet::updatefields()
{
    parameters->fill();
    members->fill();
    topology->fill();
}

void frmNet::setdefaults()
{
    Net& net = netat(selection.curnet);
    const QString what =
        QStringLiteral("modifier %1 : %2")
            .arg(QString::fromStdString(net.name.text()), QStringLiteral("Paramètres par défaut"));
    actions.choose(what, [&net] { netdefaults(net); });
    updatefields();
}

/// Antenna heights and line colours stay as they are.
void frmNet::takeback()
{
    actions.choose(QStringLiteral("annuler les modifications des réseaux"), [this] {
        network.nets = undonets;
        network.systems = undosystems;
    });
    reject();
}

void frmNet::done(int result)
{
    actions.settle();
    QDialog::done(result);
}
