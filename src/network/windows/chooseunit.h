#pragma once

#include <QString>

class QWidget;

/// Asks for one of the 50 stations, with the first one that has no place yet chosen. 0: the user
/// gave up.
///   action: caption of the button that takes the station
int chooseunit(const QString& title, const QString& action, QWidget* parent);
