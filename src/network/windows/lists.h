#pragma once

#include <QComboBox>
#include <QListWidget>

#include <vector>

/// Fills a list with the names of nets, each with its number as data, and selects the one used
/// last, else the first. Without a net this text stands in the list, with 0.
void fillnets(QComboBox& list, const std::vector<int>& nets, const QString& none);

/// Fills a list with the names of all stations and selects one.
void fillstations(QComboBox& list, int selected);

/// A station's line in a list: its name, greyed while the station has no place yet.
void showstation(QListWidgetItem& line, int number);
/// Fills a list with such lines of all stations.
void fillstations(QListWidget& list);
