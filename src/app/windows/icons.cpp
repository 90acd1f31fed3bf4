#include "app/windows/icons.h"

#include <QDir>

void useicons()
{
    Q_INIT_RESOURCE(icons);
}
