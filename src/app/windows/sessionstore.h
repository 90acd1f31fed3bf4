#pragma once

#include <QString>

/// Puts an INI file behind the settings store: the user's own, or the one at this path.
void usesettingsfile(const QString& path = QString());

/// Reads what the run remembers, in two steps of the start: the last network, fonts, heights and
/// folders first, ...
void readsession();
/// ... recent networks whose file is still there, ...
void readrecent();
/// ... then the elevation folders and the values of the live layer.
void readlivesession();

/// Writes what the run remembers.
void storesession();
