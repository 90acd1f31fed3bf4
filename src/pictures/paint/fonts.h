#pragma once

#include <QFont>

/// Font of the stations' and cities' names on pictures, as the settings say.
QFont labelfont();

/// Small upright font of legends.
QFont legendfont();
