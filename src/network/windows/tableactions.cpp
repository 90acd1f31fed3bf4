#include "network/windows/tableactions.h"

void TableActions::type(const QWidget* field, const QString& what)
{
    if (choosing || (typing && field == typedfield))
        return;
    settle();
    typing.emplace(what);
    typedfield = field;
}

void TableActions::settle()
{
    if (typing)
        typing->done();
    typing.reset();
}
