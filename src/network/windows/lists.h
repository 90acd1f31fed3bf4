#pragma once

#include <QComboBox>

#include <vector>

/// Fills a list with the names of nets, each with its number as data, and selects the one used
/// last, else the first. Without a net this text stands in the list, with 0.
void fillnets(QComboBox& list, const std::vector<int>& nets, const QString& none);

/// Fills a list with the names of all stations and selects one.
void fillstations(QComboBox& list, int selected);
