#include "network/windows/frmNetTopology.h"

#include "base/numbers.h"
#include "base/windows/numberfield.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>

#include <array>

static constexpr std::array<const char*, 3> topologynames{
    "Réseau de voix (Commande/Subordonné/Relais)",
    "Réseau de données,  topologie en étoile (Maître/Esclave)",
    "Réseau de données, essaim (Noeud/Terminal)"};

TopologyPage::TopologyPage(TableActions& record, QWidget* parent) : NetPage(record, parent)
{
    auto* column = new QVBoxLayout(this);
    maketopologies(*column);
    column->addSpacing(12);
    visible = new QCheckBox(QStringLiteral("Visible"), this);
    visible->setObjectName(QStringLiteral("visible"));
    connect(visible, &QCheckBox::clicked, this,
            [this](bool on) { choose(visible->text(), [on] { setvisible(shownnet(), on); }); });
    column->addWidget(visible);
    column->addSpacing(12);
    makeretransmissions(*column);
    column->addStretch();
}

void TopologyPage::maketopologies(QVBoxLayout& column)
{
    topologies = new QButtonGroup(this);
    for (std::size_t i = 0; i < topologynames.size(); ++i) {
        auto* button = new QRadioButton(QString::fromUtf8(topologynames.at(i)), this);
        button->setObjectName(QStringLiteral("topology%1").arg(i));
        topologies->addButton(button, static_cast<int>(i));
        column.addWidget(button);
    }
    connect(topologies, &QButtonGroup::idClicked, this, [this](int chosen) {
        choose(QStringLiteral("Topologie"), [chosen] { settopology(shownnet(), chosen); });
        enableretransmissions();
        emit changed();
    });
}

void TopologyPage::makeretransmissions(QVBoxLayout& column)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    retransmissions = addnumber(
        *grid, {"maxretrans", "Nombre maximal de retransmissions", "0 à 20 retransmissions"},
        bounds::retransmissions);
    caption = findChild<QLabel*>(QStringLiteral("maxretranslabel"));
    hint = findChild<QLabel*>(QStringLiteral("maxretranshint"));
    QSizePolicy room = caption->sizePolicy();
    room.setRetainSizeWhenHidden(true); // the field stays in its place
    caption->setSizePolicy(room);
    follow(*retransmissions, [this] {
        shownnet().maxretrans = static_cast<std::int16_t>(roundeven(retransmissions->value()));
    });
    column.addLayout(grid);
}

void TopologyPage::enableretransmissions()
{
    const bool swarm = shownnet().kind() == Topology::swarm;
    caption->setVisible(swarm);
    retransmissions->setEnabled(swarm);
    hint->setEnabled(swarm);
}

void TopologyPage::fill()
{
    const QScopedValueRollback<bool> quiet(filling, true);
    const Net& net = shownnet();
    visible->setChecked(net.active());
    mark(*topologies, static_cast<int>(net.kind()));
    retransmissions->setnumber(net.maxretrans);
    enableretransmissions();
}
