#include "network/windows/frmNetMembers.h"

#include "base/numbers.h"
#include "base/operation.h"
#include "base/windows/numberfield.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

MembersPage::MembersPage(TableActions& record, QWidget* parent) : NetPage(record, parent)
{
    auto* left = new QVBoxLayout;
    makelist(*left);
    makeframe();
    auto* right = new QVBoxLayout;
    right->addWidget(frame);
    right->addStretch();
    auto* row = new QHBoxLayout(this);
    row->addLayout(left);
    row->addSpacing(12);
    row->addLayout(right, 1);
}

void MembersPage::makelist(QVBoxLayout& column)
{
    list = titledlist(QStringLiteral("stationlist"), QStringLiteral("Liste des stations"), 40,
                      column, this);
    for (int i = 1; i <= MAXUNIT; ++i) {
        const Unit& unit = unitat(i);
        const QString name = QString::fromStdString(unit.name.text());
        auto* item = new QListWidgetItem(
            unit.enabled != 0 ? name : name + QStringLiteral(" (Désactivée)"), list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    list->setCurrentRow(0);
    connect(list, &QListWidget::currentRowChanged, this, [this](int row) {
        actions.settle();
        updateheight(row + 1);
        showheight();
    });
    connect(list, &QListWidget::itemChanged, this, &MembersPage::checkmember);
}

void MembersPage::makeframe()
{
    frame = new QGroupBox(this);
    frame->setObjectName(QStringLiteral("member"));
    fields = new QWidget(frame);
    auto* box = new QVBoxLayout(frame);
    box->addWidget(fields);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(2, 1);
    makechoices(*grid);
    makeheights(*grid);
}

void MembersPage::makechoices(QGridLayout& grid)
{
    const auto add = [&](const char* name, const QString& caption, int row) {
        auto* choice = new QComboBox(fields);
        choice->setObjectName(QString::fromLatin1(name));
        choice->setAccessibleName(caption);
        choice->setMinimumContentsLength(20);
        choice->setMaxVisibleItems(MAXSYSTEM);
        auto* label = new QLabel(caption, fields);
        label->setBuddy(choice);
        grid.addWidget(label, row, 0);
        grid.addWidget(choice, row, 1);
        return choice;
    };
    roles = add("role", QStringLiteral("Rôle"), 0);
    systems = add("system", QStringLiteral("Système"), 1);
    for (int i = 1; i <= MAXSYSTEM; ++i)
        systems->addItem(QString::fromStdString(systemat(i).name.text()));
    systemheight = new QLabel(fields);
    systemheight->setObjectName(QStringLiteral("systemheight"));
    grid.addWidget(systemheight, 1, 2);
    connect(roles, &QComboBox::activated, this, [this](int role) {
        choose(QStringLiteral("Rôle"), [&] { setrole(shownnet(), chosen(), role); });
    });
    connect(systems, &QComboBox::activated, this, [this](int system) {
        choose(QStringLiteral("Système"), [&] {
            slotat(shownnet().system, chosen()) = static_cast<std::uint8_t>(system + 1);
        });
        showheight();
    });
}

void MembersPage::makeheights(QGridLayout& grid)
{
    const QString caption = QStringLiteral("Hauteur d'antenne (m)");
    ofsystem = new QRadioButton(QStringLiteral("Système"), fields);
    ofsystem->setObjectName(QStringLiteral("heightofsystem"));
    other = new QRadioButton(QStringLiteral("Autre"), fields);
    other->setObjectName(QStringLiteral("heightother"));
    height = new NumberField(QStringLiteral("ownheight"), bounds::antennaheight.low,
                             bounds::antennaheight.high, fields);
    height->setAccessibleName(caption);
    hintbounds(*height, bounds::antennaheight);
    auto* row = new QHBoxLayout;
    row->addWidget(other);
    row->addWidget(height, 1);
    grid.addWidget(new QLabel(caption, fields), 2, 0);
    grid.addWidget(ofsystem, 2, 1);
    grid.addLayout(row, 3, 1);
    connect(ofsystem, &QRadioButton::clicked, this, [this] { chooseheight(false); });
    connect(other, &QRadioButton::clicked, this, [this] { chooseheight(true); });
    follow(*height, [this] { takeheight(); });
}

int MembersPage::chosen() const
{
    return list->currentRow() + 1;
}

float& MembersPage::ownheight() const
{
    return network.height(selection.curnet, chosen());
}

void MembersPage::checkmember(QListWidgetItem* item)
{
    if (filling)
        return;
    choose(QStringLiteral("Participants"), [&] {
        list->setCurrentItem(item);
        updateheight(list->row(item) + 1);
    });
}

void MembersPage::chooseheight(bool own)
{
    choose(QStringLiteral("Hauteur d'antenne"),
           [&] { ownheight() = own ? static_cast<float>(height->value()) : 0.0F; });
    showheight();
    if (own) {
        height->setFocus();
        height->selectAll();
    }
}

void MembersPage::takeheight()
{
    if (!other->isChecked()) {
        if (!(height->typed() > 0))
            return;
        other->setChecked(true);
        height->setEnabled(true);
    }
    ownheight() = static_cast<float>(height->value());
}

void MembersPage::fillroles()
{
    const int topology = static_cast<int>(shownnet().kind());
    const RoleNames names = rolenames(topology);
    roles->clear();
    for (int i = 0; i < rolecount(topology); ++i)
        roles->addItem(QString::fromUtf8(names.roles.at(static_cast<std::size_t>(i))));
}

void MembersPage::updateheight(int station)
{
    if (opbusy != 0 || station < 1)
        return;
    Net& net = shownnet();
    setmember(net, station, list->item(station - 1)->checkState() == Qt::Checked);
    roles->setCurrentIndex(shownrole(net, station));
    systems->setCurrentIndex(net.systemof(station) - 1);
    showtitle();
}

void MembersPage::showtitle()
{
    const Net& net = shownnet();
    const bool member = net.ismember(chosen());
    QString name = QString::fromStdString(net.name.text());
    name.replace(QLatin1Char('&'), QStringLiteral("&&")); // no shortcut letter's mark
    frame->setTitle(member ? QStringLiteral("Membre de ") + name : QStringLiteral("Non membre"));
    QPalette colours;
    if (!member) // the fields below are disabled, and keep the colours of that state
        for (const auto role : {QPalette::WindowText, QPalette::Text})
            for (const auto group : {QPalette::Active, QPalette::Inactive})
                colours.setColor(group, role, QColor(200, 0, 0));
    frame->setPalette(colours);
    fields->setEnabled(member);
}

void MembersPage::showheight()
{
    const QScopedValueRollback<bool> quiet(filling, true);
    const int system = shownnet().systemof(chosen());
    const float common = system >= 1 && system <= MAXSYSTEM ? systemat(system).height : 0;
    const bool own = ownheight() > 0;
    systemheight->setText(QString::fromStdString(generalnumber(common) + " m"));
    (own ? other : ofsystem)->setChecked(true);
    height->setnumber(own ? ownheight() : common); // what "Autre" begins with
    height->setEnabled(own);
}

void MembersPage::showsystem(int system)
{
    systems->setItemText(system - 1, QString::fromStdString(systemat(system).name.text()));
    showheight();
}

void MembersPage::fill()
{
    const QScopedValueRollback<bool> quiet(filling, true);
    fillroles();
    {
        const QScopedValueRollback<std::int16_t> busy(opbusy, 1); // `updateheight` stays quiet
        for (int i = 1; i <= MAXUNIT; ++i)
            list->item(i - 1)->setCheckState(shownnet().ismember(i) ? Qt::Checked : Qt::Unchecked);
    }
    updateheight(chosen());
    showheight();
}
