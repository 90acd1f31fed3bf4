#include "network/windows/lists.h"

#include "network/tables.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

void fillstations(QComboBox& list, int selected)
{
    list.clear();
    for (std::size_t i = 1; i <= MAXUNIT; ++i)
        list.addItem(QString::fromStdString(network.units[i].name.text()));
    list.setCurrentIndex(selected - 1);
    list.setMaxVisibleItems(20);
}

void fillnets(QComboBox& list, const std::vector<int>& nets, const QString& none)
{
    list.clear();
    for (const int n : nets)
        list.addItem(QString::fromStdString(netat(n).name.text()), n);
    if (list.count() == 0)
        list.addItem(none, 0);
    list.setCurrentIndex(std::max(0, list.findData(selection.linknet)));
}

void showstation(QListWidgetItem& line, int number)
{
    const Unit& unit = unitat(number);
    const bool placed = unit.placed();
    line.setText(QString::fromStdString(unit.name.text()));
    line.setForeground(
        QGuiApplication::palette().brush(placed ? QPalette::Text : QPalette::PlaceholderText));
    line.setToolTip(placed ? QString() : QStringLiteral("Pas encore placée"));
}

void fillstations(QListWidget& list)
{
    for (int number = 1; number <= MAXUNIT; ++number) {
        list.addItem(QString());
        showstation(*list.item(number - 1), number);
    }
}
